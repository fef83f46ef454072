// The skill tables: what is shown, who may use which, and the row that is granted.

#include "skills/skill_tables.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;
using Lines = std::vector<std::string>;

class SkillTables : public test::World {
  protected:
    SkillTables() {
        session.career.personalTable = {"", "P1", "P2", "P3", "P4", "P5", "Edu +1"};
        session.career.serviceTable = {"", "S1", "S2", "S or T", "S4", "S5", "S6"};
        session.career.advancedTable = {"", "A1", "A2", "A3", "A4", "A5", "A6"};
        session.career.officerTable = {"", "O1", "O2", "O3", "O4", "O5", "O6"};
        session.assignment.assignmentTable = {"", "I1", "I2", "I3", "", "I5", "I6"};
        session.career.skillTableTitle[3] = "Edu 8+";
    }
    // Picks the column and rolls the row. Gives the captions, "+" after those enabled, and the line written.
    std::string Pick(int column, int row) {
        player.ExpectTable(column);
        dice.Expect({Rolled(1, 6, row)});
        ChooseSkillTable(session);
        std::string buttons;
        for (std::size_t i = 1; i <= 6; ++i)
            buttons += player.lastTable.columns.at(i).caption + (player.lastTable.columns.at(i).enabled ? "+," : ",");
        return buttons + " " + History().back();
    }
    void RollTables(const std::vector<int>& faces) {
        for (const int face : faces)
            dice.Expect({Rolled(1, 6, face)});
        ChooseSkillTable(session);
    }
};

TEST_F(SkillTables, DialogShowsEveryTableAndEnablesThoseOpen) {
    EXPECT_EQ(Pick(5, 3), "Personal+,Service+,Advanced Edu 8+,Officer,Infantry+,, I3-1");
    EXPECT_EQ(player.lastTable.instruction, "Select a skill from the above tables");
    EXPECT_EQ(player.lastTableRows, (Lines{"P1/P2/P3/P4/P5/Edu +1", "S1/S2/S or T/S4/S5/S6", "A1/A2/A3/A4/A5/A6", "",
                                           "I1/I2/I3//I5/I6", ""}));
    character().Characteristic[kEdu] = 8;
    character().Commissioned = 1;
    EXPECT_EQ(Pick(4, 6), "Personal+,Service+,Advanced+,Officer+,Infantry+,, O6-1");
    EXPECT_EQ(player.lastTableRows[3], "O1/O2/O3/O4/O5/O6");
    session.career.advancedTable[1] = "-";
    EXPECT_EQ(Pick(1, 6), "Personal+,Service+,Advanced,Officer+,Infantry+,, Edu +1");
    session.career.skillTableTitle[3] = "Foo 8+";
    player.ExpectTell("Check Stat Foo 8+not found Foo");
    EXPECT_EQ(Pick(5, 4), "Personal+,Service+,Advanced Foo 8+,Officer+,Infantry+,, -1") << "an empty row";
}

TEST_F(SkillTables, DiePicksTheTableAndClosedOnesAreRolledAgain) {
    Tick(Option::RandomSkills);
    player.ExpectChoice("Select a Skill", "S/T", 1).ExpectChoice("Select a Skill", "S/T", 2);
    RollTables({6, 4, 3, 2, 3});
    RollTables({2, 3});  // the row of a table stays as it was
    Tick(Option::AutomaticGeneration);
    character().Commissioned = 1;
    character().Characteristic[kEdu] = 8;
    RollTables({4, 2});
    RollTables({6, 3, 1});
    session.career.advancedTable[1] = "-";
    RollTables({3, 5, 6});
    session.career.skillTableTitle[3] = "Foo 8+";
    player.ExpectTell("Check Stat Foo 8+not found Foo");
    RollTables({3, 5, 6});
    EXPECT_EQ(History(), (Lines{"S-1", "T-1", "O2-1", "A1-1", "I6-1", "I6-2"}));
}

}  // namespace
}  // namespace korvane
