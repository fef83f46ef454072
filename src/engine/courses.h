// What the courses before the first career have in common.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls the admission to a course by a check and writes what comes of it. With "Force Academic Success" it can't fail.
bool IsAdmitted(Session& session, std::string_view check);
// The course's event and its graduation, written down. Returns whether the character graduates, with or without
// honours.
bool Graduates(Session& session);

// The event of a course. Sets `completion` to 0 when the course is lost and leaves it otherwise.
void RollEducationEvent(Session& session, int& completion);

}  // namespace korvane
