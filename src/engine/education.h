// The education before the first career.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// A course at university: admission, two subjects, an event and graduation.
void AttendUniversity(Session& session);

void AttendMilitaryAcademy(Session& session);

// The event of a course. Sets `completion` to 0 when the course is lost and leaves it otherwise.
void RollEducationEvent(Session& session, int& completion);

}  // namespace korvane
