// The improvement of a skill that is held already.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Lets the player raise one held skill by a level. Under the cap, skills at the cap aren't offered; with nothing to
// offer, nothing happens.
void ImproveHeldSkill(Session& session);

}  // namespace korvane
