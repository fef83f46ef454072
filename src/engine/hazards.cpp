#include "engine/hazards.h"

#include "character/summary.h"
#include "data/rule_row.h"
#include "engine/codes/chains.h"

namespace korvane {

namespace {

// An entry of a mishap or event table: "text/CODES". Without "/" the whole entry is both.
struct HazardEntry {
    std::string_view description;
    std::string_view codes;
};

HazardEntry SplitEntry(std::string_view entry) {
    const auto slash = entry.find('/');
    if (slash == std::string_view::npos)
        return {entry, entry};
    return {entry.substr(0, slash), entry.substr(slash + 1)};
}

void SufferDisaster(Session& session) {
    const auto rolls = session.character.MusterRolls;
    RollMishap(session);
    session.character.LeaveCareer = 0;
    session.character.MusterRolls = rolls;
}

// An entry's texts outlive a change of career, which one of its codes may bring: its row keeps their file.
template <typename Hazard>
void CarryOutEntry(Session& session, std::string_view entry, const Hazard& hazard) {
    CarryOutRow(session.career.source, entry, [&] { hazard(SplitEntry(entry)); });
    ShowSummary(session);
}

}  // namespace

void RollMishap(Session& session) {
    session.character.LeaveCareer = 1;
    const auto row = static_cast<std::size_t>(Roll(session, 1, 6));
    CarryOutEntry(session, session.career.mishapTable.at(row), [&](const HazardEntry& entry) {
        AddHistory(session, entry.description);
        codes::MishapChain().Run(session, entry.codes);
    });
}

void RollCareerEvent(Session& session) {
    const auto row = static_cast<std::size_t>(Roll(session, 2, 6));
    CarryOutEntry(session, session.career.eventTable.at(row), [&](const HazardEntry& entry) {
        AddHistory(session, entry.description);
        session.character.LeaveCareer = 0;
        if (entry.description.find("Disaster!") != std::string_view::npos)
            SufferDisaster(session);
        codes::EventChain().Run(session, entry.codes);
    });
}

}  // namespace korvane
