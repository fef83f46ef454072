// A finished character as the commands print it.
#pragma once

#include <optional>
#include <string>

#include "character/KVNDeclare.h"
#include "cli/commands.h"
#include "output/character_document.h"

namespace korvane::cli {

// The character's name, where it is to have one; `otherwise` where one can't be rolled. Throws FileError for malformed
// syllables.
std::optional<std::string> NameFor(Session& session, const NameOrder& order, Format format,
                                   const std::string& otherwise);

// The session's character as text, or as one line of JSON with its labels.
std::string Rendered(const Session& session, Format format, const DocumentLabels& labels);

}  // namespace korvane::cli
