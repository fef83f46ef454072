// Prison: the way in, and what its events do. The way out is the term loop's parole roll.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Musters the character out of the career and makes a prisoner of it, with a new parole threshold.
void Imprison(Session& session);

// The odd ones among the prison's events.
void OfferEscape(Session& session);
void RollParoleThreshold(Session& session);
void HireLawyer(Session& session);

}  // namespace korvane
