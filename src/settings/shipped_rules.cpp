#include "settings/shipped_rules.h"

#include <system_error>

namespace korvane {

std::filesystem::path ShippedRules() {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto installed = fs::read_symlink("/proc/self/exe", error).parent_path() / KORVANE_INSTALLED_RULES;
    return fs::is_directory(installed, error) ? fs::canonical(installed, error) : fs::path(KORVANE_SOURCE_RULES);
}

}  // namespace korvane
