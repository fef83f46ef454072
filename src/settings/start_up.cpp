#include "settings/start_up.h"

#include <array>
#include <charconv>

#include "base/files.h"
#include "base/text.h"
#include "data/known_names.h"
#include "settings/configuration.h"

namespace korvane {

namespace {

// The race whose file tells a folder of rule data.
const std::string& DefaultRaceFile() {
    static const auto name = Concat(kImperialHuman, ".eri");
    return name;
}

// Each call says whether the folder, ending in "\", holds rule data.
bool HoldsRuleData(const HeldPath& folder) {
    return FileExists(folder + DefaultRaceFile());
}

// The folder of a path, up to and with its last "\".
HeldPath FolderOf(const HeldPath& file) {
    return HeldPath(std::string_view(file.text()).substr(0, file.text().rfind('\\') + 1));
}

// Asks for the data folder and keeps it. Returns whether one was chosen.
bool SetUp(Session& session, StartUpWindows& windows, int month) {
    windows.ShowMessage(
        "Korvane needs to know where its' data files are. In a moment you'll be asked to browse to whereever you "
        "unpacked the files stored in DATA.ZIP to. Once there, select IMPERIAL HUMAN.ERI and click Open. Korvane will "
        "record that as your datafile location.",
        Icon::Information);
    const auto file = windows.ChooseRaceFile(DefaultRaceFile());
    if (!file)
        return false;
    session.data = DataFolder(FolderOf(*file));
    WriteSettings(session.data.location(), month);
    windows.ShowMessage("Korvane has been set to read data files from " + NativePath(session.data.location()).string(),
                        Icon::None);
    return true;
}

// Finds the data folder, asking for it when it isn't known. Returns whether it holds rule data.
bool FindDataFolder(Session& session, StartUpWindows& windows, int month) {
    if (FileExists(ConfigurationPath()))
        session.data = DataFolder(ConfiguredDataLocation());
    if (!FileExists(ConfigurationPath()) || !HoldsRuleData(session.data.location()))
        if (!SetUp(session, windows, month))
            return false;
    if (HoldsRuleData(session.data.location()))
        return true;
    windows.ShowMessage(
        "Your INI file is pointing to the wrong place! Please update it and try running Korvane again...", Icon::None);
    windows.EditFile(ConfigurationPath());
    return false;
}

// Once a month; a first run has just written the month and doesn't show it.
void ShowMonthlyNotice(const Session& session, StartUpWindows& windows, int month) {
    if (GetIniValue(HeldPath(kConfigurationName), "LastMonth") == TwoDigits(month))
        return;
    windows.ShowAbout();
    WriteSettings(session.data.location(), month);
}

}  // namespace

double ProgramVersion(int major, int minor, int revision) {
    return major + minor / 10.0 + revision / 100.0;
}

std::string ProgramTitle(double version) {
    constexpr int kDigits = 15;
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), version, std::chars_format::general, kDigits).ptr;
    return Concat("Brisane Farwend v2 Characters v", std::string_view(digits.data(), end));
}

bool StartUp(Session& session, StartUpWindows& windows, std::string_view arguments, int month) {
    session.programTitle =
        ProgramTitle(ProgramVersion(KORVANE_VERSION_MAJOR, KORVANE_VERSION_MINOR, KORVANE_VERSION_REVISION));
    if (arguments == "TESTMODE")
        windows.ShowMessage("Checking for INI", Icon::None);
    if (!FindDataFolder(session, windows, month))
        return false;
    ShowMonthlyNotice(session, windows, month);
    session.masterSkills = LoadMasterSkills(session.data.location());
    windows.ShowMainWindow();
    return true;
}

}  // namespace korvane
