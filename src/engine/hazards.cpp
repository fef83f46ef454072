#include "engine/hazards.h"

#include "character/summary.h"
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

}  // namespace

HazardEntry SplitEntry(std::string_view entry) {
    const auto slash = entry.find('/');
    if (slash == std::string_view::npos)
        return {entry, entry};
    return {entry.substr(0, slash), entry.substr(slash + 1)};
}

void RollMishap(Session& session) {
    // A code may load another career; the entry's texts must outlive that.
    const auto source = session.career.source;
    session.character.LeaveCareer = 1;
    const auto row = static_cast<std::size_t>(Roll(session, 1, 6));
    const auto entry = SplitEntry(session.career.mishapTable.at(row));
    AddHistory(session, entry.description);
    RunChain(session, MishapChain(), entry.codes);
    ShowSummary(session);
}

void RollCareerEvent(Session& session) {
    const auto source = session.career.source;
    const auto row = static_cast<std::size_t>(Roll(session, 2, 6));
    const auto entry = SplitEntry(session.career.eventTable.at(row));
    AddHistory(session, entry.description);
    session.character.LeaveCareer = 0;
    if (entry.description.find("Disaster!") != std::string_view::npos)
        SufferDisaster(session);
    RunChain(session, EventChain(), entry.codes);
    ShowSummary(session);
}

}  // namespace korvane
