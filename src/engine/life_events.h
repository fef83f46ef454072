// What life brings besides the career.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls on the life events, whose texts are the race's.
void RollLifeEvent(Session& session);

// An ally, or else a contact, turns out to be none: one less, and a line that says so. Nothing when there is neither.
void LoseAllyOrContact(Session& session);

}  // namespace korvane
