// The character record: modifiers, subscripts, the history's limits, a blank record.

#include "character/character_record.h"
#include "support/world.h"

namespace korvane {
namespace {

using Record = test::World;

TEST_F(Record, ModifiersFollowTheBandsInTheSlotsInPlay) {
    using Band = std::array<int, 3>;
    for (const auto& [first, last, modifier] :
         {Band{-32768, -1, 0}, Band{0, 0, -3}, Band{1, 2, -2}, Band{3, 4, -1}, Band{5, 8, 0}, Band{9, 11, 1},
          Band{12, 14, 2}, Band{15, 17, 3}, Band{18, 20, 4}, Band{21, 23, 5}, Band{24, 32767, 0}})
        for (int value = first; value <= last; ++value)
            ASSERT_EQ(ModifierOf(value), modifier) << value;
    for (const int slot : {0, 6, 7, 10})
        character().Characteristic[slot] = 12;
    character().CharacteristicDM[1] = 5;
    character().CharacteristicDM[7] = -3;
    RecomputeCharacteristicDMs(character());
    for (const auto& [slot, modifier] : {std::pair{0, 0}, std::pair{1, 0}, std::pair{6, 2}, std::pair{7, -3}})
        EXPECT_EQ(character().CharacteristicDM[slot], modifier) << slot;
    for (const int slot : {-1, 11})
        EXPECT_THROW(character().Characteristic[slot], RuleError);
}

TEST_F(Record, HistoryDropsThe101stLineAndBlankLinesLeaveTheirSlotFree) {
    std::vector<std::string> expected;
    for (int i = 1; i <= 101; ++i) {
        expected.push_back("Line " + std::to_string(i) + " ");
        AddHistory(session, "Line ", i, " ");
        AddHistory(session, i % 2 == 0 ? "" : "   ");
    }
    expected.pop_back();
    EXPECT_EQ(History(), expected);
}

TEST_F(Record, ClearingLeavesNothingOfTheCharacterBefore) {
    AddHistory(session, "A long life");
    Hold("Admin", 3);
    character().Benefits.Add("Blade");
    character().Rank = character().QualificationDM = character().LeaveCareer = 7;
    character().MedicalDebt = 2.5F;
    character().Clear();
    EXPECT_TRUE(History().empty() && character().Benefits.empty() && character().Skills.Held().empty());
    EXPECT_EQ(character().Skills.Find("")->Level, 0) << "no level stays in the slot";
    EXPECT_EQ(character().Rank + character().QualificationDM + character().LeaveCareer, 0);
    EXPECT_TRUE(character().Characteristic[kSoc] == 0 && character().MedicalDebt == 0);
    AddHistory(session, "New");
    EXPECT_EQ(History(), std::vector<std::string>{"New"});
}

}  // namespace
}  // namespace korvane
