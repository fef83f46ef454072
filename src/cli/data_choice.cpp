#include "cli/data_choice.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "data/data_folder.h"
#include "engine/selection.h"
#include "play/players.h"
#include "settings/configuration.h"
#include "settings/shipped_rules.h"

namespace korvane::cli {

HeldPath ChooseDataLocation(const std::string& given) {
    if (!given.empty())
        return HeldPath(given);
    const auto configured = ConfiguredDataLocation();
    return configured.text() == "\\" ? Held(ShippedRules()) : configured;
}

HeldPath RuleFolder(const std::string& given) {
    auto location = ChooseDataLocation(given);
    if (DataFolder(location).RaceNames()->empty())
        throw UsageError(Concat("there are no rule data in ", Printable(NativePath(location).string(), 300),
                                ": it has no file of a race (*.eri)"));
    return location;
}

std::string KnownName(const Names& names, const std::string& given) {
    const auto known = std::ranges::find_if(names, [&](const auto& name) { return EqualsIgnoringCase(name, given); });
    return known == names.end() ? given : *known;
}

void LoadRaceNamed(Session& session, const std::string& given) {
    play::RandomPlayer nobody{RandomStream()};
    SeededDice dice(0, 0);
    const SeamsGuard guard(session.seams);
    session.seams.dice = &dice;
    session.seams.player = &nobody;
    ListRaces(session);
    if (given.empty())
        return;
    const auto& races = *session.selection.races;
    const auto race = KnownName(races, given);
    const std::vector<std::string_view> known(races.begin(), races.end());
    if (std::ranges::find(races, race) == races.end())
        throw UsageError(Concat("unknown race ", Quoted(given), DidYouMean(given, known)));
    LoadRace(session, race);
}

void KnowNames(const HeldPath& location, std::string& race, std::string& career, std::string& assignment) {
    DataFolder data(location);
    race = KnownName(*data.RaceNames(), race);
    // Where none is named yet, whatever is drawn has the name from its own files.
    Names careers;
    Names assignments;
    for (const auto& each : race.empty() ? *data.RaceNames() : Names{race}) {
        std::ranges::copy(*data.CareerNames(each), std::back_inserter(careers));
        career = KnownName(careers, career);
        for (const auto& one : career.empty() ? *data.CareerNames(each) : Names{career})
            std::ranges::copy(*data.AssignmentNames(each, one), std::back_inserter(assignments));
    }
    assignment = KnownName(assignments, assignment);
}

}  // namespace korvane::cli
