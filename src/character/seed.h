// Where the dice of a character come from: the clock, or a seed that repeats them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

// A seed as people give it, a number or a word, and the number that it stands for.
class Seed {
  public:
    // A whole number stands for itself, any other text for the first eight bytes of its digest, the least significant
    // first. Throws UsageError for a number below 0 or beyond 64 bits, and for an empty text.
    explicit Seed(std::string_view given);
    explicit Seed(std::uint64_t number) : given_(std::to_string(number)), value_(number), isNumber_(true) {}

    const std::string& given() const { return given_; }
    std::uint64_t value() const { return value_; }
    bool isNumber() const { return isNumber_; }

    bool operator==(const Seed& other) const { return value_ == other.value_; }

  private:
    std::string given_;
    std::uint64_t value_ = 0;
    bool isNumber_ = false;
};

// The dice of one character.
struct Origin {
    std::optional<Seed> seed;  // none: the clock
    std::uint64_t number = 1;  // of the character in its run

    bool operator==(const Origin&) const = default;
};

}  // namespace korvane
