// Going back and forward at the windows, by button, key and history, and out of the export.

#include <QAction>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

#include "output/journal/lines.h"
#include "support/temp_folder.h"
#include "support_ui/desk.h"
#include "ui/back_button.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;
using test::RealClick;

// Whether the button leads back: in a life that is kept it also leads away.
bool MayGoBack(QWidget& dialog) {
    return Child<ui::BackButton>(dialog, "back").menu()->actions().front()->isEnabled();
}

class Back : public ::testing::Test {
  protected:
    Back() { test::ChooseInCombo(desk.Get<QComboBox>("career"), "Drifter"); }
    // Answers the first two questions: no background skills, and no education.
    void Begin() {
        robot.Then("SLIST1", [](QWidget& dialog) {
            EXPECT_FALSE(MayGoBack(dialog)) << "at the very first question";
            PressKey(dialog, Qt::Key_Escape);
        });
        robot.Then("SPICKBOX", [](QWidget& dialog) { PressKey(dialog, Qt::Key_1); });
    }
    void Scrap() { robot.ThenKey("KVNTables", Qt::Key_Escape).ThenMessage("Scrap this character?", QMessageBox::Yes); }

    test::Desk desk{HeldPath(KORVANE_RULES)};
    test::Robot robot;
};

TEST_F(Back, ByButtonAndKeyAndForwardAgain) {
    Begin();
    QStringList held;
    robot.Then("KVNTables", [&](QWidget& dialog) {
        held = Child<ui::CopyList>(dialog, "held").Lines();
        RealClick(dialog, "back");
    });
    robot.Then("SPICKBOX", [](QWidget& dialog) { PressKey(dialog, Qt::Key_Z, Qt::ControlModifier); });
    robot.Then("SLIST1", [&](QWidget& dialog) {
        EXPECT_FALSE(MayGoBack(dialog));
        EXPECT_EQ(desk.Shown("history").size(), 1U) << "what came after never happened";
        PressKey(dialog, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    });
    robot.Then("SPICKBOX",
               [](QWidget& dialog) { PressKey(dialog, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); });
    robot.Then("KVNTables", [&](QWidget& dialog) {
        EXPECT_EQ(Child<ui::CopyList>(dialog, "held").Lines(), held) << "the same dice";
        PressKey(dialog, Qt::Key_Z, Qt::ControlModifier);
    });
    robot.Then("SPICKBOX", [](QWidget& dialog) { PressKey(dialog, Qt::Key_1); });
    Scrap();
    desk.Click("startCareer");
    EXPECT_EQ(desk.window.life().ended()->backs, 3);
}

TEST_F(Back, ByTheHistory) {
    Begin();
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &desk.window, [&] {
        auto& history = desk.Get<ui::CopyList>("history");
        const auto actions = history.actions();
        const auto go_back = std::ranges::find(actions, "Go back to here", &QAction::text);
        if (go_back == actions.end())
            return;  // not yet
        hand.stop();
        history.setCurrentRow(0);
        EXPECT_FALSE((*go_back)->isEnabled()) << "before the first question";
        history.setCurrentRow(1);
        (*go_back)->trigger();
    });
    hand.start(10);
    robot.Then("KVNTables", [](QWidget& dialog) { PressKey(dialog, Qt::Key_H, Qt::ControlModifier); });
    robot.Then("SPICKBOX", [](QWidget& dialog) { PressKey(dialog, Qt::Key_1); });
    Scrap();
    desk.Click("startCareer");
    EXPECT_EQ(desk.window.life().ended()->backs, 1);
}

TEST_F(Back, OutOfTheExportIntoMusteringOut) {
    int shown = 0;
    desk.window.characterFinished = [&] { return ++shown == 1; };
    desk.Click(QString::fromUtf8(CaptionOf(Option::AutomaticGeneration).data()));
    robot.ThenKey("KVNEndTerm", Qt::Key_3).ThenKey("KVNMuster", Qt::Key_4);
    robot.Then("KVNMuster", [](QWidget& dialog) { PressKey(dialog, Qt::Key_Z, Qt::ControlModifier); });
    robot.ThenKey("KVNEndTerm", Qt::Key_3).ThenKey("KVNMuster", Qt::Key_4);
    desk.Click("startCareer");
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(desk.window.life().ended()->backs, 2);
}

TEST_F(Back, AKeptJournalIsGoneOnWithInAnotherWindow) {
    const test::TempFolder folder;
    const auto path = folder.path() / "life.jsonl";
    desk.window.KeepJournalIn(path);
    Begin();
    std::string kept;
    robot.Then("KVNTables", [&](QWidget& dialog) {
        kept = folder.Read("life.jsonl");
        PressKey(dialog, Qt::Key_L, Qt::ControlModifier);
    });
    desk.Click("startCareer");
    EXPECT_EQ(folder.Read("life.jsonl"), kept) << "left, not ended";
    EXPECT_TRUE(desk.Get<QWidget>("startCareer").isEnabled());
    folder.Write("cut.jsonl", kept + "{\"table\":[1");
    test::Desk other(HeldPath(KORVANE_RULES));
    robot.Then("KVNTables", [&](QWidget& dialog) {
        EXPECT_EQ(other.Shown("history"), desk.Shown("history"));
        EXPECT_TRUE(MayGoBack(dialog));
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("Scrap this character?", QMessageBox::Yes);
    other.window.KeepJournalIn(folder.path() / "cut.jsonl");
    EXPECT_EQ(folder.Read("cut.jsonl"), journal::JournalText(*other.window.life().ended()));
    EXPECT_TRUE(folder.Read("cut.jsonl").starts_with(kept));
}

}  // namespace
}  // namespace korvane
