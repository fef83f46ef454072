// What the process's environment says.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// The value of the first variable whose entry begins with `name`, without regard to case, trimmed; "" when there is
// none. At most 1000 entries are looked at.
std::string GetEnvironmentValue(std::string_view name);
// The value of the variable of exactly that name; "" when there is none.
std::string ExactEnvironmentValue(const char* name);

}  // namespace korvane
