#include "engine/selection.h"

#include <algorithm>

#include "base/text.h"
#include "character/characteristics.h"
#include "data/known_names.h"

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
        Tell(session, Concat("Career data files missing for ", race));
        return false;
    }
    LoadCareer(session, race, selection.careers->front());
    // The same file is the same record: copying it again would only cost.
    if (const auto& record = session.data.Race(race); record.source != session.race.source)
        session.race = record;
    NoteFile(session, session.race.source);
    return true;
}

// The files that would give a name; of any name where none is asked for.
std::string PathOf(const Session& session, std::string_view before, std::string_view name, std::string_view ending) {
    return (NativePath(session.data.location()) / Concat(before, name.empty() ? "*" : name, ending)).string();
}

}  // namespace

std::string_view FirstRace(const Names& races) {
    return Holds(races, kImperialHuman) ? kImperialHuman : std::string_view(races.front());
}

void ListRaces(Session& session) {
    session.selection.races = session.data.RaceNames();
    const auto& races = *session.selection.races;
    if (races.empty())
        return;
    LoadRace(session, FirstRace(races));
}

void LoadRace(Session& session, std::string_view race) {
    if (LoadRaceRecords(session, race))
        StartNewCharacter(session);
    session.seams.display->SelectionChanged();
}

void LoadCareer(Session& session, std::string_view race, std::string_view career) {
    auto& selection = session.selection;
    ReplaceCareer(session.career, session.data.Career(race, career));
    NoteFile(session, session.career.source);
    selection.career = career;
    selection.assignments = session.data.AssignmentNames(race, career);
    selection.assignment.clear();
    if (selection.assignments->empty())
        Tell(session, Concat("Assignment data files missing for ", career));
    else
        LoadAssignment(session, race, career, selection.assignments->front());
    session.seams.display->SelectionChanged();
}

void LoadAssignment(Session& session, std::string_view race, std::string_view career, std::string_view assignment) {
    session.assignment = session.data.Assignment(race, career, assignment);
    NoteFile(session, session.assignment.source);
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

std::optional<Missing> SelectStart(Session& session, std::string_view race, std::string_view career,
                                   std::string_view assignment) {
    const auto& selection = session.selection;
    session.selection.races = session.data.RaceNames();
    if (!Holds(*selection.races, race))
        return Missing{"race", std::string(race), *selection.races, PathOf(session, "", race, ".eri")};
    for (auto& title : session.career.skillTableTitle)
        title.clear();
    LoadRaceRecords(session, race);
    if (!SelectCareer(session, career))
        return Missing{"career", std::string(career), *selection.careers,
                       PathOf(session, Concat(race, "-"), career, ".ecf")};
    if (!SelectAssignment(session, assignment))
        return Missing{"assignment", std::string(assignment), *selection.assignments,
                       PathOf(session, Concat(race, "-", career, "-"), assignment, ".eas")};
    return std::nullopt;
}

}  // namespace korvane
