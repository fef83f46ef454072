#include "data/world_tables.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "base/text.h"
#include "data/plain_lines.h"

namespace korvane {

namespace {

constexpr int kMostTotal = 99;
constexpr std::string_view kOrderLabel = "Order:";

// What follows a word, and the blank after it, at the beginning of a text; nothing when the text begins otherwise.
std::optional<std::string_view> After(std::string_view word, std::string_view text) {
    if (!BeginsIgnoringCase(text, word))
        return std::nullopt;
    const auto rest = text.substr(word.size());
    if (!rest.empty() && rest[0] != ' ')
        return std::nullopt;
    return Trim(rest);
}

int ReadTotal(const PlainLines& lines, std::string_view piece, std::string_view expected) {
    return lines.Number(piece, -kMostTotal, kMostTotal, expected);
}

class WorldReader {
  public:
    explicit WorldReader(const std::shared_ptr<const TextFile>& file) : lines_(*file) { worlds_.source = file; }

    WorldTables Read() {
        ReadOrder();
        for (std::size_t table = 0; table < kWorldTableNames.size(); ++table)
            ReadTable(table);
        if (!lines_.AtEnd())
            lines_.Reject("nothing after the last table");
        return std::move(worlds_);
    }

  private:
    // The order of the rolls, where it isn't that of the tables.
    void ReadOrder() {
        std::iota(worlds_.order.begin(), worlds_.order.end(), 0U);
        if (!BeginsIgnoringCase(lines_.Current(), kOrderLabel))
            return;
        const auto names = SplitAll(lines_.Current().substr(kOrderLabel.size()), ',');
        auto place = worlds_.order.begin();
        for (const auto name : names) {
            const auto table = TableNamed(Trim(name));
            if (place == worlds_.order.end() || std::find(worlds_.order.begin(), place, table) != place)
                lines_.Reject("each of the tables once");
            *place++ = table;
        }
        if (place != worlds_.order.end())
            lines_.Reject("each of the tables once");
        lines_.Advance();
    }

    std::size_t TableNamed(std::string_view name) const {
        const auto place = std::ranges::find_if(
            kWorldTableNames, [&](std::string_view known) { return EqualsIgnoringCase(known, name); });
        if (place == kWorldTableNames.end())
            lines_.Reject(R"(tables of a world, as "size", with "," between them)");
        return static_cast<std::size_t>(place - kWorldTableNames.begin());
    }

    void ReadTable(std::size_t table) {
        lines_.Take(Concat("Table ", kWorldTableNames.at(table)));
        auto& rows = worlds_.tables.at(table);
        for (; !lines_.AtEnd() && !After("Table", lines_.Current()); lines_.Advance())
            rows.push_back(ReadRow(table, rows));
        if (rows.empty())
            lines_.Reject(Concat("a row of the table \"", kWorldTableNames.at(table), "\""));
    }

    // A row: "2 to 4: text | shift, shift".
    WorldRow ReadRow(std::size_t table, const WorldTable& before) const {
        constexpr std::string_view kExpected = "a row, as \"2 to 4: text\"";
        const auto [range, rest] = SplitFirst(lines_.Current(), ":");
        const auto [text, shifts] = SplitFirst(rest, "|");
        if (IsBlank(text))
            lines_.Reject(kExpected);
        const auto [low, high] = SplitFirst(range, " to ");
        WorldRow row;
        row.low = ReadTotal(lines_, low, kExpected);
        row.high = low.size() == range.size() ? row.low : ReadTotal(lines_, high, kExpected);
        if (row.high < row.low)
            lines_.Reject("a range from the lower to the higher number");
        if (!before.empty() && row.low != before.back().high + 1)
            lines_.Reject(Concat("a row that begins at ", before.back().high + 1, ", after the row before"));
        row.text = Trim(text);
        if (!IsBlank(shifts))
            for (const auto shift : SplitAll(shifts, ','))
                row.shifts.push_back(ReadShift(table, Trim(shift)));
        return row;
    }

    // What a row does to a later roll: "population -2", "tech level at least 5".
    WorldShift ReadShift(std::size_t table, std::string_view shift) const {
        constexpr std::string_view kExpected =
            R"(shifts, as "population -2", "population at least 4" or "population at most 4")";
        for (std::size_t other = 0; other < kWorldTableNames.size(); ++other)
            if (const auto amount = After(kWorldTableNames.at(other), shift)) {
                if (PlaceInOrder(other) <= PlaceInOrder(table))
                    lines_.Reject("shifts of tables that are rolled later");
                if (const auto least = After("at least", *amount))
                    return {other, WorldShift::Kind::AtLeast, ReadTotal(lines_, *least, kExpected)};
                if (const auto most = After("at most", *amount))
                    return {other, WorldShift::Kind::AtMost, ReadTotal(lines_, *most, kExpected)};
                if (amount->starts_with('+'))
                    return {other, WorldShift::Kind::Add, lines_.Number(amount->substr(1), 0, kMostTotal, kExpected)};
                return {other, WorldShift::Kind::Add, lines_.Number(*amount, -kMostTotal, -1, kExpected)};
            }
        lines_.Reject(kExpected);
    }

    std::size_t PlaceInOrder(std::size_t table) const {
        return static_cast<std::size_t>(std::ranges::find(worlds_.order, table) - worlds_.order.begin());
    }

    PlainLines lines_;
    WorldTables worlds_;
};

}  // namespace

WorldTables ReadWorldTables(const std::shared_ptr<const TextFile>& file) {
    return WorldReader(file).Read();
}

}  // namespace korvane
