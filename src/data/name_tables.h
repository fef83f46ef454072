// The syllables of which names are made, as the file "Names.dat" gives them.
#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "base/text_file.h"

namespace korvane {

// A syllable is drawn by a number below `end` that is not below that of the syllable before it, so that the gap between
// the two is its weight.
struct Syllable {
    std::string_view text;  // empty for no syllable
    int end = 0;
};

// The parts of a name, in order: start, middle and end of the given name, then those of the family name.
inline constexpr std::size_t kNameParts = 6;
inline constexpr std::size_t kGivenParts = 3;

struct NameTable {
    std::string_view name;
    std::array<std::vector<Syllable>, kNameParts> parts;  // none is empty
};

struct NameTables {
    std::shared_ptr<const TextFile> source;  // keeps the texts alive
    std::vector<NameTable> tables;
};

// Reads the tables. Throws FileError, with the line, for anything but whole tables, and when none is called "Default".
NameTables ReadNameTables(const std::shared_ptr<const TextFile>& file);

// The table of a race: the one called as its kind, else the one called as the race, else "Default".
const NameTable& NameTableFor(const NameTables& tables, std::string_view kind, std::string_view race);

}  // namespace korvane
