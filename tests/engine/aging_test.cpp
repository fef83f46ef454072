// What each term's age takes.

#include "engine/aging.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using test::Rolled;
using Lines = std::vector<std::string>;

class Aging : public test::World, public Display {
  protected:
    Aging() { session.seams.display = this; }
    void HistoryChanged() override {
        atEachLine += Concat(character().Characteristic[kDex], "/", character().MedicalDebt == 40000 ? "debt " : " ");
    }
    // Ages with a roll of 2, from which each term takes a quarter where terms last four years.
    Lines AgeWith(int termsTotal, const std::vector<test::Die>& picks = {}) {
        character().History.Clear();
        character().Age = 30;
        character().TermsTotal = termsTotal;
        dice.Expect({Rolled(2, 6, 2)});
        dice.Expect(picks);
        AgeCharacter(session);
        ExpectScriptsDone();
        return History();
    }
    // The physical picks fall on a Str of 15, the mental one on Edu.
    void ExpectPicks(int termsTotal, const std::vector<int>& picks, bool mental = false) {
        const std::string title = "Stat Reduced by Age: Pick a stat to reduce by ";
        Lines lines = {"Character Ages"};
        int str = 15;
        SetCharacteristic(kStr, str);
        SetCharacteristic(kEdu, 7);
        for (const int amount : picks) {
            player.ExpectChoice(Concat(title, amount), Concat("Str ", str, "/Dex 7/End 7"), 1);
            lines.push_back(Concat("Str ", str, " reduced by ", amount));
            str -= amount;
        }
        if (mental) {
            player.ExpectChoice(title + "1", "Int 7/Edu 7/Soc 7", 2);
            lines.emplace_back("Edu 7 reduced by 1");
        }
        EXPECT_EQ(AgeWith(termsTotal), lines) << termsTotal;
    }

    std::string atEachLine;  // Dex and the debt for it, when each line of the history was written
};

TEST_F(Aging, TermsWeighByTheirLengthAndRaceAndEachTotalTakesItsPicks) {
    ExpectPicks(8, {1});                  // 0
    ExpectPicks(12, {1, 1});              // -1
    ExpectPicks(20, {2, 1, 1});           // -3
    ExpectPicks(24, {2, 2, 1});           // -4
    ExpectPicks(28, {2, 2, 2});           // -5
    for (const int terms : {32, 34, 88})  // -6, -6.5, -20
        ExpectPicks(terms, {2, 2, 2}, true);
    for (const int terms : {9, 14, 31, 89, 92})  // -0.25, -1.5, -5.75, -20.25, -21
        ExpectPicks(terms, {});
    EXPECT_EQ(AgeWith(7), Lines{}) << "0.25 is above the table";
    character().Age = 29;
    AgeCharacter(session);  // 33: too young for a roll
    session.selection.race = "Aslan";
    EXPECT_EQ(AgeWith(4), Lines{}) << "what counts is the name in the race's record";
    session.race.name = "Aslan";
    ExpectPicks(4, {1});
    session.race.termYears = 5;
    ExpectPicks(5, {1});
    const Lines each = {"Character Ages", "Str 14 reduced by 1", "Dex 7 reduced by 1", "End 7 reduced by 1"};
    EXPECT_EQ(AgeWith(10), each);
}

TEST_F(Aging, DrawnPhysicalPicksCountFromZeroAndACrisisIsToldInAnyMode) {
    const std::string crisis = "Ageing Crisis - character should retire";
    Tick(Option::AutomaticGeneration);
    SetCharacteristic(kDex, 2);
    SetCharacteristic(kEnd, 3);
    player.ExpectTell(crisis);
    EXPECT_EQ(AgeWith(32, {Drawn(3, 1), Drawn(3, 0), Rolled(1, 3, 3), Drawn(3, 2), Rolled(1, 6, 4), Drawn(3, 2)}),
              (Lines{"Character Ages", "Str 7 reduced by 2", "End 3 reduced by 2", "Dex 2 reduced by 2", crisis,
                     "Soc 7 reduced by 1"}));
    EXPECT_EQ(atEachLine, "2/ 2/ 2/ 2/ 1/debt 1/debt ") << "the debt and the rise to 1 come before the line";
}

}  // namespace
}  // namespace korvane
