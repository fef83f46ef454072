// The rolls that the term loop makes itself.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// The survival roll.
bool Survives(Session& session);

// The commission roll of those who may have one. An officer rolls again and is an officer of the first grade again on
// success.
void SeekCommission(Session& session);

// Makes the character an officer of the first grade.
void GrantCommission(Session& session);

// The advancement roll; in prison it is the parole roll, and a release leads to a transfer.
void SeekAdvancement(Session& session);

}  // namespace korvane
