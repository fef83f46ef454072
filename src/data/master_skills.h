// The master skill list: the skills that a page can name, each with its tag.
#pragma once

#include <array>
#include <string>

#include "base/paths.h"

namespace korvane {

// The lines of the list, whole, numbered from 1; the slots beyond the last are empty.
using MasterSkills = std::array<std::string, 101>;

// Reads "MasterSkills.dat" in the data folder. Throws FileError when it is missing or holds more than 100 lines.
MasterSkills LoadMasterSkills(const HeldPath& dataLocation);

}  // namespace korvane
