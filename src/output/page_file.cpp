#include "output/page_file.h"

#include <array>
#include <ctime>
#include <filesystem>
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

std::string PagePath(std::string_view name) {
    const auto profile = ProfileFolder();
    return profile.empty() ? std::string() : NativePath(PageIn(FolderIn(profile), name)).string();
}

std::string PortraitPath(std::string_view name) {
    const auto profile = ProfileFolder();
    return profile.empty() ? std::string() : NativePath(FolderIn(profile) + "\\" + LettersOnly(name) + ".jpg").string();
}

std::string ProfileFolder() {
    const auto profile = GetEnvironmentValue("USERPROFILE");
    return profile.empty() ? ExactEnvironmentValue("HOME") : profile;
}

ExportOutcome ExportCharacter(const Session& session, const HeldPath& templatePath, std::string_view name) {
    const auto profile = ProfileFolder();
    if (profile.empty())
        return {{}, "Your device needs a USERPROFILE env variable"};
    const auto folder = FolderIn(profile);
    std::error_code exists;  // or can't be made, which the page's own error tells
    std::filesystem::create_directories(NativePath(folder), exists);
    const auto page = Page(ReadTemplate(templatePath), session, name);
    const auto path = NativePath(PageIn(folder, name));
    ReplaceFile(path, page);
    return {path.string(), "Character exported to " + path.string()};
}

}  // namespace korvane
