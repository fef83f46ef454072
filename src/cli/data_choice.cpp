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
    if (race.empty())
        return;
    career = KnownName(*data.CareerNames(race), career);
    if (!career.empty())
        assignment = KnownName(*data.AssignmentNames(race, career), assignment);
}

}  // namespace korvane::cli
