// The dialogs of every question: a choice, a list, a message; and the program's notices.

#include <QAccessible>
#include <QApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <algorithm>

#include "support_ui/dialog_stage.h"
#include "ui/recent_lines.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;
using test::RealClick;

class Dialogs : public test::DialogStage {
  protected:
    int Choose(std::string_view title, const std::vector<std::string_view>& options, int focus = 0) {
        return player.Choose({title, options, focus});
    }
    std::vector<int> Select(int minimum, int maximum) { return player.Select({"Take some", maximum, minimum, items}); }
    // The logical pixels of a length in twips on the screen at hand.
    double Pixels(int twips) const { return twips * window.screen()->logicalDotsPerInchX() / 1440; }

    const std::vector<std::string_view> items = {"Admin-0", "Gun Combat-0", "GUNNER-1", "Medic-0", "Survival-0"};
};

void ClickItem(const QWidget& dialog, int row, bool twice = false) {
    auto& list = Child<QListWidget>(dialog, "items");
    RealClick(*list.viewport(), list.visualItemRect(list.item(row)).center(), twice);
}

// The window of the last lines above a choice.
const QWidget& Above() {
    const auto windows = QApplication::topLevelWidgets();
    return **std::ranges::find(windows, "recentWindow", &QWidget::objectName);
}

TEST_F(Dialogs, ChoiceHasTheSizesItIsTold) {
    robot.Then("SPICKBOX", [this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select");
        EXPECT_NEAR(dialog.width(), Pixels(1400), 1);
        EXPECT_NEAR(dialog.height(), Pixels(500 * 4), 4);
        const auto middle = dialog.screen()->availableGeometry().center();
        EXPECT_LE((dialog.geometry().center() - middle).manhattanLength(), 8) << "but for its frame";
        for (const auto* const button : dialog.findChildren<QPushButton*>()) {
            EXPECT_NEAR(button->width(), Pixels(750), 1);
            EXPECT_NEAR(button->geometry().center().x(), dialog.rect().center().x(), 1);
        }
        PressKey(dialog, Qt::Key_3);
    });
    EXPECT_EQ(Choose("Select", {"Str", "Dex", "Endu"}), 3);
}

TEST_F(Dialogs, ChoiceTakesKeysClicksAndTheFocus) {
    robot.Then("SPICKBOX", [](QWidget& dialog) { RealClick(dialog, "pick24"); });
    EXPECT_EQ(Choose("Many", std::vector<std::string_view>(24, "A")), 24);
    // The buttons of the choice before are gone, and so are their keys.
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        EXPECT_FALSE(Child<QWidget>(dialog, "pick4").isVisible());
        PressKey(dialog, Qt::Key_9);
        PressKey(dialog, Qt::Key_4);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_1, {}, "1", true);
        QApplication::sendEvent(&dialog, &held);
        EXPECT_TRUE(dialog.isVisible()) << "a key that was held down for the question before";
        EXPECT_TRUE(Child<QWidget>(dialog, "pick3").hasFocus()) << "as the question says";
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Choose("Three", {"A", "B", "C"}, 2), 3);
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        EXPECT_TRUE(Child<QWidget>(dialog, "pick1").hasFocus());
        auto& button = Child<QPushButton>(dialog, "pick1");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), "R&D");
        EXPECT_TRUE(button.shortcut().isEmpty()) << "the sign is a part of the text";
        EXPECT_TRUE(Child<QPushButton>(dialog, "pick2").text().isEmpty());
        RealClick(dialog, "pick2");
    });
    EXPECT_EQ(Choose("Two", {"R&D", ""}), 2);
}

TEST_F(Dialogs, ListHoldsThePlayerToItsLimits) {
    robot.Then("SLIST1", [](QWidget& dialog) { RealClick(dialog, "ok"); });
    robot.ThenMessage("No items selected", QMessageBox::Ok);
    robot.Then("SLIST1", [](QWidget& dialog) {
        EXPECT_EQ(Child<QLineEdit>(dialog, "minimum").text(), "2");
        EXPECT_EQ(Child<QLineEdit>(dialog, "maximum").text(), "2");
        Child<QWidget>(dialog, "items").setFocus();
        PressKey(dialog, Qt::Key_Down);  // to the first item, as none was current
        PressKey(dialog, Qt::Key_Space);
        RealClick(dialog, "ok");
    });
    robot.ThenMessage("Too few items selected; minimum is 2", QMessageBox::Ok);
    robot.Then("SLIST1", [](QWidget& dialog) {
        ClickItem(dialog, 2);
        ClickItem(dialog, 4);
        EXPECT_EQ(Child<QLabel>(dialog, "count").text(), "3 selected");
        RealClick(dialog, "ok");
    });
    robot.ThenMessage("Too many items selected; limit is 2", QMessageBox::Ok);
    robot.Then("SLIST1", [](QWidget& dialog) {
        ClickItem(dialog, 2);
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Select(2, 2), (std::vector<int>{1, 5}));
}

TEST_F(Dialogs, ListOpensUnmarkedAndTakesADoubleClick) {
    for (const bool marked_before : {true, false}) {
        robot.Then("SLIST1", [marked_before](QWidget& dialog) {
            EXPECT_EQ(Child<QLineEdit>(dialog, "minimum").text(), "1");
            EXPECT_EQ(Child<QLineEdit>(dialog, "maximum").text(), "1");
            EXPECT_TRUE(Child<QListWidget>(dialog, "items").selectedItems().isEmpty());
            EXPECT_EQ(Child<QListWidget>(dialog, "items").currentRow(), -1);
            if (marked_before)
                ClickItem(dialog, 3);
            ClickItem(dialog, 3, true);
        });
        EXPECT_EQ(Select(0, 0), std::vector<int>{4});
    }
}

TEST_F(Dialogs, AListOfOneMovesItsMark) {
    robot.Then("SLIST1", [](QWidget& dialog) {
        EXPECT_TRUE(Child<QLabel>(dialog, "chooseOne").isVisible());
        EXPECT_FALSE(Child<QLineEdit>(dialog, "minimum").isVisible());
        ClickItem(dialog, 3);
        ClickItem(dialog, 1);
        PressKey(dialog, Qt::Key_Down);
        EXPECT_EQ(Child<QLabel>(dialog, "count").text(), "1 selected");
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Select(1, 1), std::vector<int>{3});
}

TEST_F(Dialogs, QuestionsCarryTheLastLinesOfTheHistory) {
    for (const auto* const line : {"-- Term 1 --", "Admin-1", "A stranger asks.", "You find a purse. <b>"})
        session.character.History.Add(line);
    const QString last = "Admin-1\nA stranger asks.\nYou find a purse. <b>";
    robot.Then("SLIST1", [&](QWidget& dialog) {
        EXPECT_EQ(Child<ui::RecentLines>(dialog, "recentLines").text(), last);
        EXPECT_EQ(dialog.findChild<QLabel*>("newest")->textFormat(), Qt::PlainText);
        PressKey(dialog, Qt::Key_Escape);
    });
    Select(1, 1);
    robot.Then("QMessageBox", [&](QWidget& dialog) {
        auto& recent = Child<ui::RecentLines>(dialog, "recentLines");
        EXPECT_EQ(recent.text(), last);
        auto& question = Child<QLabel>(dialog, "qt_msgbox_label");
        EXPECT_LT(recent.mapTo(&dialog, QPoint(0, recent.height())).y(), question.mapTo(&dialog, QPoint()).y() + 1);
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(player.Ask({"Keep it?"}));
    QPoint first;
    for (int i = 0; i < 2; ++i) {
        robot.Then("SPICKBOX", [&](QWidget& dialog) {
            const auto& above = Above();
            EXPECT_TRUE(above.isVisible());
            EXPECT_LT(above.geometry().bottom(), dialog.geometry().top());
            EXPECT_EQ(dialog.accessibleDescription(), last);
            if (i == 0)
                first = dialog.pos();
            EXPECT_EQ(dialog.pos(), first) << "it doesn't jump";
            PressKey(dialog, Qt::Key_1);
        });
        Choose("Select", {"Str", "Dex"});
    }
    EXPECT_FALSE(Above().isVisible());
}

TEST_F(Dialogs, ListFindsMarksAndClears) {
    const auto find = [this](const QString& text, Qt::Key key) {
        robot.Then("SLIST1", [](QWidget& dialog) { RealClick(dialog, "find"); })
            .Then("findInput", [text, key](QWidget& dialog) {
                EXPECT_EQ(dynamic_cast<QInputDialog&>(dialog).labelText(), "Select all entries containing this string");
                Child<QLineEdit>(dialog, "").setText(text);
                PressKey(dialog, key);
            });
    };
    const auto shows = [this](const QString& count, const QString& button) {
        robot.Then("SLIST1", [count, button](QWidget& dialog) {
            EXPECT_EQ(Child<QLabel>(dialog, "count").text(), count);
            RealClick(dialog, button);
        });
    };
    find("medic", Qt::Key_Return);
    find("", Qt::Key_Return);
    find("a", Qt::Key_Escape);
    find("gun", Qt::Key_Return);
    shows("3 selected", "ok");
    EXPECT_EQ(Select(1, 9), (std::vector<int>{2, 3, 4}));
    robot.Then("SLIST1", [](QWidget& dialog) {
        PressKey(dialog, Qt::Key_A, Qt::AltModifier);
        QTest::qWait(200);  // the button shows that it is pressed before it acts
    });
    shows("5 selected", "clear");
    robot.Then("SLIST1", [](QWidget& dialog) {
        EXPECT_EQ(Child<QListWidget>(dialog, "items").currentRow(), -1);
        RealClick(dialog, "selectAll");
    });
    shows("5 selected", "cancel");
    EXPECT_TRUE(Select(1, 9).empty());
    robot.Then("SLIST1", [](QWidget& dialog) { RealClick(dialog, "selectAll"); });
    robot.ThenKey("SLIST1", Qt::Key_Escape);
    EXPECT_TRUE(Select(1, 9).empty());
}

}  // namespace
}  // namespace korvane
