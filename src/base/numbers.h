// Checked numbers: what a character counts is a 16-bit number, what a character owns a 32-bit one. A value that doesn't
// fit throws instead of wrapping.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

#include "base/error.h"

namespace korvane {

template <typename Stored, typename Wide>
class Checked {
  public:
    constexpr Checked() = default;
    // Throws RuleError (overflow) when `value` doesn't fit.
    template <typename Whole>
    requires std::is_integral_v<Whole>
    constexpr Checked(Whole value) : value_(Fit(value)) {}

    // Arithmetic happens in the wider type; assigning the outcome checks it.
    constexpr operator Wide() const { return value_; }

    constexpr Checked& operator+=(Wide amount) { return *this = Checked(value_ + amount); }
    constexpr Checked& operator-=(Wide amount) { return *this = Checked(value_ - amount); }

  private:
    template <typename Whole>
    static constexpr Stored Fit(Whole value) {
        if (!std::in_range<Stored>(value))
            throw RuleError(RuleError::Kind::Overflow, "the number " + std::to_string(value) + " is out of range");
        return static_cast<Stored>(value);
    }

    Stored value_ = 0;
};

using Count = Checked<std::int16_t, int>;
using Credits = Checked<std::int32_t, std::int64_t>;

}  // namespace korvane
