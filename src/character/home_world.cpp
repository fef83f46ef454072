#include "character/home_world.h"

#include <algorithm>
#include <array>

namespace korvane {

namespace {

// What the rows before have done to a roll.
struct Shifts {
    int added = 0;
    int least = -1000;
    int most = 1000;

    void Take(const WorldShift& shift) {
        switch (shift.kind) {
            case WorldShift::Kind::Add:
                added += shift.amount;
                break;
            case WorldShift::Kind::AtLeast:
                least = std::max(least, shift.amount);
                break;
            case WorldShift::Kind::AtMost:
                most = std::min(most, shift.amount);
                break;
        }
    }
    // Where two limits contradict each other, "at least" holds.
    int Shifted(int roll) const { return std::max(std::min(roll + added, most), least); }
};

// The row of a total; one beyond the table takes its first or last row.
const WorldRow& RowOf(const WorldTable& table, int total) {
    const auto row = std::ranges::find_if(table, [&](const WorldRow& each) { return total <= each.high; });
    return row == table.end() ? table.back() : *row;
}

}  // namespace

void RollHomeWorld(Session& session) {
    auto& facts = session.character.HomeWorld;
    for (auto& fact : facts)
        fact.clear();
    const auto& worlds = session.data.HomeWorlds();
    if (!worlds)
        return;
    NoteFile(session, worlds->source);
    std::array<Shifts, kWorldTableNames.size()> shifts;
    for (const auto table : worlds->order) {
        const auto& row = RowOf(worlds->tables.at(table), shifts.at(table).Shifted(Roll(session, 2, 6)));
        for (const auto& shift : row.shifts)
            shifts.at(shift.table).Take(shift);
        facts.at(table) = row.text;
    }
}

}  // namespace korvane
