// Rule data in which every code occurs: for counting and for tests.
#pragma once

#include <string>

namespace korvane::test {

// Copies the files of a data folder into another, empty one, both given by native paths, and deals the codes of both
// chains over the mishap and event entries of all its careers, one after the other, several to an entry where there are
// more codes than entries. Throws FileError for a folder without careers.
void WriteEveryCodeData(const std::string& from, const std::string& to);

}  // namespace korvane::test
