// The player at the screen, before a window and with a robot's hand: what the tests of the dialogs begin with.
#pragma once

#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <gtest/gtest.h>

#include "support_ui/robot.h"
#include "ui/dialog_player.h"

namespace korvane::test {

class DialogStage : public ::testing::Test {
  protected:
    DialogStage();

    Session session{DataFolder(HeldPath("")), {}};
    QWidget window;
    ui::InputGuard guard;
    ui::DialogPlayer player{session, window, guard};
    Robot robot;
};

// The captions of a dialog's buttons, in the order of their making.
QStringList Captions(const QWidget& dialog);
// Whether a button shows its whole caption.
bool ShowsAll(const QPushButton& button);

}  // namespace korvane::test
