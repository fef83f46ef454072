#include "settings/configuration.h"

#include "base/environment.h"
#include "base/files.h"
#include "base/text.h"

namespace korvane {

HeldPath ConfigurationFolder() {
    namespace fs = std::filesystem;
    const auto windows = GetEnvironmentValue("WINDIR");
    if (!windows.empty())
        return EnsureTrailingBackslash(HeldPath(windows));
    fs::path folder = ExactEnvironmentValue("XDG_CONFIG_HOME");
    if (folder.empty())
        folder = fs::path(ExactEnvironmentValue("HOME")) / ".config";
    return EnsureTrailingBackslash(Held(folder / "korvane"));
}

HeldPath ConfigurationPath() {
    return ConfigurationFolder() + kConfigurationName;
}

std::string GetIniValue(const HeldPath& file, std::string_view key) {
    const bool bare = file.text().find('\\') == std::string::npos;
    const auto path = bare ? ConfigurationFolder() + file.text() : file;
    if (!FileExists(path))
        return {};
    const auto settings = ReadTextFile(path, "the configuration file");
    for (int i = 1; i <= settings.lines(); ++i)
        if (const auto line = settings.line(i); BeginsIgnoringCase(line, key))
            return std::string(AfterCharacters(line, CharacterCount(key) + 1));
    return {};
}

void WriteSettings(const HeldPath& dataLocation, int month) {
    ReplaceFile(NativePath(ConfigurationPath()),
                Concat("dataloc=", dataLocation.text(), "\r\nLastMonth=", TwoDigits(month), "\r\n"));
}

std::string TwoDigits(int month) {
    return Concat(month < 10 ? "0" : "", month);
}

HeldPath ConfiguredDataLocation() {
    return EnsureTrailingBackslash(HeldPath(GetIniValue(HeldPath(kConfigurationName), "dataloc")));
}

}  // namespace korvane
