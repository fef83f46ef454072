// The checks of single files.
#pragma once

#include <memory>
#include <string_view>

#include "base/text_file.h"
#include "check/finding.h"
#include "check/grammar.h"

namespace korvane::check {

void CheckCareerFile(Report& report, const TextFile& file, const Known& known, std::string_view career);
void CheckAssignmentFile(Report& report, const TextFile& file, const Known& known);
// Of the race's careers the draft table may name those that there are.
void CheckRaceFile(Report& report, const TextFile& file, const Known& known, const Names& careers);
void CheckMasterSkills(Report& report, const TextFile& file);
// A template of pages.
void CheckTemplate(Report& report, const TextFile& file, const std::vector<std::string_view>& tags);

// What a race file says of its characteristics and specialities, as far as it can be read.
Known KnownOf(const TextFile& file, std::vector<std::string_view> skills);

}  // namespace korvane::check
