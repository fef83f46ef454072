// A finished character as the commands print it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "character/KVNDeclare.h"
#include "cli/commands.h"
#include "output/character_document.h"

namespace korvane::cli {

// The character's name, where it is to have one; `otherwise` where one can't be rolled. Throws FileError for malformed
// syllables.
std::optional<std::string> NameFor(Session& session, const NameOrder& order, Format format,
                                   const std::string& otherwise);

// The session's character with its labels: as text, as one line of JSON, or for another program.
std::string Rendered(const Session& session, Format format, DocumentLabels labels);

// What stands before, between and after several characters of a format in one stream, and at the end of each.
struct Frame {
    std::string before;
    std::string between;
    std::string after;
    std::string end;
};
// `title`: of what holds them all.
Frame FrameOf(Format format, std::string_view title);
// The ending of a format's files, with its dot.
std::string_view EndingOf(Format format);
// Whether a character of the format must have a name.
bool NeedsName(Format format);

}  // namespace korvane::cli
