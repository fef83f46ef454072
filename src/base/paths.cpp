#include "base/paths.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "base/text.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

// The entry of `folder` that is `name` in another case; nothing when there is none.
std::optional<fs::path> FindInOtherCase(const fs::path& folder, const std::string& name) {
    std::error_code error;
    std::optional<fs::path> found;
    for (const auto& entry : fs::directory_iterator(folder.empty() ? fs::path(".") : folder, error)) {
        const auto candidate = entry.path().filename();
        if (EqualsIgnoringCase(candidate.string(), name) && (!found || candidate < *found))
            found = candidate;
    }
    return found;
}

}  // namespace

HeldPath::HeldPath(std::string_view text) : text_(text) {
    std::ranges::replace(text_, '/', '\\');
}

HeldPath Held(const fs::path& native) {
    return HeldPath(native.string());
}

HeldPath EnsureTrailingBackslash(const HeldPath& path) {
    return path.text().ends_with('\\') ? path : path + "\\";
}

fs::path NativePath(const HeldPath& path) {
    auto text = path.text();
    std::ranges::replace(text, '\\', '/');
    fs::path wanted = fs::path(text).lexically_normal();
    std::error_code error;
    if (wanted.empty() || fs::exists(wanted, error))
        return wanted;
    fs::path found;
    for (const auto& part : wanted) {
        auto next = found / part;
        if (!part.empty() && !fs::exists(next, error))
            if (const auto other = FindInOtherCase(found, part.string()))
                next = found / *other;
        found = next;
    }
    return found;
}

}  // namespace korvane
