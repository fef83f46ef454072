// Life events, and the associates that come and go.

#include "engine/life_events.h"

#include "engine/associates.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Die;
using test::Drawn;
using test::Rolled;

class LifeEvents : public test::World {
  protected:
    // What the total brings beyond its dice: the lines, then the numbers that it leaves of people (enemies, rivals,
    // allies, contacts), of qualification, bonuses and rolls, each of which began at 2.
    std::string Live(int total, const std::vector<Die>& more = {}, int allies = 2, int contacts = 2) {
        auto& numbers = character();
        numbers.Enemies = numbers.Rivals = numbers.QualificationDM = numbers.MusterBonusCount = numbers.MusterRolls = 2;
        numbers.Allies = allies;
        numbers.Contacts = contacts;
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

TEST_F(LifeEvents, BetrayalAddsAFoeAndTakesAnAllyBeforeAContact) {
    EXPECT_EQ(Live(8, {Rolled(1, 2, 1)}), "t8|Enemy: Betrayed|Betrayed by Ally| 3212 222");
    EXPECT_EQ(Live(8, {Rolled(1, 2, 2)}, 1, 0), "t8|Rival: Betrayed|Betrayed by Ally| 2300 222");
    EXPECT_EQ(Live(8, {Rolled(1, 2, 2)}, 0, 1), "t8|Rival: Betrayed|Betrayed by Contact| 2300 222");
    EXPECT_EQ(Live(8, {Rolled(1, 2, 1)}, 0, 0), "t8|Enemy: Betrayed| 3200 222");
}

TEST_F(LifeEvents, AnAccusationCostsABenefitRollOrMeansPrison) {
    const std::string crime = "You commit or are the victim (or are accused) of a crime";
    player.ExpectChoice("Accused of a Crime; Choose Option", "Lose 1 Benefit roll/Serve a term in Prison", 1);
    EXPECT_EQ(Live(11), crime + "; lose 1 benefit roll| 2222 221");
    Tick(Option::AutomaticGeneration);
    player.ExpectTell(
        "You have been imprisoned. Terms will be served until you make your parole roll or die of old age");
    player.ExpectMuster(MusterButton::Done);
    EXPECT_EQ(Live(11, {Drawn(2, 1), Rolled(1, 6, 3)}),
              crime + " and are sent to prison|Imprisoned; parole threshold 7| 2222 220");
}

using Associates = test::World;

TEST_F(Associates, EachIsCountedWrittenAndBoundedByItsRange) {
    const auto expect = [this](auto add, Count CharacterNumbers::*count, const std::string& name) {
        auto& numbers = character();
        numbers.Clear();
        add(session, "An old friend");
        add(session, "An old friend");
        EXPECT_EQ(numbers.*count, 2);
        EXPECT_EQ(numbers.Enemies + numbers.Contacts + numbers.Rivals + numbers.Allies, 2) << "no other is counted";
        numbers.*count = 32767;
        EXPECT_THROW(add(session, "One too many"), RuleError);
        EXPECT_EQ(numbers.*count, 32767);
        EXPECT_EQ(History(), std::vector<std::string>(2, name + ": An old friend"));
    };
    expect(AddEnemy, &CharacterNumbers::Enemies, "Enemy");
    expect(AddContact, &CharacterNumbers::Contacts, "Contact");
    expect(AddRival, &CharacterNumbers::Rivals, "Rival");
    expect(AddAlly, &CharacterNumbers::Allies, "Ally");
}

}  // namespace
}  // namespace korvane
