// Where the rule data is.
#pragma once

#include <string>

namespace korvane::cli {

// The held path of the folder: the one given, else the one that the configuration file names, else the shipped rules.
std::string ChooseDataLocation(const std::string& given);

}  // namespace korvane::cli
