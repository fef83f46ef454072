// Dice that fall as a test says, and that hold the engine to the rolls that the test expects.
#pragma once

#include <deque>
#include <vector>

#include "character/dice.h"

namespace korvane::test {

// One expected request and its result: Roll(count, sides), or Draw(sides) when the count is 0.
struct Die {
    int count;
    int sides;
    int result;
};

inline Die Rolled(int count, int sides, int result) {
    return {count, sides, result};
}
inline Die Drawn(int n, int result) {
    return {0, n, result};
}

// The rolls of a home world by the shipped tables.
inline std::vector<Die> HomeWorldRolls() {
    return std::vector<Die>(7, Rolled(2, 6, 7));
}

// A request that differs from the next expected one, or comes when none is left, fails the test.
class ScriptedDice : public Dice {
  public:
    ~ScriptedDice() override;
    void Expect(const std::vector<Die>& dice);
    // All expected requests were made; fails the test otherwise. The destructor checks it too.
    void ExpectDone();

    int Roll(int count, int sides) override;
    int Draw(int n) override;

  private:
    int Next(int count, int sides, int least);

    std::deque<Die> script_;
};

}  // namespace korvane::test
