#include "cli/data_choice.h"

#include "settings/configuration.h"
#include "settings/shipped_rules.h"

namespace korvane::cli {

HeldPath ChooseDataLocation(const std::string& given) {
    if (!given.empty())
        return HeldPath(given);
    const auto configured = ConfiguredDataLocation();
    return configured.text() == "\\" ? Held(ShippedRules()) : configured;
}

}  // namespace korvane::cli
