#include "data/name_tables.h"

#include <algorithm>

#include "base/text.h"
#include "data/plain_lines.h"

namespace korvane {

namespace {

constexpr std::array<std::string_view, kNameParts> kHeadings = {"Given start",  "Given middle",  "Given end",
                                                                "Family start", "Family middle", "Family end"};
constexpr std::string_view kDefaultTable = "Default";

bool BeginsTable(std::string_view line) {
    return EqualsIgnoringCase(SplitFirst(line, " ").first, "Table");
}

bool IsHeading(std::string_view line) {
    return BeginsTable(line) ||
           std::ranges::any_of(kHeadings, [&](std::string_view heading) { return EqualsIgnoringCase(heading, line); });
}

const NameTable* Find(const std::vector<NameTable>& tables, std::string_view name) {
    const auto place = std::ranges::find_if(
        tables, [&](const NameTable& table) { return EqualsIgnoringCase(table.name, Trim(name)); });
    return place == tables.end() ? nullptr : &*place;
}

// A syllable, with its weight after a blank where it isn't 1.
Syllable ReadSyllable(const PlainLines& lines, int end_before) {
    constexpr int kMostWeight = 1000;
    constexpr int kMostWeights = 1'000'000'000;
    const auto [text, weight] = SplitFirst(lines.Current(), " ");
    if (text.find('/') != std::string_view::npos)
        lines.Reject("a syllable without \"/\"");
    const int gap = IsBlank(weight)
                        ? 1
                        : lines.Number(weight, 1, kMostWeight,
                                       Concat("a syllable and, after a blank, a weight of 1 to ", kMostWeight));
    if (end_before > kMostWeights - gap)
        lines.Reject(Concat("weights that add up to at most ", kMostWeights));
    return {text == "-" ? std::string_view() : text, end_before + gap};
}

std::vector<Syllable> ReadPart(PlainLines& lines, std::string_view heading) {
    lines.Take(heading);
    std::vector<Syllable> syllables;
    for (; !lines.AtEnd() && !IsHeading(lines.Current()); lines.Advance())
        syllables.push_back(ReadSyllable(lines, syllables.empty() ? 0 : syllables.back().end));
    if (syllables.empty())
        lines.Reject(Concat(R"(a syllable of ")", heading, R"(", or "-" for none)"));
    return syllables;
}

bool MayBeNone(const std::vector<Syllable>& syllables) {
    return std::ranges::any_of(syllables, [](const Syllable& syllable) { return syllable.text.empty(); });
}

std::string_view ReadTableName(PlainLines& lines, const std::vector<NameTable>& tables) {
    if (lines.AtEnd() || !BeginsTable(lines.Current()))
        lines.Reject("a line \"Table NAME\"");
    const auto name = Trim(SplitFirst(lines.Current(), " ").second);
    if (name.empty())
        lines.Reject("the name of the table after \"Table\"");
    if (Find(tables, name) != nullptr)
        lines.Reject("a table that wasn't given before");
    lines.Advance();
    return name;
}

NameTable ReadTable(PlainLines& lines, const std::vector<NameTable>& before) {
    NameTable table{ReadTableName(lines, before), {}};
    for (std::size_t i = 0; i < kNameParts; ++i) {
        table.parts.at(i) = ReadPart(lines, kHeadings.at(i));
        if (i + 1 == kGivenParts && std::all_of(table.parts.begin(), table.parts.begin() + kGivenParts, MayBeNone))
            lines.Reject(Concat("a part of the given names of \"", table.name, "\" that always has a syllable"),
                         "\"-\" in all three");
    }
    return table;
}

}  // namespace

NameTables ReadNameTables(const std::shared_ptr<const TextFile>& file) {
    PlainLines lines(*file);
    NameTables names{file, {}};
    while (!lines.AtEnd())
        names.tables.push_back(ReadTable(lines, names.tables));
    if (Find(names.tables, kDefaultTable) == nullptr)
        lines.Reject(Concat("the table \"", kDefaultTable, "\""));
    return names;
}

const NameTable& NameTableFor(const NameTables& tables, std::string_view kind, std::string_view race) {
    for (const auto name : {kind, race})
        if (const auto* const table = Find(tables.tables, name))
            return *table;
    return *Find(tables.tables, kDefaultTable);
}

}  // namespace korvane
