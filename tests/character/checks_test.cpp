// Checks: the rolled one with its modifier by the place of the plus sign, and the plain test of a value.

#include "character/checks.h"

#include "character/rolled_check.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;
using Checks = test::World;

TEST_F(Checks, ModifierIsThatOfTheSlotWhereThePlusStands) {
    for (int slot = 1; slot <= kMostCharacteristics; ++slot)
        character().CharacteristicDM[slot] = 100 * slot;
    using Case = std::tuple<const char*, int, int>;
    for (const auto& [check, slot, target] :
         {Case{"Edu 7+", 6, 7}, Case{"Xyz 7+", 6, 7}, Case{"Edu 10+", 7, 10}, Case{" Edu 7+", 7, 7},
          Case{"Edu 00008+", 10, 8}, Case{"Str 8+ or End 9+", 6, 8}, Case{"Soc 8", 0, 8}, Case{"Édu 9+", 6, 9},
          Case{"Edu 1 1+", 8, 11}, Case{"Edu some+", 9, 0}, Case{"Ed+", 3, 0}, Case{"Edu", 0, 0}, Case{"", 0, 0}}) {
        dice.Expect({Rolled(2, 6, 5)});
        EXPECT_EQ(RollCheck(session, check, -2), 5 - 2 + 100 * slot - target) << check;
    }
    dice.Expect({Rolled(2, 6, 7)});
    EXPECT_EQ(RollCheck(session, "Soc 7", 70000), 70000) << "an effect is no counter";
    dice.Expect({Rolled(2, 6, 7)});  // before the error
    EXPECT_THROW(RollCheck(session, "Edu 000008+", 0), RuleError);
}

TEST_F(Checks, StatIsComparedByItsValueAndAnUnknownNameFails) {
    SetCharacteristic(kSoc, 9);
    EXPECT_TRUE(CheckStat(session, "sOC 9+"));
    EXPECT_FALSE(CheckStat(session, "Soc 10+")) << "its modifier doesn't help";
    character().CharacteristicName[6] = "STR";
    SetCharacteristic(kStr, 3);
    EXPECT_TRUE(CheckStat(session, "Str 8+")) << "the last of equal names counts";
    SetCharacteristic(kSoc, -1);
    EXPECT_FALSE(CheckStat(session, "Str")) << "no target is a target of 0";
    Tick(Option::AutomaticGeneration);          // an unknown name is told all the same
    character().CharacteristicName[7] = "PSI";  // a slot that isn't in play
    player.ExpectTell("Check Stat Xyz 8+not found Xyz").ExpectTell("Check Stat PSI 0+not found PSI");
    player.ExpectTell("Check Stat Stnot found St");
    for (const auto* const check : {"Xyz 8+", "PSI 0+", "St"})
        EXPECT_FALSE(CheckStat(session, check));
}

TEST_F(Checks, EachRollAgainstATargetCountsForTheLuckOfTheLife) {
    dice.Expect({Rolled(2, 6, 11), Rolled(2, 6, 12), Rolled(2, 6, 3), Rolled(2, 6, 7)});
    RollCheck(session, "Str 8+", 0);
    RollUnder(session, "Gambler", 8);  // where low is good, a 12 is the worst there is
    RollUnder(session, "Stealth", 8);
    RollAgainst(session, "Advocate", 2, 8);
    const auto& luck = character().Luck;
    EXPECT_EQ(luck.rolls, 4);
    EXPECT_EQ(luck.sum, 11 + 2 + 11 + 7);
    EXPECT_EQ(luck.best.check, "Str 8+") << "the first of those as good";
    EXPECT_EQ(luck.worst.luck, 2);
    EXPECT_EQ(luck.worst.check, "Gambler");
    character().Clear();
    EXPECT_EQ(character().Luck.rolls, 0);
}

TEST_F(Checks, WaysOfTheDiceAreCounted) {
    const auto ways = [](int target, int own, bool under) {
        return RolledCheck{"", own, 0, target, 0, under}.WaysOf36();
    };
    EXPECT_EQ(ways(8, 0, false), 15);
    EXPECT_EQ(ways(8, 1, false), 21);
    EXPECT_EQ(ways(8, 0, true), 26);
    EXPECT_EQ(ways(2, 0, false), 36);
    EXPECT_EQ(ways(12, 0, false), 1);
    EXPECT_EQ(ways(8, 50, false), 36);
    EXPECT_EQ(ways(1000000, 0, false), 0);
    EXPECT_EQ(ways(1, 0, true), 0);
    EXPECT_EQ(CheckText("D+ex5"), "Dex 5+") << "wherever the data has its plus";
    EXPECT_EQ(CheckText("Gambler"), "Gambler");
}

}  // namespace
}  // namespace korvane
