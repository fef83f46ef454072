// Finds the mistakes in a folder of rule data.
#pragma once

#include <vector>

#include "base/paths.h"
#include "check/finding.h"

namespace korvane::check {

// All findings, sorted by file, line and column; none for a folder that plays as meant. Throws IoError for a folder or
// file that can't be read.
std::vector<Finding> CheckFolder(const HeldPath& folder);

}  // namespace korvane::check
