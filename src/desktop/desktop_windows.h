// The windows of the program's start, on the screen.
#pragma once

#include <QDir>
#include <QString>

#include "desktop/kvn_gen.h"
#include "settings/start_up.h"
#include "ui/input_guard.h"

namespace korvane {

class DesktopWindows : public StartUpWindows {
  public:
    DesktopWindows(const Session& session, KVNGen& mainWindow, ui::InputGuard& guard)
        : session_(session), mainWindow_(mainWindow), guard_(guard) {}

    void ShowMessage(std::string_view text, Icon icon) override;
    std::optional<HeldPath> ChooseRaceFile(std::string_view proposedName) override;
    void EditFile(const HeldPath& path) override;
    void ShowAbout() override;
    void ShowMainWindow() override;

  private:
    // Says so where a folder isn't one of rules: it must hold this race's file.
    void TellWhatIsLacking(const QDir& folder, const QString& race);

    const Session& session_;
    KVNGen& mainWindow_;
    ui::InputGuard& guard_;
};

}  // namespace korvane
