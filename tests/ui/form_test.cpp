// The form of the windows: that they fit small screens, hide nothing, and read well in light and dark.

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <algorithm>
#include <gtest/gtest.h>

#include "support_ui/desk.h"
#include "ui/elided_label.h"
#include "ui/kvn_end_term.h"
#include "ui/kvn_export.h"
#include "ui/kvn_muster.h"
#include "ui/kvn_tables.h"
#include "ui/kvn_transfer.h"
#include "ui/looks.h"

namespace korvane {
namespace {

// The room of the smallest screens: 1920 x 1080 at 200 %, less a title bar and a panel.
constexpr QSize kSmallest(960, 500);

TEST(Form, WindowsFitTheSmallestScreens) {
    const test::Desk desk{HeldPath(KORVANE_RULES)};
    ui::KVNTables tables(nullptr);
    ui::KVNEndTerm end_of_term(nullptr);
    ui::KVNTransfer transfer(nullptr);
    ui::KVNMuster muster(nullptr);
    ui::KVNExport page("", {}, "", nullptr);
    for (const QWidget* const window :
         std::initializer_list<const QWidget*>{&desk.window, &tables, &end_of_term, &transfer, &muster, &page}) {
        const auto size = window->minimumSizeHint();
        EXPECT_TRUE(size.width() <= kSmallest.width() && size.height() <= kSmallest.height())
            << test::NameOf(*window) << " " << size.width() << " x " << size.height();
    }
}

TEST(Form, TheLifeInOnePictureLeadsToItsLines) {
    test::Desk desk{HeldPath(KORVANE_RULES)};
    auto& life = desk.Get<ui::LifeView>("life");
    EXPECT_FALSE(life.isVisible()) << "there is none yet";
    for (const auto* const line : {"-- Term 1 --", "Enlist Army Infantry", "Ally: Brother", "Promoted to Corporal"})
        desk.session.character.History.Add(line);
    desk.session.character.Age = 22;
    desk.window.display().HistoryChanged();
    desk.window.Refresh();
    QApplication::processEvents();
    EXPECT_TRUE(life.isVisible());
    EXPECT_NE(life.accessibleName().indexOf("promoted once"), -1) << life.accessibleName().toStdString();
    const auto& spots = life.picture().spots;
    const auto promoted = std::ranges::find(spots, 3U, &StripSpot::line);
    ASSERT_NE(promoted, spots.end());
    test::RealClick(life, QPointF(promoted->x + promoted->w / 2, promoted->y + promoted->h / 2).toPoint());
    EXPECT_EQ(desk.Get<QListWidget>("history").currentRow(), 3);
    life.setFocus();
    test::PressKey(life, Qt::Key_Home);
    test::PressKey(life, Qt::Key_Return);
    EXPECT_EQ(desk.Get<QListWidget>("history").currentRow(), static_cast<int>(spots.front().line));
    const auto least = desk.window.minimumSizeHint();
    EXPECT_TRUE(least.width() <= kSmallest.width() && least.height() <= kSmallest.height());
}

TEST(Form, TheStatisticsShowAllTheirLinesAtAnySize) {
    test::Desk desk{HeldPath(KORVANE_RULES)};
    const auto& list = desk.Get<QListWidget>("characteristics");
    for (const QSize size : {kSmallest, QSize(1024, 700), QSize(1900, 1000)}) {
        desk.window.resize(size);
        QApplication::processEvents();
        EXPECT_GE(list.viewport()->height(), list.visualItemRect(list.item(list.count() - 1)).bottom());
        EXPECT_GE(desk.Get<QWidget>("characteristics").visibleRegion().boundingRect().height(), list.height())
            << size.width();
    }
}

TEST(Form, WhatHasNoRoomIsToldByAToolTip) {
    ui::ChoiceCombo combo;
    combo.addItem("A career whose name is much longer than anybody would expect");
    combo.resize(80, combo.sizeHint().height());
    combo.grab();
    EXPECT_EQ(combo.toolTip(), combo.currentText());
    combo.resize(900, combo.height());
    combo.grab();
    EXPECT_TRUE(combo.toolTip().isEmpty());
}

TEST(Form, TextsThatStandBackReadWellInBothPalettes) {
    const QPalette light(QColor(239, 239, 239));
    QPalette dark(QColor(66, 66, 66), QColor(50, 50, 50));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    constexpr double kEnough = 4.5;
    for (const auto& palette : {light, dark}) {
        const auto own = QApplication::palette();
        QApplication::setPalette(palette);
        ui::KVNTables tables(nullptr);
        TableQuestion question;
        question.columns[3] = {"Advanced Edu 8+", {}, false};
        tables.SetQuestion(question);
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            EXPECT_GE(ui::Contrast(ui::Dimmed(palette, role), palette.color(role)), kEnough);
        const auto& rows = test::Child<QWidget>(tables, "rows3").palette();
        EXPECT_GE(ui::Contrast(rows.color(QPalette::Disabled, QPalette::Text), rows.color(QPalette::Base)), kEnough);
        const auto& button = test::Child<QWidget>(tables, "table3").palette();
        EXPECT_GE(ui::Contrast(button.color(QPalette::Disabled, QPalette::ButtonText), button.color(QPalette::Button)),
                  kEnough);
        QApplication::setPalette(own);
    }
    EXPECT_NEAR(ui::Contrast(Qt::black, Qt::white), 21, 0.01);
}

}  // namespace
}  // namespace korvane
