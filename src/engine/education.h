// The education before the first career.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The pre-career options of a race that something is known of.
inline constexpr std::string_view kUniversity = "University";
inline constexpr std::string_view kMilitaryAcademy = "Military Academy";

// A course at university: admission, two subjects, an event and graduation.
void AttendUniversity(Session& session);

// A course at the academy of a service: admission, the service's skills, an event and graduation. A graduate who goes
// into that service can't be refused by it and becomes an officer there.
void AttendMilitaryAcademy(Session& session);
// Whether the service has an academy.
bool HasAcademy(std::string_view service);

}  // namespace korvane
