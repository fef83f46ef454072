#include "cli/data_choice.h"

#include <algorithm>

#include "base/text.h"
#include "data/data_folder.h"
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
