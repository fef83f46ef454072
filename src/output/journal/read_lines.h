// The lines of a journal as what they are. Each operation throws Fault for one that can't be taken.
#pragma once

#include "output/journal/members.h"
#include "output/journal/tape.h"

namespace korvane::journal {

Start ReadStart(const Json& object);
// A line between the first and the last; an odd one where nobody knows its kind.
Line ReadLine(const Json& object);
End ReadEnd(const Json& object, int version);

}  // namespace korvane::journal
