// Short names for the numbers and effects that rows speak of; for the tables alone.
#pragma once

#include <array>
#include <string_view>

#include "engine/codes/effects.h"

namespace korvane::codes {

inline constexpr Field kLeave = &CharacterNumbers::LeaveCareer;
inline constexpr Field kMusterRolls = &CharacterNumbers::MusterRolls;
inline constexpr Field kBenefitRolls = &CharacterNumbers::BenefitRollsModifier;
inline constexpr Field kMusterBonus = &CharacterNumbers::MusterBonusCount;
inline constexpr Field kParole = &CharacterNumbers::ParoleThreshold;
inline constexpr Field kQualification = &CharacterNumbers::QualificationDM;
inline constexpr Field kSurvival = &CharacterNumbers::SurvivalDM;
inline constexpr Field kCommission = &CharacterNumbers::CommissionDM;
inline constexpr Field kAdvancement = &CharacterNumbers::AdvancementDM;
inline constexpr Field kEnemies = &CharacterNumbers::Enemies;

// What the handbook calls each of them.
struct FieldName {
    Field field;
    std::string_view name;
};
inline constexpr std::array<FieldName, 10> kFieldNames = {{
    {kLeave, "leaving the career"},
    {kMusterRolls, "benefit rolls of this career"},
    {kBenefitRolls, "benefit rolls"},
    {kMusterBonus, "bonuses of +1 to a benefit roll"},
    {kParole, "parole threshold"},
    {kQualification, "next qualification"},
    {kSurvival, "next survival"},
    {kCommission, "next commission"},
    {kAdvancement, "next advancement"},
    {kEnemies, "enemies"},
}};

// An alternative that is itself the skill string that it grants.
inline Alternative GainOf(std::string_view skill) {
    return {skill, {Grant{skill}}};
}

}  // namespace korvane::codes
