// Age and what it takes.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Ends a term: the character grows older and, from the race's ageing age on, may lose by it.
void AgeCharacter(Session& session);

// Lowers a characteristic by age; slot 0 has a die pick Str, Dex or End. One that would fall below 1 is an ageing
// crisis: it stays at 1, and the care is a debt.
void ReduceByAge(Session& session, int slot, int amount);

}  // namespace korvane
