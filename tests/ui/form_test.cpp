// The form of the windows: that they fit small screens, hide nothing, and read well in light and dark.

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <vector>

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

// How well the text of a widget stands out, as it is painted: what is there most is its ground.
double PaintedContrast(QWidget& widget) {
    constexpr int kFrame = 4;
    const auto picture = widget.grab(widget.rect().adjusted(kFrame, kFrame, -kFrame, -kFrame)).toImage();
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto ground = std::ranges::max_element(counts, {}, &std::pair<const QRgb, int>::second)->first;
    double best = 1;
    for (const auto& [color, count] : counts)
        best = std::max(best, ui::Contrast(QColor(color), QColor(ground)));
    return best;
}

TEST(Form, DisabledTextsThatAreToBeReadReadWellInBothPalettes) {
    const QPalette light(QColor(239, 239, 239));
    QPalette dark(QColor(66, 66, 66), QColor(50, 50, 50));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    constexpr double kEnough = 4.5;
    const std::vector<std::string_view> rows(6, "Admin");
    const auto own = QApplication::palette();
    for (const auto& palette : {light, dark}) {
        QApplication::setPalette(palette);
        ui::KVNTables tables(nullptr);
        TableQuestion question;
        question.columns[3] = {"Advanced Edu 8+", rows, false};
        tables.SetQuestion(question);
        tables.resize(900, 500);
        ui::KVNMuster muster(nullptr);
        muster.SetQuestion({"Army", 0, 0, false, false, false, false, {}, {}});
        muster.resize(900, 400);
        ui::KVNTransfer transfer(nullptr);
        transfer.SetQuestion({Names{"Army"}, {}});
        transfer.resize(600, 300);
        for (auto* const window : std::initializer_list<QWidget*>{&tables, &muster, &transfer})
            window->grab();  // lays it out
        for (auto* const shown :
             {&test::Child<QWidget>(tables, "rows3"), &test::Child<QWidget>(tables, "table3"),
              &test::Child<QWidget>(muster, "threeCash"), &test::Child<QWidget>(muster, "gambler"),
              &test::Child<QWidget>(transfer, "career"), &test::Child<QWidget>(transfer, "assignment")})
            EXPECT_GE(PaintedContrast(*shown), kEnough)
                << shown->objectName().toStdString() << " on " << palette.color(QPalette::Window).name().toStdString();
    }
    QApplication::setPalette(own);
    EXPECT_NEAR(ui::Contrast(Qt::black, Qt::white), 21, 0.01);
}

}  // namespace
}  // namespace korvane
