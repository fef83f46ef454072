#include "support/scripted_dice.h"

#include <gtest/gtest.h>

namespace korvane::test {

ScriptedDice::~ScriptedDice() {
    ExpectDone();
}

void ScriptedDice::Expect(const std::vector<Die>& dice) {
    script_.insert(script_.end(), dice.begin(), dice.end());
}

void ScriptedDice::ExpectDone() {
    for (const auto& die : script_)
        ADD_FAILURE() << "expected but not asked: roll of " << die.count << " dice, " << die.sides << " sides";
    script_.clear();
}

int ScriptedDice::Roll(int count, int sides) {
    return Next(count, sides, count);
}

int ScriptedDice::Draw(int n) {
    return Next(0, n, 0);
}

int ScriptedDice::Next(int count, int sides, int least) {
    if (script_.empty()) {
        ADD_FAILURE() << "asked but not expected: roll of " << count << " dice, " << sides << " sides";
        return least;
    }
    const auto die = script_.front();
    script_.pop_front();
    EXPECT_TRUE(die.count == count && die.sides == sides)
        << "expected a roll of " << die.count << " dice, " << die.sides << " sides; asked: " << count << " dice, "
        << sides << " sides";
    return die.result;
}

}  // namespace korvane::test
