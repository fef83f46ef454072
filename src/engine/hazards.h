// What a term brings: a mishap where the survival roll failed, an event where the character goes on.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls on the career's mishap table, writes the text and carries out the codes. Leaves in `LeaveCareer` whether the
// character leaves the career.
void RollMishap(Session& session);

// Rolls on the career's event table, writes the text and carries out the codes. A disaster among them is a mishap that
// costs neither the career nor the term's benefit roll.
void RollCareerEvent(Session& session);

}  // namespace korvane
