// The education before the first career.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

void AttendUniversity(Session& session);
void AttendMilitaryAcademy(Session& session);

}  // namespace korvane
