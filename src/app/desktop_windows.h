// The windows of the program's start, on the screen.
#pragma once

#include "app/kvn_gen.h"
#include "app/start_up.h"

namespace korvane {

class DesktopWindows : public StartUpWindows {
  public:
    DesktopWindows(const Session& session, KVNGen& mainWindow) : session_(session), mainWindow_(mainWindow) {}

    void ShowMessage(std::string_view text, Icon icon) override;
    std::optional<std::string> ChooseRaceFile(std::string_view proposedName) override;
    void EditFile(std::string_view path) override;
    void ShowAbout() override;
    void ShowMainWindow() override;

  private:
    const Session& session_;
    KVNGen& mainWindow_;
};

}  // namespace korvane
