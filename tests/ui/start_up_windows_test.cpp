// The program's start on the screen: the first run, the monthly notice, and the windows behind them.

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <cstdlib>
#include <gtest/gtest.h>

#include "desktop/desktop_windows.h"
#include "support/temp_folder.h"
#include "support_ui/robot.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;

class StartUpWindowsTest : public ::testing::Test {
  protected:
    StartUpWindowsTest() {
        setenv("WINDIR", folder.path().c_str(), 1);
        rules.CopyRules();
        session.seams = {&dice, &window.player(), &window.display()};
    }
    ~StartUpWindowsTest() override { unsetenv("WINDIR"); }

    // The next file dialog is checked and answered with that file, or cancelled.
    void Choose(const std::optional<std::string>& file) {
        robot.Then("QFileDialog", [file](QWidget& dialog) {
            const auto& files = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(files.directory().absolutePath(), QDir::currentPath());
            EXPECT_EQ(files.nameFilters(), QStringList{"Korvane Race files (*.eri)"});
            auto& name = Child<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(name.text(), "Imperial Human.eri");
            if (file)
                name.setText(QString::fromStdString(*file));
            PressKey(dialog, file ? Qt::Key_Return : Qt::Key_Escape);
        });
    }

    const test::TempFolder folder;  // of the configuration file
    const test::TempFolder rules;
    const std::string raceFile = (rules.path() / "Imperial Human.eri").string();
    SeededDice dice{1, 1};
    Session session{DataFolder(HeldPath("")), {}};
    ui::InputGuard guard;
    KVNGen window{session, guard};
    DesktopWindows windows{session, window, guard};
    test::Robot robot;
};

TEST_F(StartUpWindowsTest, FirstRunEndsInTheMainWindow) {
    robot.Then("QMessageBox", [this](QWidget& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_TRUE(box.text().startsWith("Korvane needs to know where"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.windowTitle().toStdString(), session.programTitle);
        PressKey(dialog, Qt::Key_Return);
    });
    Choose(raceFile);
    robot.ThenMessage("Korvane has been set to read data files from " + rules.path().string() + "/", QMessageBox::Ok);
    EXPECT_TRUE(StartUp(session, windows, "", 11));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle().toStdString(), session.programTitle);
    EXPECT_EQ(Child<QComboBox>(window, "race").currentText(), "Imperial Human");
    EXPECT_TRUE(Child<QWidget>(window, "startCareer").isEnabled());
    EXPECT_GT(session.character.CharacteristicCount, 0);
}

}  // namespace
}  // namespace korvane
