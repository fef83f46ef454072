#include "engine/selection.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"
#include "character/characteristics.h"

namespace korvane {

namespace {

bool Holds(const Names& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

// Lists the careers of a race, loads the first of them and then the race's record: in this order, as the first career
// is selected before the race's own file is read. Returns whether the race has a career.
bool LoadRaceRecords(Session& session, std::string_view race) {
    auto& selection = session.selection;
    selection.race = race;
    selection.careers = session.data.CareerNames(race);
    if (selection.careers->empty()) {
        selection.career.clear();
        selection.assignment.clear();
        selection.assignments = std::make_shared<const Names>();
        Tell(session, ScratchText("Career data files missing for ", race));
        return false;
    }
    LoadCareer(session, race, selection.careers->front());
    if (const auto& record = session.data.Race(race); record.source != session.race.source)
        session.race = record;
    return true;
}

// Throws the error for a name that isn't among the names there are; `file` is the one that would give it.
[[noreturn]] void RejectName(const Session& session, const Names& names, std::string_view kind, std::string_view name,
                             std::string_view file) {
    const auto path = NativePath(session.data.location()) / file;
    if (names.empty())
        throw IoError(path.string(), Concat("can't be read as the file of a ", kind), "no such file");
    auto message = name.empty() ? Concat("no ", kind, " to pick")
                                : Concat("unknown ", kind, " ", Quoted(name), " (", path.string(), ": no such file)");
    AppendAll(message, names.size() == 1 ? "; there is:" : "; there are:");
    for (const auto& known : names)
        AppendAll(message, &known == &names.front() ? " " : ", ", known);
    throw UsageError(message);
}

}  // namespace

void ListRaces(Session& session) {
    session.selection.races = session.data.RaceNames();
    const auto& races = *session.selection.races;
    if (races.empty())
        return;
    constexpr std::string_view kDefaultRace = "Imperial Human";
    LoadRace(session, Holds(races, kDefaultRace) ? kDefaultRace : std::string_view(races.front()));
}

void LoadRace(Session& session, std::string_view race) {
    if (LoadRaceRecords(session, race))
        StartNewCharacter(session);
    session.seams.display->SelectionChanged();
}

void LoadCareer(Session& session, std::string_view race, std::string_view career) {
    auto& selection = session.selection;
    ReplaceCareer(session.career, session.data.Career(race, career));
    selection.career = career;
    selection.assignments = session.data.AssignmentNames(race, career);
    selection.assignment.clear();
    if (selection.assignments->empty())
        Tell(session, ScratchText("Assignment data files missing for ", career));
    else
        LoadAssignment(session, race, career, selection.assignments->front());
    session.seams.display->SelectionChanged();
}

void LoadAssignment(Session& session, std::string_view race, std::string_view career, std::string_view assignment) {
    session.assignment = session.data.Assignment(race, career, assignment);
    session.selection.assignment = assignment;
    session.seams.display->SelectionChanged();
}

bool SelectCareer(Session& session, std::string_view career) {
    const auto careers = session.selection.careers;
    if (!Holds(*careers, career))
        return false;
    LoadCareer(session, session.selection.race, career);
    return true;
}

bool SelectAssignment(Session& session, std::string_view assignment) {
    const auto assignments = session.selection.assignments;
    if (!Holds(*assignments, assignment))
        return false;
    LoadAssignment(session, session.selection.race, session.selection.career, assignment);
    return true;
}

void SelectStart(Session& session, std::string_view race, std::string_view career, std::string_view assignment) {
    const auto& selection = session.selection;
    const auto or_any = [](std::string_view name) { return name.empty() ? std::string_view("*") : name; };
    session.selection.races = session.data.RaceNames();
    if (!Holds(*selection.races, race))
        RejectName(session, *selection.races, "race", race, Concat(or_any(race), ".eri"));
    for (auto& title : session.career.skillTableTitle)
        title.clear();
    LoadRaceRecords(session, race);
    if (!SelectCareer(session, career))
        RejectName(session, *selection.careers, "career", career, Concat(race, "-", or_any(career), ".ecf"));
    if (!SelectAssignment(session, assignment))
        RejectName(session, *selection.assignments, "assignment", assignment,
                   Concat(race, "-", career, "-", or_any(assignment), ".eas"));
}

}  // namespace korvane
