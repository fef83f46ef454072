// The choice service: numbers and texts of answers, automatic mode, its limits.

#include "skills/choice.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using Texts = std::vector<std::string_view>;

class Choices : public test::World {
  protected:
    int Number(const Texts& texts) { return ChooseOption(session, "Pick", texts); }
};

TEST_F(Choices, NumberCountsFromOneWhenAskedAndFromZeroWhenDrawn) {
    player.ExpectChoice("Pick", "A//C", 2);
    EXPECT_EQ(Number({"A", "", "C"}), 2) << "an empty alternative is one";
    player.ExpectChoice("Pick", "A/B/C", 2);
    EXPECT_EQ(Choose(session, "Pick", Texts{"A", "B", "C"}).text, "B");
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(3, 1), Drawn(3, 2), Drawn(1, 0)});
    EXPECT_EQ(Number({"A", "B", "C"}), 1);
    EXPECT_EQ(session.choice.PickIndex, 1);
    EXPECT_EQ(session.choice.PickText, "B") << "the text always names the alternative that was really chosen";
    EXPECT_EQ(Choose(session, "Pick", Texts{"A", "B", "C"}).place, 3) << "and so does the place";
    EXPECT_EQ(Number({"One"}), 0);
}

TEST_F(Choices, MoreThan24AlternativesFailBeforeAnythingIsAskedOrDrawn) {
    Texts texts(24, "x");
    player.ExpectChoice("Pick", "*", 24);
    EXPECT_EQ(Number(texts), 24);
    texts.emplace_back("x");
    EXPECT_THROW(Number(texts), RuleError);
    Tick(Option::AutomaticGeneration);
    EXPECT_THROW(Number(texts), RuleError);
}

TEST_F(Choices, FlagsHoldForOneQuestion) {
    session.choice.automaticOnce = true;
    session.choice.focusPreset = 2;
    dice.Expect({Drawn(2, 0)});
    EXPECT_EQ(Number({"A", "B"}), 0);
    player.ExpectChoice("Pick", "A/B", 1);
    EXPECT_EQ(Number({"A", "B"}), 1);
    EXPECT_EQ(player.lastFocus, 0) << "the automatic answer spent the preset";
    session.choice.focusPreset = 1;
    player.ExpectChoice("Pick", "A/B", 1).ExpectChoice("Pick", "A/B", 1);
    Number({"A", "B"});
    EXPECT_EQ(player.lastFocus, 1);
    Number({"A", "B"});
    EXPECT_EQ(player.lastFocus, 0);
}

}  // namespace
}  // namespace korvane
