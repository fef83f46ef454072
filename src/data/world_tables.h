// The tables by which home worlds are rolled, as the file "Worlds.dat" gives them.
#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "base/text_file.h"

namespace korvane {

// The tables, in the order in which the file gives them and a world is told.
inline constexpr std::array<std::string_view, 7> kWorldTableNames = {
    "Port", "Size", "Atmosphere", "Hydrographics", "Population", "Law level", "Tech level"};

// What a row does to the roll on a table that is rolled later.
struct WorldShift {
    enum class Kind { Add, AtLeast, AtMost };
    std::size_t table = 0;
    Kind kind = Kind::Add;
    int amount = 0;
};

// What a world is like for totals from `low` to `high`.
struct WorldRow {
    int low = 0;
    int high = 0;
    std::string_view text;
    std::vector<WorldShift> shifts;
};

using WorldTable = std::vector<WorldRow>;  // without a gap between the rows, and never empty

struct WorldTables {
    std::shared_ptr<const TextFile> source;  // keeps the texts alive
    std::array<WorldTable, kWorldTableNames.size()> tables;
    std::array<std::size_t, kWorldTableNames.size()> order{};  // in which they are rolled
};

// Reads the tables. Throws FileError, with the line, for anything but the seven whole tables in their order.
WorldTables ReadWorldTables(const std::shared_ptr<const TextFile>& file);

}  // namespace korvane
