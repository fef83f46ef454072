// Injuries, and what care costs.

#include "engine/injury.h"

#include <tuple>

#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using test::Rolled;
using Lines = std::vector<std::string>;

class Injuries : public test::World {
  protected:
    Injuries() { session.career.medicalCover = {}; }
    void Offer(std::string_view loss, int cost, bool taken) {
        player.ExpectAsk(Concat("Stat ", loss, ". Take Cr", cost, " medical debt to avoid?"), taken);
    }
    // Returns the roll that the caller then holds.
    int InjureBy(int roll) {
        character().History.Clear();
        Injure(session, roll);
        ExpectScriptsDone();
        return roll;
    }
    // What is written when the choice is put, before any die.
    Lines WrittenBeforeTheChoice(int roll) {
        character().History.Clear();
        player.ExpectScrap();
        EXPECT_THROW(Injure(session, roll), CharacterScrapped);
        return History();
    }
};

const std::string kHeart = "; Purple Heart if appropriate";

TEST_F(Injuries, NearlyKilledLosesOneEachAtOnceAndIsOfferedEachAgainBeforeTheChosenOne) {
    EXPECT_EQ(WrittenBeforeTheChoice(1), Lines{"Nearly Killed" + kHeart});
    dice.Expect({Rolled(1, 6, 1), Rolled(1, 6, 4)});
    player.ExpectChoice("Lose 1D from which stat?", "Str/Dex/End", 2);
    for (const auto* const name : {"Str", "Dex", "End"})  // lowered twice by now
        Offer(Concat(name, " currently 5 reduced by 1"), 5000, false);
    Offer("Dex currently 4 reduced by 5", 25000, false);
    EXPECT_EQ(InjureBy(0), 1);
    EXPECT_EQ(History(), (Lines{"Nearly Killed" + kHeart, "Str reduced by 1 to 4", "Dex reduced by 1 to 4",
                                "End reduced by 1 to 4", "Dex reduced by 5 to -1"}));
    EXPECT_EQ(character().CharacteristicDM[kEnd], -1);
}

TEST_F(Injuries, NearlyKilledKeepsTheFirstLossWhateverIsPaid) {
    const std::string paid = ", service pays for full recovery";
    Tick(Option::AutomaticGeneration);
    SetCharacteristic(kStr, 9);
    session.career.medicalCover = {0, 0, 0, 100};
    dice.Expect({Drawn(3, 2), Rolled(1, 6, 6)});
    dice.Expect(std::vector<test::Die>(4, Rolled(2, 6, 12)));
    EXPECT_EQ(InjureBy(1), 1);
    EXPECT_EQ(History(), (Lines{"Nearly Killed" + kHeart, "Str 8 reduced by 1" + paid, "Dex 6 reduced by 1" + paid,
                                "End 6 reduced by 1" + paid, "End 6 reduced by 7" + paid}));
    EXPECT_EQ(character().CharacteristicDM[kStr], 0) << "the modifiers follow though nothing more was lost";
}

TEST_F(Injuries, OtherRowsAskBeforeTheyRollAndWrite) {
    using Row = std::tuple<int, int, std::string, std::string, std::string, std::vector<test::Die>>;
    // clang-format off
    for (const auto& [roll, loss, title, options, line, die] : std::vector<Row>{
        {2, 3, "Lose 1D from which stat?", "Str/Dex/End", "Severely Injured", {Rolled(1, 6, 3)}},
        {3, 2, "Lose 2 from which stat?",  "Str/Dex",     "Lost Eye or Limb", {}},
        {4, 2, "Lose 2 from which stat?",  "Str/Dex/End", "Scarred",          {}},
        {5, 1, "Lose 1 from which stat?",  "Str/Dex/End", "Injured",          {}}}) {
        // clang-format on
        session.options = {};
        SetCharacteristic(kDex, 9);
        EXPECT_EQ(WrittenBeforeTheChoice(roll), Lines{});
        dice.Expect(die);
        player.ExpectChoice(title, options, 2);
        Offer(Concat("Dex currently 9 reduced by ", loss), loss * 5000, false);
        EXPECT_EQ(InjureBy(roll), roll);
        EXPECT_EQ(History(), (Lines{line + kHeart, Concat("Dex reduced by ", loss, " to ", 9 - loss)}));

        Tick(Option::AutomaticGeneration);
        session.career.medicalCover[1] = 50;  // the line tells which alternative was meant
        dice.Expect({Drawn(roll == 3 ? 2 : 3, 1)});
        dice.Expect(die);
        dice.Expect({Rolled(2, 6, 7)});
        InjureBy(roll);
        EXPECT_EQ(History(),
                  (Lines{line + kHeart, Concat("Dex ", 9 - loss, " reduced by ", loss, ", service pays for 50%"),
                         Concat("Cr ", loss * 2500, " medical debt incurred")}));
    }
    dice.Expect({Rolled(1, 6, 6)});
    EXPECT_EQ(InjureBy(0), 6);
    EXPECT_EQ(History(), Lines{"Lightly Injured"});
}

TEST_F(Injuries, CoverGoesByTheRollAndTheTermsServed) {
    Tick(Option::AutomaticGeneration);
    session.career.medicalCover = {100, 75, 50, 100};
    std::vector<float> debts;
    for (int total = 2; total <= 22; ++total) {
        const int roll = total < 12 ? total : 12;
        character().MedicalDebt = 500;
        character().TermsTotal = total - roll;
        dice.Expect({Rolled(2, 6, roll)});
        ReduceCharacteristic(session, kInt, 2);
        debts.push_back(character().MedicalDebt - 500);
    }
    // There is no cover below 4 and above 20.
    EXPECT_EQ(debts, (std::vector<float>{10000, 10000, 2500, 2500, 2500, 2500, 5000, 5000, 5000,  5000, 0,
                                         0,     0,     0,    0,    0,    0,    0,    0,    10000, 10000}));
    EXPECT_EQ(character().Characteristic[kInt], 7);
}

TEST_F(Injuries, WhatIsRefusedIsLostWithoutAFloor) {
    SetCharacteristic(kStr, 1);
    Offer("Str currently 1 reduced by 1", 5000, false);
    Offer("Str currently 0 reduced by 2", 10000, false);
    Offer("Str currently -2 reduced by 200", 1000000, true);
    dice.Expect({Rolled(2, 6, 7)});
    for (const auto& [amount, modifier] : {std::pair{1, -3}, std::pair{2, 0}, std::pair{200, 0}}) {
        ReduceCharacteristic(session, kStr, amount);
        EXPECT_EQ(character().CharacteristicDM[kStr], modifier);
    }
    EXPECT_EQ(History(),
              (Lines{"Str reduced by 1 to 0", "Str reduced by 2 to -2", "Cr 1000000 medical debt incurred"}));
    EXPECT_THROW(ReduceCharacteristic(session, 11, 1), RuleError);
}

}  // namespace
}  // namespace korvane
