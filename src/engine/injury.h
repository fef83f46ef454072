// Injuries, and the care that may be bought against them.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Carries out a row of the injury table, 1 to 6. A roll of 0 has the table roll its own die, and holds it afterwards.
void Injure(Session& session, int& roll);

// Lowers a characteristic, without a floor, unless the player takes the cost of care as a debt; the career's cover may
// pay a part or all of it. In automatic mode the debt is taken.
void ReduceCharacteristic(Session& session, int slot, int amount);

}  // namespace korvane
