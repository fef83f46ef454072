// The names in the rule data that rules hang on.
#pragma once

#include <string_view>

namespace korvane {

// Races.
inline constexpr std::string_view kImperialHuman = "Imperial Human";  // the default; its nobles are never refused
inline constexpr std::string_view kAslan = "Aslan";                   // ages at double rate
// Careers and assignments.
inline constexpr std::string_view kDrifter = "Drifter";    // never ejected, never recorded as served
inline constexpr std::string_view kPrisoner = "Prisoner";  // where the convicted go; never recorded as served
inline constexpr std::string_view kInmate = "Inmate";
inline constexpr std::string_view kNoble = "Noble";
// What a career without commissions has in place of their check.
inline constexpr std::string_view kNoCommission = "No";

}  // namespace korvane
