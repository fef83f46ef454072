// The benefits of a career, spent when the character leaves it.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Of one mustering out.
inline constexpr int kMostCashRolls = 3;

// Grants the pension, counts the rolls and lets the player spend them until "Done".
void MusterOut(Session& session);

// The yearly pension for the terms served in one career, in credits; 0 for none.
int PensionFor(int termsInCareer);

// One roll on the cash column, and one on the benefits column.
void RollCashBenefit(Session& session, bool useGambler);
void RollMaterialBenefit(Session& session);

}  // namespace korvane
