// The history as a story: what each line is taken for, and the headings of terms.

#include "output/story.h"

#include "support/world.h"

namespace korvane {
namespace {

class Story : public test::World {};

TEST_F(Story, KnowsItsLinesAndHeadsItsTerms) {
    session.race.startingAge = 18;
    session.race.termYears = 4;
    character().CareersServed.Add("Merchant Marine");
    const std::vector<std::pair<std::string, StoryKind>> lines = {
        {"-- Term 1 --", StoryKind::Term},
        {"Enlist Merchant Marine Tramp", StoryKind::Note},
        {"Vacc Suit-0", StoryKind::Gain},
        {"You lie low.", StoryKind::Prose},
        {"Scout Ship", StoryKind::Gain},
        {"Riot! Injured", StoryKind::Loss},
        {"------ Term 2 ------", StoryKind::Term},
        {"Engineer (M-Drive)-1", StoryKind::Gain},
        {"Edu +1", StoryKind::Gain},
        {"A bale breaks out of its sling above you, and you learn the weight of wet rope.", StoryKind::Prose},
        {"Severely Injured; Purple Heart if appropriate", StoryKind::Injury},
        {"Lost Eye or Limb; Purple Heart if appropriate", StoryKind::Injury},
        {"End 9 reduced by 2, service pays for 75%", StoryKind::Loss},
        {"Skill Engineer (M-Drive)=1 already held", StoryKind::Note},
        {"Enemy: Know too much", StoryKind::Loss},
        {"Ally: Business Superior", StoryKind::Gain},
        {"Promoted to Mate", StoryKind::Promotion},
        {"Imprisoned; parole threshold 9", StoryKind::Prison},
        {"You escape!", StoryKind::Prison},
        {"You escape", StoryKind::Note},  // from hostile ships
        {"------ Term 3 ------", StoryKind::Term}};
    character().Benefits.Add("Scout Ship");
    for (const auto& line : lines)
        AddHistory(session, line.first);
    const auto story = StoryOf(character(), session.race);
    ASSERT_EQ(story.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(story[i].kind, lines[i].second) << lines[i].first;
    EXPECT_EQ(story[0].heading, "Term 1, age 18");
    EXPECT_EQ(story[6].heading, "Term 2, age 22, Merchant Marine");
    EXPECT_EQ(story[20].heading, "Term 3, age 26, Prisoner");
}

}  // namespace
}  // namespace korvane
