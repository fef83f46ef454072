// The start of the program, before any window: a fixed order of steps whose dialogs are behind an interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/paths.h"
#include "character/KVNDeclare.h"

namespace korvane {

// The dialogs and services that the start needs.
class StartUpWindows {
  public:
    virtual ~StartUpWindows() = default;
    virtual void ShowMessage(std::string_view text, Icon icon) = 0;
    // The file-open dialog of the first run: the path of the chosen race file; nothing when cancelled.
    virtual std::optional<HeldPath> ChooseRaceFile(std::string_view proposedName) = 0;
    // Starts a text editor on a file and doesn't wait for it.
    virtual void EditFile(const HeldPath& path) = 0;
    // Returns when the dialog is closed.
    virtual void ShowAbout() = 0;
    // Shows the main window, unlocked, without waiting.
    virtual void ShowMainWindow() = 0;
};

// The program's version as one number: the minor part counts tenths, the revision hundredths.
double ProgramVersion(int major, int minor, int revision);
std::string ProgramTitle(double version);

// Runs the steps: `arguments` is the whole command line after the program's name, `month` the current one, 1 to 12.
// Returns whether the program goes on. Throws FileError for a missing or malformed master skill list.
bool StartUp(Session& session, StartUpWindows& windows, std::string_view arguments, int month);

}  // namespace korvane
