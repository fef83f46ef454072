// The beginning of a character.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls the characteristics of the session's race by the chosen method.
void RollCharacteristics(Session& session);

// Starts a new character of the session's race: a blank record, the starting age, characteristics by the chosen method,
// the home world, and the summary shown. Throws FileError for malformed tables of home worlds.
void StartNewCharacter(Session& session);

}  // namespace korvane
