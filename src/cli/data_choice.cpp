#include "cli/data_choice.h"

#include <filesystem>
#include <system_error>

#include "settings/configuration.h"

namespace korvane::cli {

namespace {

// Beside an installed program, else where the program was built.
HeldPath ShippedRules() {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto installed = fs::read_symlink("/proc/self/exe", error).parent_path() / KORVANE_INSTALLED_RULES;
    return Held(fs::is_directory(installed, error) ? fs::canonical(installed, error) : fs::path(KORVANE_SOURCE_RULES));
}

}  // namespace

HeldPath ChooseDataLocation(const std::string& given) {
    if (!given.empty())
        return HeldPath(given);
    const auto configured = ConfiguredDataLocation();
    return configured.text() == "\\" ? ShippedRules() : configured;
}

}  // namespace korvane::cli
