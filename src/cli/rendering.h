// A finished character as the commands print it.
#pragma once

#include <string>

#include "character/KVNDeclare.h"
#include "cli/commands.h"

namespace korvane::cli {

// The session's character as text, or as one line of JSON.
std::string Rendered(const Session& session, Format format);

}  // namespace korvane::cli
