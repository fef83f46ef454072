// Prison: the way in, and what its events do. The way out is the term loop's parole roll.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// What the history says of it: how the line of a sentence begins, and the lines of the ways out.
inline constexpr std::string_view kImprisoned = "Imprisoned; ";
inline constexpr std::string_view kReleased = "Released!";
inline constexpr std::string_view kEscaped = "You escape!";

// Musters the character out of the career and makes a prisoner of it, with a new parole threshold.
void Imprison(Session& session);

// The odd ones among the prison's events.
void OfferEscape(Session& session);
void RollParoleThreshold(Session& session);
void HireLawyer(Session& session);

}  // namespace korvane
