#include "output/page_file.h"

#include <array>
#include <ctime>
#include <filesystem>
#include <functional>
#include <system_error>

#include "base/environment.h"
#include "base/files.h"
#include "base/text.h"

namespace korvane {

namespace {

// A name for a nameless file, of today's date: the month stands where the minutes would, and the hour is that of a date
// without a time.
std::string DatedName() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    std::array<char, 40> text{};
    const auto length = std::strftime(text.data(), text.size(), "Character %Y%m%m00%m.htm", &today);
    return {text.data(), length};
}

HeldPath FolderIn(const std::string& profile) {
    return HeldPath(profile) + "\\Korvane";
}

// The path can't be empty before its ending, as it holds the folder, so no page is called by the date.
HeldPath PageIn(const HeldPath& folder, std::string_view name) {
    const auto path = EnsureTrailingBackslash(folder) + LettersOnly(name);
    return path.text().empty() ? HeldPath(DatedName()) : HeldPath(folder.text() + "\\" + PageFileName(name));
}

}  // namespace

std::string PageFileName(std::string_view name) {
    return LettersOnly(name) + ".htm";
}

std::string PagePath(std::string_view name, std::string_view ending) {
    const auto profile = ProfileFolder();
    return profile.empty() ? std::string()
                           : NativePath(FolderIn(profile) + "\\" + LettersOnly(name) + std::string(ending)).string();
}

std::string PortraitPath(std::string_view name) {
    return PagePath(name, ".jpg");
}

std::string ProfileFolder() {
    const auto profile = GetEnvironmentValue("USERPROFILE");
    return profile.empty() ? ExactEnvironmentValue("HOME") : profile;
}

namespace {

// Makes the bytes when it is known where they go.
template <typename Make>
ExportOutcome Export(const Make& make, const std::function<HeldPath(const HeldPath& folder)>& place) {
    const auto profile = ProfileFolder();
    if (profile.empty())
        return {{}, "Your device needs a USERPROFILE env variable"};
    const auto folder = FolderIn(profile);
    std::error_code exists;  // or can't be made, which the file's own error tells
    std::filesystem::create_directories(NativePath(folder), exists);
    const auto bytes = make();
    const auto path = NativePath(place(folder));
    ReplaceFile(path, bytes);
    return {path.string(), "Character exported to " + path.string()};
}

}  // namespace

ExportOutcome ExportBytes(const std::string& bytes, std::string_view name, std::string_view ending) {
    return Export([&] { return bytes; },
                  [&](const HeldPath& folder) { return folder + "\\" + LettersOnly(name) + std::string(ending); });
}

ExportOutcome ExportCharacter(const Session& session, const HeldPath& templatePath, std::string_view name) {
    return Export([&] { return Page(ReadTemplate(templatePath), session, name); },
                  [&](const HeldPath& folder) { return PageIn(folder, name); });
}

}  // namespace korvane
