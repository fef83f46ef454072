// A finished character for the programs that others play with.
#pragma once

#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "output/character_document.h"

namespace korvane::targets {

// Markdown for notes, with front matter in YAML. Lines end in LF.
std::string Markdown(const Session& session, const DocumentLabels& labels);

// A table of many: the row of headings, and a row a character; each ends in CR LF.
std::string TableHead();
std::string TableRow(const Session& session, const DocumentLabels& labels);

// A journal entry of the virtual tabletop, without its end: several characters are pages of one entry.
std::string JournalEntryHead(std::string_view name);
std::string JournalEntryPage(const Session& session, const DocumentLabels& labels);
std::string JournalEntryEnd();

// An actor of the virtual tabletop's simple worldbuilding system.
std::string Actor(const Session& session, const DocumentLabels& labels);
// A name as a key there: without blanks, dots and other marks.
std::string KeyOf(std::string_view name);

}  // namespace korvane::targets
