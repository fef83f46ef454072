// The character document: a finished character as one JSON object.
#pragma once

#include <string>

#include "character/KVNDeclare.h"

namespace korvane {

// The document of the session's character, on one line, without a line end.
std::string CharacterDocument(const Session& session);

}  // namespace korvane
