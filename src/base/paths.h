// The two forms of a path: held, as the configuration file holds it, with "\" between the parts, and native, as the
// system wants it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvane {

class HeldPath {
  public:
    HeldPath() = default;
    // "/" is taken too.
    explicit HeldPath(std::string_view text);

    const std::string& text() const { return text_; }
    // The path of a file in this folder, which ends in "\".
    HeldPath operator+(std::string_view name) const { return HeldPath(text_ + std::string(name)); }
    bool operator==(const HeldPath&) const = default;

  private:
    std::string text_;
};

// The held form of a native path.
HeldPath Held(const std::filesystem::path& native);
// The path with "\" at its end.
HeldPath EnsureTrailingBackslash(const HeldPath& path);
// The native form of a held path. A name that exists only in another case is found in that case.
std::filesystem::path NativePath(const HeldPath& path);

}  // namespace korvane
