// The beginning of a character.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls the characteristics of the session's race by the chosen method.
void RollCharacteristics(Session& session);

// Starts a new character of the session's race: a blank record, the starting age, characteristics by the chosen method,
// and the summary shown.
void StartNewCharacter(Session& session);

}  // namespace korvane
