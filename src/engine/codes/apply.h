// Carries effects out.
#pragma once

#include "character/KVNDeclare.h"
#include "engine/codes/effects.h"

namespace korvane {

void Apply(Session& session, const Set& effect);
void Apply(Session& session, const Add& effect);
void Apply(Session& session, const Lower& effect);
void Apply(Session& session, const Call& effect);

// Carries the effects out in their order.
void ApplyAll(Session& session, const Effects& effects);

}  // namespace korvane
