// The three readers: a file's lines in, a record out. Each throws FileError, with the line, for a file that is too
// short or holds what its record can't.
#pragma once

#include <memory>

#include "base/text_file.h"
#include "data/records.h"

namespace korvane {

RaceRecord ReadRace(const std::shared_ptr<const TextFile>& file);
CareerFile ReadCareer(const std::shared_ptr<const TextFile>& file);
AssignmentRecord ReadAssignment(const std::shared_ptr<const TextFile>& file);

}  // namespace korvane
