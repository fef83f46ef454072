// Where a character comes from.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls the home world of the session's character, one roll of two dice a table, and writes down the seven facts.
// Without tables in the data folder nothing is rolled and they are empty. Throws FileError for a malformed file of
// tables.
void RollHomeWorld(Session& session);

}  // namespace korvane
