// The players without a person: whole lives, and what may not come of them.

#include "play/players.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "base/checksum.h"
#include "output/character_document.h"
#include "output/character_text.h"
#include "output/summary_texts.h"
#include "play/life_plan.h"
#include "play/sensible_player.h"

namespace korvane::play {
namespace {

class Lives : public ::testing::Test {
  protected:
    // The lives of a plan, each handed over with what it came to.
    template <typename Check>
    void LiveAll(LifePlan plan, int count, const Check& check) {
        plan.seed = Seed(5);
        for (int number = 1; number <= count; ++number)
            check(play::Live(session, plan, static_cast<std::uint64_t>(number), {}));
    }
    // What hundred lives of a sensible player come to with one box ticked, or none.
    std::uint64_t SumWith(std::optional<Option> box) {
        auto sum = kNoText;
        for (std::uint64_t number = 1; number <= 100; ++number) {
            SeededDice dice(3, number);
            SensiblePlayer player(session, RandomStream(number), 4);
            session.seams.dice = &dice;
            session.seams.player = &player;
            session.options = {};
            if (box)
                session.options.Set(*box);
            Select(session, "Imperial Human", number % 2 == 0 ? "Navy" : "Merchant",
                   number % 2 == 0 ? "Flight" : "Trade House");
            LiveOut(session);
            sum = Checksum(CharacterText(session), sum);
        }
        return sum;
    }

    Display display;
    Session session{DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display}};
};

bool Owns(const CharacterRecord& character) {
    return character.Cash > 0 || character.Pension > 0 || !character.Benefits.empty();
}

bool TransfersOutOfTheLastTerm(const CharacterRecord& character) {
    bool transfers = false;
    for (const auto& line : character.History.lines())
        transfers = line.starts_with("Transfer to ") || (transfers && !line.starts_with("------ Term "));
    return transfers;
}

TEST_F(Lives, OfThePlayerOfSenseAreGoodToPlay) {
    int poor = 0;
    LifePlan plan;
    plan.player = PlayerKind::Sensible;
    plan.options.Set(Option::AddSkillsForConnections);
    plan.options.Set(Option::SelectSkillPackage);
    for (plan.terms = 1; plan.terms <= 12; ++plan.terms)
        LiveAll(plan, 100, [&](const LifeOutcome& outcome) {
            const auto& character = session.character;
            EXPECT_TRUE(outcome.finished());
            EXPECT_TRUE(OpenPoints(character).empty()) << OpenPointsLine(character);
            EXPECT_GE(character.TermsTotal, std::min(plan.terms + 1, kTermLimit));
            EXPECT_EQ(character.Connections.size(), 2U);
            EXPECT_FALSE(character.SkillPackage.empty());
            EXPECT_FALSE(TransfersOutOfTheLastTerm(character)) << plan.terms << " terms";
            poor += Owns(character) ? 0 : 1;
        });
    EXPECT_LT(poor, 12);
}

TEST_F(Lives, OfThePolicyEndWhenTheirTermsAreServed) {
    LifePlan plan;
    plan.player = PlayerKind::Automatic;
    plan.terms = 1;
    LiveAll(plan, 300, [&](const LifeOutcome& outcome) {
        EXPECT_TRUE(outcome.finished());
        for (const auto& line : session.character.History.lines())
            EXPECT_FALSE(line.starts_with("Transfer to ")) << "out of the last term";
    });
}

TEST_F(Lives, LeaveForAnotherCareerButNotForPrison) {
    PolicyPlayer player(session, RandomStream(1), 4);
    const auto none = [](std::string_view) { return std::make_shared<const Names>(); };
    const auto goes_to = [&](const Names& careers) {
        return player.Transfer({careers, none}).value_or(TransferAnswer{}).career;
    };
    session.selection.career = "Army";
    session.character.TermsTotal = 2;
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(goes_to({"Army", "Prisoner", "Scout"}), "Scout");
    EXPECT_EQ(goes_to({"Army", "Prisoner"}), "Army") << "there is no other";
    EXPECT_EQ(goes_to({"Prisoner"}), "");
    session.character.TermsTotal = 5;
    EXPECT_EQ(goes_to({"Army", "Scout"}), "");
}

TEST_F(Lives, ChangeWithEachBoxButTheOneThatIsKnownToDoNothing) {
    const auto plain = SumWith({});
    for (const auto box : kAllOptions)
        EXPECT_EQ(SumWith(box) == plain, box == Option::ForcePromote) << CaptionOf(box);
}

TEST_F(Lives, SpecialitiesOfSenseAreThoseHeldOrTaught) {
    SensiblePlayer player(session, RandomStream(1), 4);
    Select(session, "Imperial Human", "Scout", "Courier");
    session.character.Clear();
    session.character.Skills.Take("Art (Song)", 1);
    session.character.Skills.Take("Gunner (Turret)", 4);
    const std::vector<std::string_view> arts = {"Dance", "Song", "Verse", "Pick Later"};
    const std::vector<std::string_view> guns = {"Turret", "Screen", "Pick Later"};
    const std::vector<std::string_view> pilots = {"Capital", "Small Craft", "Spacecraft", "Pick Later"};
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(player.Choose({"Select Specialty for Art", arts}), 2);
        EXPECT_EQ(player.Choose({"Select Specialty for Gunner", guns}), 2) << "four is enough";
        EXPECT_EQ(player.Choose({"Select Specialty for Pilot", pilots}), 3);
    }
}

}  // namespace
}  // namespace korvane::play
