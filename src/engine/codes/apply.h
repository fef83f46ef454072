// Carries effects out.
#pragma once

#include "character/KVNDeclare.h"
#include "engine/codes/effects.h"

namespace korvane::codes {

// Carries the effects out, in their order.
void ApplyAll(Session& session, const Effects& effects);

}  // namespace korvane::codes
