// The choice service: asked and automatic, limits, flags for one question.

#include "skills/choice.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using Choice = test::World;

TEST_F(Choice, NumberCountsFromOneWhenAskedAndFromZeroWhenDrawn) {
    player.ExpectChoice("Pick", "A/B/C", 2);
    EXPECT_EQ(ChooseOption(session, "Pick", "A/B/C"), 2);
    EXPECT_EQ(session.choice.PickText, "B");
    EXPECT_EQ(session.choice.PickPlace, 2);

    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(3, 1)});
    EXPECT_EQ(ChooseOption(session, "Pick", "A/B/C"), 1);
    EXPECT_EQ(session.choice.PickIndex, 1);
    EXPECT_EQ(session.choice.PickText, "B") << "the text always names the alternative that was really chosen";
    EXPECT_EQ(session.choice.PickPlace, 2);
}

TEST_F(Choice, OneAlternativeIsAQuestionAndADraw) {
    player.ExpectChoice("Only", "One", 1);
    EXPECT_EQ(ChooseOption(session, "Only", "One"), 1);
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(1, 0)});
    EXPECT_EQ(ChooseOption(session, "Only", "One"), 0);
    EXPECT_EQ(session.choice.PickText, "One");
}

TEST_F(Choice, EmptyAlternativesAreKept) {
    player.ExpectChoice("Gaps", "A//B/", 2);
    EXPECT_EQ(ChoosePlace(session, "Gaps", "A//B/"), 2);
    EXPECT_EQ(session.choice.PickText, "");
    EXPECT_EQ(AlternativeAt("A//B/", 3), "B");
}

TEST_F(Choice, MoreThan24AlternativesFailBeforeAnythingIsAskedOrDrawn) {
    std::string options = "1";
    for (int i = 2; i <= 24; ++i)
        options += "/" + std::to_string(i);
    player.ExpectChoice("Many", options, 24);
    EXPECT_EQ(ChooseOption(session, "Many", options), 24);
    EXPECT_THROW(ChooseOption(session, "Many", options + "/25"), RuleError);
    Tick(Option::AutomaticGeneration);
    EXPECT_THROW(ChooseOption(session, "Many", options + "/25"), RuleError);
}

TEST_F(Choice, FlagsHoldForOneQuestion) {
    session.choice.automaticOnce = true;
    session.choice.focusPreset = 2;
    dice.Expect({Drawn(2, 0)});
    EXPECT_EQ(ChooseOption(session, "Pick", "A/B"), 0);
    player.ExpectChoice("Pick", "A/B", 1);
    EXPECT_EQ(ChooseOption(session, "Pick", "A/B"), 1);
    EXPECT_EQ(player.lastFocus, 0) << "the automatic answer spent the preset";

    session.choice.focusPreset = 1;
    player.ExpectChoice("Pick", "A/B", 1).ExpectChoice("Pick", "A/B", 1);
    ChooseOption(session, "Pick", "A/B");
    EXPECT_EQ(player.lastFocus, 1);
    ChooseOption(session, "Pick", "A/B");
    EXPECT_EQ(player.lastFocus, 0);
}

}  // namespace
}  // namespace korvane
