// The summary of a character, which windows show.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Recomputes the characteristic modifiers and has the display show the summary. Rules call it when they changed the
// record.
void ShowSummary(Session& session);

}  // namespace korvane
