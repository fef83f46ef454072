// Short names for the numbers and effects that rows speak of; for the tables alone.
#pragma once

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

// An alternative that is itself the skill string that it grants.
inline Alternative GainOf(std::string_view skill) {
    return {skill, {Grant{skill}}};
}

}  // namespace korvane::codes
