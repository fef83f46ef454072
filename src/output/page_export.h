// The page: a finished character written over the tags of an HTML template that players may edit.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "base/paths.h"
#include "character/KVNDeclare.h"

namespace korvane {

// The lines of a template. A line that ends in CR LF keeps its CR, and what follows the last line end is a line too, so
// that a page has the line ends of its template.
struct PageTemplate {
    std::vector<std::string> lines;
    Encoding encoding = Encoding::Utf8;
};

// Reads a template, given by its held path. Throws FileError when there is none.
PageTemplate ReadTemplate(const HeldPath& path);

// The names of the templates in a data folder, given by its held path: "template*.htm", in any case, in the order of
// the file names.
Names TemplateNames(const HeldPath& dataLocation);

// The lines of the page of the session's character. The tags are replaced one after the other, each in the line as the
// one before left it, and only where a line holds it first. All values stand as they are, the name as typed. Throws
// RuleError (subscript) for a rank that has no title.
std::vector<std::string> FillTemplate(const std::vector<std::string>& lines, const Session& session,
                                      std::string_view name);

// The tags that a page may hold, with their bars, where the master list is this one.
std::vector<std::string> TagsOfPages(const MasterSkills& skills);

// The bytes of the page, in the encoding of its template.
std::string Page(const PageTemplate& form, const Session& session, std::string_view name);

}  // namespace korvane
