// The choice of any basic skill, whatever the career's tables offer.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

inline constexpr std::string_view kJackOfAllTrades = "Jack of all Trades";

// All of them, in the list's order.
std::span<const std::string_view> BasicSkills();

// Lets the player take `count` of the basic skills, one level each. Automatic mode always takes the first of the list,
// "Admin", once.
void SelectAnySkill(Session& session, int count);

// One basic skill at level 0.
void SelectAnySkillAtZero(Session& session);

// One basic skill; the player is asked in automatic mode too.
void SelectAnySkillAsked(Session& session);

// Lets the player pick one basic skill in place of a raise that the cap refused; it isn't granted. Nothing when the
// player picks none.
std::optional<std::string_view> SelectReplacementSkill(Session& session);

}  // namespace korvane
