#include "app/configuration.h"

#include "base/error.h"
#include "base/places.h"
#include "base/text.h"

namespace korvane {

std::string ConfigurationPath() {
    return ConfigurationFolder() + "Korvane.ini";
}

std::string GetIniValue(std::string_view file, std::string_view key) {
    const bool bare = file.find('\\') == std::string_view::npos;
    const auto path = bare ? ConfigurationFolder() + std::string(file) : std::string(file);
    if (!FileExists(path))
        return {};
    for (const auto& line : ReadTextFile(path, "the configuration file").lines)
        if (BeginsIgnoringCase(line, key))
            return std::string(AfterCharacters(line, CharacterCount(key) + 1));
    return {};
}

void WriteSettings(std::string_view dataLocation, int month) {
    ReplaceFile(NativePath(ConfigurationPath()),
                Concat("dataloc=", dataLocation, "\r\nLastMonth=", TwoDigits(month), "\r\n"));
}

std::string TwoDigits(int month) {
    return Concat(month < 10 ? "0" : "", month);
}

std::string ConfiguredDataLocation() {
    // Written in small letters here; names are found in any case.
    return EnsureTrailingBackslash(HeldPath(GetIniValue("korvane.ini", "dataloc")));
}

}  // namespace korvane
