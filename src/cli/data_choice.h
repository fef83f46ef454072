// Where the rule data is.
#pragma once

#include <string>

#include "base/paths.h"

namespace korvane::cli {

// The folder: the one given, else the one that the configuration file names, else the shipped rules.
HeldPath ChooseDataLocation(const std::string& given);

}  // namespace korvane::cli
