// Where the rule data is.
#pragma once

#include <string>

#include "base/paths.h"
#include "character/KVNDeclare.h"
#include "data/records.h"

namespace korvane::cli {

// The folder: the one given, else the one that the configuration file names, else the shipped rules.
HeldPath ChooseDataLocation(const std::string& given);

// The same, for what can't do without rules. Throws UsageError for a folder without a race.
HeldPath RuleFolder(const std::string& given);

// Loads a race by its name in any case, or the one that is offered first where none is named; what the selection tells
// is told to nobody. Throws UsageError for a race that there isn't.
void LoadRaceNamed(Session& session, const std::string& given);

// A name as the data folder has it, by a name in any case; one that it doesn't have stays as it is, for who knows what
// to say of it.
std::string KnownName(const Names& names, const std::string& given);
// The same for a race, a career of it and an assignment of that; of all races where none is named.
void KnowNames(const HeldPath& location, std::string& race, std::string& career, std::string& assignment);

}  // namespace korvane::cli
