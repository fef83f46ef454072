// Life events.

#include "engine/life_events.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Die;
using test::Rolled;

class LifeEvents : public test::World {
  protected:
    // What the total brings beyond its dice: the lines, then the numbers that it leaves of people (enemies, rivals,
    // allies, contacts), of qualification, bonuses and rolls, each of which began at 2.
    std::string Live(int total, const std::vector<Die>& more = {}) {
        auto& numbers = character();
        numbers.Enemies = numbers.Rivals = numbers.Allies = numbers.Contacts = 2;
        numbers.QualificationDM = numbers.MusterBonusCount = numbers.MusterRolls = 2;
        numbers.History.Clear();
        session.race.lifeEvents = {"", "t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8", "t9", "t10", "t11", "t12"};
        dice.Expect({Rolled(2, 6, total)});
        dice.Expect(more);
        RollLifeEvent(session);
        ExpectScriptsDone();
        std::string told;
        for (const auto& line : History())
            told += line + "|";
        return Concat(told, " ", numbers.Enemies, numbers.Rivals, numbers.Allies, numbers.Contacts, " ",
                      numbers.QualificationDM, numbers.MusterBonusCount, numbers.MusterRolls);
    }
};

TEST_F(LifeEvents, EachTotalBringsItsOwn) {
    EXPECT_EQ(Live(2, {Rolled(1, 6, 6)}), "Lightly Injured| 2222 222");
    EXPECT_EQ(Live(3), "t3| 2222 222");
    EXPECT_EQ(Live(4, {Rolled(1, 2, 1)}), "t4|Enemy: Breakup| 3222 222");
    EXPECT_EQ(Live(4, {Rolled(1, 2, 2)}), "t4|Rival: Breakup| 2322 222");
    EXPECT_EQ(Live(5), "t5|Ally: New/Improved Relationship| 2232 222");
    EXPECT_EQ(Live(6), "t6|Ally: New/Improved Relationship| 2232 222");
    EXPECT_EQ(Live(7), "t7|Contact: New Contact| 2223 222");
    EXPECT_EQ(Live(9), "t9| 2222 322");
    EXPECT_EQ(Live(10), "t10| 2222 242");
    EXPECT_EQ(Live(12), "t12|* More details later| 2222 222");
}

}  // namespace
}  // namespace korvane
