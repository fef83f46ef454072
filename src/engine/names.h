// Names for characters, made of the syllables of the data folder.
#pragma once

#include <optional>
#include <string>

#include "character/KVNDeclare.h"

namespace korvane {

// A name for a character of the session's race: given name and, where its syllables are not all none, family name. Each
// of the six parts takes one draw. "" when the data folder has no syllables. Throws FileError for malformed ones.
std::string RollNameOf(Session& session);

// Lets the player choose one of ten rolled names, or roll ten others, as often as they like. Nothing when the
// player leaves the question, and when the data folder has no syllables, which is told. Throws FileError as above.
std::optional<std::string> RollName(Session& session);

}  // namespace korvane
