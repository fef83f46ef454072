#include "engine/hazards.h"

#include "character/summary.h"
#include "data/rule_row.h"
#include "engine/codes/chain.h"
#include "engine/codes/chains.h"

namespace korvane {

namespace {

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

HazardEntry SplitEntry(std::string_view entry) {
    const auto slash = entry.find('/');
    if (slash == std::string_view::npos)
        return {entry, entry};
    return {entry.substr(0, slash), entry.substr(slash + 1)};
}

void RollMishap(Session& session) {
    session.character.LeaveCareer = 1;
    const auto row = static_cast<std::size_t>(Roll(session, 1, 6));
    CarryOutEntry(session, session.career.mishapTable.at(row), [&](const HazardEntry& entry) {
        AddHistory(session, entry.description);
        RunChain(session, MishapChain(), entry.codes);
    });
}

void RollCareerEvent(Session& session) {
    const auto row = static_cast<std::size_t>(Roll(session, 2, 6));
    CarryOutEntry(session, session.career.eventTable.at(row), [&](const HazardEntry& entry) {
        AddHistory(session, entry.description);
        session.character.LeaveCareer = 0;
        if (entry.description.find("Disaster!") != std::string_view::npos)
            SufferDisaster(session);
        RunChain(session, EventChain(), entry.codes);
    });
}

}  // namespace korvane
