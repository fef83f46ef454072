// No answer that the player didn't mean: what is pressed twice, held down, or arrives together with an answer.

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "desktop/exporter.h"
#include "support_ui/desk.h"
#include "ui/kvn_about.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;
using test::RealClick;

class Guarded : public ::testing::Test {
  protected:
    ~Guarded() override { QApplication::setDoubleClickInterval(0); }
    // A click that comes in the same batch as what was pressed last: no dialog is there yet.
    void ClickBehind(const QString& name) const {
        auto& widget = desk.Get<QWidget>(name);
        QTest::mouseClick(desk.window.windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(&desk.window, widget.rect().center()));
    }

    test::Desk desk{HeldPath(KORVANE_RULES)};
    Session& session = desk.session;
    test::Robot robot;
};

TEST_F(Guarded, WhatComesWithAnAnswerReachesNoWindowBehind) {
    robot.Then("SPICKBOX", [this](QWidget& dialog) {
        PressKey(dialog, Qt::Key_1);
        for (const auto* const name : {"scrapAndRestart", "startCareer", "roll"})
            ClickBehind(name);
        PressKey(dialog, Qt::Key_2);                       // and a second answer changes nothing
        desk.Get<QPushButton>("scrapAndRestart").click();  // as assistive programs press it
    });
    robot.Then("KVNTables", [this](QWidget& dialog) {
        const auto lines = session.character.History.lines();
        EXPECT_EQ(lines[0], "-- Term 1 --");
        EXPECT_TRUE(lines[1].starts_with("Enlist ")) << "not the second alternative: " << lines[1];
        EXPECT_EQ(session.character.TermsTotal, 2);
        EXPECT_FALSE(desk.Get<QWidget>("startCareer").isEnabled());
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("Scrap this character?", QMessageBox::Yes);
    session.character.QualificationDM = kAutomaticSuccess;
    session.race.backgroundSkillCount = 0;
    desk.Click("startCareer");
}

TEST_F(Guarded, NothingScrapsAFinishedCharacterAtItsExport) {
    Exporter exporter(session, desk.window, desk.window.player(), desk.guard);
    robot.Then("KVNExport", [](QWidget& dialog) { RealClick(dialog, "rollName"); });
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        PressKey(dialog, Qt::Key_Return);
        auto& behind = *dialog.parentWidget()->findChild<QWidget*>("KVNExport")->findChild<QPushButton*>("rollName");
        QTest::mouseClick(behind.window()->windowHandle(), Qt::LeftButton, {},
                          behind.mapTo(behind.window(), behind.rect().center()));
        behind.click();
    });
    robot.Then("KVNExport", [](QWidget& dialog) {
        EXPECT_FALSE(Child<QLineEdit>(dialog, "name").text().isEmpty());
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("The character has not been exported. Close all the same?", QMessageBox::Yes);
    exporter.Show(desk.window.life().tape());
}

TEST_F(Guarded, ADialogTakesNoPressWithinADoubleClick) {
    constexpr int kInterval = 150;
    QApplication::setDoubleClickInterval(kInterval);
    robot.Then("KVNAbout", [](QWidget& dialog) {
        PressKey(dialog, Qt::Key_Return);
        RealClick(dialog, "agree");
        EXPECT_TRUE(dialog.isVisible()) << "too early";
        QTest::qWait(kInterval);
        QTest::sendKeyEvent(QTest::Press, &dialog, Qt::Key_Return, "", {});  // with a time of its own
        EXPECT_FALSE(dialog.isVisible());
    });
    ui::KVNAbout about("About", nullptr);
    desk.guard.Run(about);
    const auto lines = desk.Shown("characteristics");
    ClickBehind("roll");
    EXPECT_EQ(desk.Shown("characteristics"), lines) << "nor does the window behind, just after";
    QTest::qWait(kInterval);
    ClickBehind("roll");
    EXPECT_NE(desk.Shown("characteristics"), lines);
}

TEST_F(Guarded, AKeyThatIsHeldDownAnswersNothing) {
    const auto repeat = [](QWidget& to, int key) {
        QKeyEvent press(QEvent::KeyPress, key, {}, "\r", true);
        QApplication::sendEvent(&to, &press);
    };
    robot.Then("KVNAbout", [&](QWidget& dialog) {
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape})
            repeat(Child<QPushButton>(dialog, "agree"), key);
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_Return);
    });
    ui::KVNAbout about("About", nullptr);
    desk.guard.Run(about);
}

TEST_F(Guarded, TheWheelTurnsOnlyWhatHasTheFocus) {
    auto& career = desk.Get<QComboBox>("career");
    desk.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.window));
    desk.Get<QWidget>("roll").setFocus();
    const auto turn = [&] {
        const auto middle = career.rect().center();
        QWheelEvent wheel(middle, career.mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&career, &wheel);
        return career.currentIndex();
    };
    EXPECT_EQ(turn(), 0);
    career.setFocus();
    EXPECT_EQ(turn(), 1);
}

}  // namespace
}  // namespace korvane
