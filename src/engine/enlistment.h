// The way into a career: qualification, the draft, and the list of the careers that the character entered.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls for the selected career; a failure leads into the draft.
void Qualify(Session& session);

// Drafts the character: a die picks the service, and the player the assignment where there are several. A service that
// the race doesn't have changes nothing.
void Draft(Session& session);

// Adds a career to those served, once for each entry. "Drifter" and "Prisoner" are none, and there is room for ten.
void RecordCareerServed(Session& session, std::string_view career);

}  // namespace korvane
