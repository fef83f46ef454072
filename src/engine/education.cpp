#include "engine/education.h"

namespace korvane {

void AttendUniversity(Session& /*session*/) {}

void AttendMilitaryAcademy(Session& /*session*/) {}

}  // namespace korvane
