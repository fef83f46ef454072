// The configuration file: two lines, the data folder and the month of the last notice.
#pragma once

#include <string>
#include <string_view>

#include "base/paths.h"

namespace korvane {

inline constexpr std::string_view kConfigurationName = "Korvane.ini";

// The folder of the configuration file, ending in "\": the Windows folder where there is one, else the program's folder
// in the user's configuration folder.
HeldPath ConfigurationFolder();
HeldPath ConfigurationPath();

// The value of the first line that begins with the key, in any case: what follows the one character after the key,
// untrimmed. A file name without "\" is looked for beside the configuration file. "" when the file or the key is
// missing.
std::string GetIniValue(const HeldPath& file, std::string_view key);

// Replaces the configuration file. `month` is 1 to 12. Throws IoError when it can't be written.
void WriteSettings(const HeldPath& dataLocation, int month);

// A month as the file holds it, "01" to "12".
std::string TwoDigits(int month);

// The data folder that the configuration file names, ending in "\"; just "\" when it names none.
HeldPath ConfiguredDataLocation();

}  // namespace korvane
