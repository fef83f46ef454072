// The file of a page, in the user's profile.
#pragma once

#include <string>
#include <string_view>

#include "output/page_export.h"

namespace korvane {

// The name of a character's page: the letters of its name; one without letters is just called ".htm".
std::string PageFileName(std::string_view name);

// The user's profile folder, as a native path: what USERPROFILE says, else HOME; "" with neither.
std::string ProfileFolder();

inline constexpr auto kPageEnding = ".htm";
// Where the page of a character of this name goes, or a file of another ending beside it, as a native path; "" without
// a profile folder.
std::string PagePath(std::string_view name, std::string_view ending = kPageEnding);
// Where its portrait does: beside the page, as the page's picture.
std::string PortraitPath(std::string_view name);

// What became of an export.
struct ExportOutcome {
    std::string path;     // the page's native path; empty when none was written
    std::string message;  // what the player is told
};

// Writes bytes into the folder "Korvane" of the user's profile, as below.
ExportOutcome ExportBytes(const std::string& bytes, std::string_view name, std::string_view ending);

// Writes the page of the session's character into the folder "Korvane" of the user's profile, from a template given by
// its held path. The file is called by the letters of the name and replaces an earlier one, whole. Without a profile
// folder nothing is written. Throws FileError for a template that can't be read or a page that can't be written, and
// RuleError as above.
ExportOutcome ExportCharacter(const Session& session, const HeldPath& templatePath, std::string_view name);

}  // namespace korvane
