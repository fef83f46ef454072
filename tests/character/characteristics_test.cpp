// Rolling characteristics by both methods, race modifiers, and a new character.

#include "character/characteristics.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;

class Characteristics : public test::World {
  protected:
    std::vector<int> ValuesFrom(const std::vector<int>& faces, void (*roll)(Session&) = RollCharacteristics,
                                const std::vector<test::Die>& more = {}) {
        for (const int face : faces)
            dice.Expect({Rolled(1, 6, face)});
        dice.Expect(more);
        roll(session);
        dice.ExpectDone();
        std::vector<int> values;
        for (int i = 1; i <= character().CharacteristicCount; ++i)
            values.push_back(character().Characteristic[i]);
        return values;
    }
};

TEST_F(Characteristics, True2DAddsTwoRollsAndRoll3Drop1TheSecondAndThirdInAscendingOrder) {
    session.race.characteristicDice = {0, 2, 2, 0, 1, 3, 9};
    EXPECT_EQ(ValuesFrom({1, 2, 6, 6, 5, 3, 1, 1, 2, 2, 4, 5}), (std::vector{3, 12, 8, 2, 4, 9}));
    session.method = RollingMethod::Roll3Drop1;
    EXPECT_EQ(ValuesFrom({6, 1, 3, 4, 4, 4, 5, 5, 2, 6, 1, 5, 4, 6, 6, 3, 6, 2, 6, 4, 5, 6, 6}),
              (std::vector{9, 8, 0, 5, 9, 7}));
}

TEST_F(Characteristics, RaceModifierIsAddedAfterAPlusAndElseSubtracted) {
    session.race.characteristicCount = 9;  // the last modifier's minus sign is three bytes long
    session.race.characteristicModifier = {"", "+2", "-1", "   ", "x3", "12", " +2", "+12", "-9", "−2"};
    EXPECT_EQ(ValuesFrom(std::vector(18, 3)), (std::vector{8, 5, 6, 3, 4, 4, 18, -3, 4}));
}

TEST_F(Characteristics, NewCharacterIsBlankOfStartingAgeAndRolledByTheMethod) {
    AddHistory(session, "-- Term 1");
    Hold("Admin", 2);
    character().CharacteristicName[7] = "PSI";
    session.race.startingAge = 22;
    session.race.characteristicCount = 2;
    session.race.characteristicModifier[1] = "+2";
    session.method = RollingMethod::Roll3Drop1;
    EXPECT_EQ(ValuesFrom({5, 5, 1, 2, 1, 1}, StartNewCharacter, test::HomeWorldRolls()), (std::vector{12, 3}));
    EXPECT_EQ(character().Age, 22);
    EXPECT_TRUE(History().empty() && character().Skills.Held().empty());
    EXPECT_EQ(character().CharacteristicName[1] + character().CharacteristicName[7], "Str");
    EXPECT_EQ(character().CharacteristicDM[1], 2) << "the summary was refreshed";
}

}  // namespace
}  // namespace korvane
