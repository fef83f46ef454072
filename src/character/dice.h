// The dice: the only source of chance in the rules.
#pragma once

#include <cstdint>

namespace korvane {

class Dice {
  public:
    virtual ~Dice() = default;
    // The sum of `count` dice, at least one, of `sides` sides.
    virtual int Roll(int count, int sides) = 0;
    // A whole number from 0 to n - 1, from the same source.
    virtual int Draw(int n) = 0;
};

// A stream of evenly spread numbers from a seed.
class RandomStream {
  public:
    explicit RandomStream(std::uint64_t seed = 0) : state_(seed) {}
    std::uint64_t Next();
    // A whole number from 0 to n - 1; n is at least 1.
    int Below(int n);

    // Spreads each bit of a number over the whole result.
    static std::uint64_t Mix(std::uint64_t number);

  private:
    std::uint64_t state_;
};

// The dice of the program: each roll is seeded anew from the clock. A call number that all objects share is mixed in,
// so that two rolls within one tick of the clock don't repeat each other.
class ClockDice : public Dice {
  public:
    ClockDice();
    int Roll(int count, int sides) override;
    int Draw(int n) override;

  private:
    RandomStream stream_;
};

// Dice that fall the same way each time for a seed and the number of a character.
class SeededDice : public Dice {
  public:
    SeededDice(std::uint64_t seed, std::uint64_t character);
    int Roll(int count, int sides) override;
    int Draw(int n) override;

  private:
    RandomStream stream_;
};

}  // namespace korvane
