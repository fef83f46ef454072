#include "support_ui/robot.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "ui/dialog.h"

namespace korvane::test {

namespace {

constexpr int kInterval = 1;     // milliseconds between two looks for a dialog
constexpr int kPatience = 5000;  // milliseconds that a dialog has to become active

// Why a mouse can't click there; empty when it can.
std::string Obstacle(const QWidget& widget, QPoint place) {
    const auto* const window = widget.window();
    const auto* const modal = QApplication::activeModalWidget();
    if (!widget.isVisible())
        return "it is hidden";
    if (!widget.isEnabled())
        return "it is disabled";
    if (modal != nullptr && modal != window && !modal->isAncestorOf(window))
        return "the dialog " + NameOf(*modal) + " is before it";
    const auto* const hit = window->childAt(widget.mapTo(window, place));
    return hit == &widget || widget.isAncestorOf(hit) ? "" : "it is covered or out of its window";
}

}  // namespace

void RealClick(QWidget& widget) {
    auto room = widget.rect();
    // Only the box and its caption take clicks.
    if (qobject_cast<QCheckBox*>(&widget) != nullptr || qobject_cast<QRadioButton*>(&widget) != nullptr)
        room.setWidth(std::min(room.width(), widget.sizeHint().width()));
    RealClick(widget, room.center());
}

void RealClick(QWidget& widget, QPoint place, bool twice) {
    const auto obstacle = Obstacle(widget, place);
    if (!obstacle.empty()) {
        ADD_FAILURE() << "no click on " << NameOf(widget) << ": " << obstacle;
        return;
    }
    auto* const window = widget.window();
    const auto there = widget.mapTo(window, place);
    if (!twice) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, there);
        return;
    }
    // There are double clicks only where they may take their time; as long a dialog takes no press after it came.
    constexpr int kInterval = 100;
    QTest::qWait(kInterval);
    QApplication::setDoubleClickInterval(kInterval);
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, there);
    QApplication::setDoubleClickInterval(0);
}

void RealClick(const QWidget& parent, const QString& name) {
    RealClick(Child<QWidget>(parent, name));
}

void PressKey(const QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(widget.window()->windowHandle(), key, modifiers);
}

void ChooseInCombo(QComboBox& combo, const QString& entry) {
    combo.setFocus();
    PressKey(combo, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(combo.view()->isVisible()) << combo.objectName().toStdString();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    for (int row = 0; row < combo.findText(entry); ++row)
        QTest::keyClick(combo.view(), Qt::Key_Down);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    EXPECT_EQ(combo.currentText().toStdString(), entry.toStdString());
}

std::string NameOf(const QWidget& window) {
    const auto name = window.objectName().toStdString();
    return name.empty() ? window.metaObject()->className() : name;
}

Robot::Robot() {
    QTimer::singleShot(kInterval, this, &Robot::Poll);
}

Robot::~Robot() {
    for (const auto& step : steps_)
        ADD_FAILURE() << "expected but not shown: " << step.name;
}

Robot& Robot::Then(const std::string& name, Answer answer) {
    steps_.push_back({name, std::move(answer)});
    return *this;
}

Robot& Robot::ThenKey(const std::string& name, Qt::Key key) {
    return Then(name, [key](QWidget& dialog) { PressKey(dialog, key); });
}

Robot& Robot::ThenMessage(const std::string& text, QMessageBox::StandardButton button) {
    return Then("QMessageBox", [text, button](QWidget& dialog) {
        const auto& message = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(message.text().toStdString(), text);
        ASSERT_NE(message.button(button), nullptr) << text;
        RealClick(*message.button(button));
    });
}

void Robot::Respond(QWidget& dialog) {
    if (steps_.empty() || steps_.front().name != NameOf(dialog)) {
        GiveUp(dialog, steps_.empty() ? "no dialog was expected" : "expected: " + steps_.front().name);
        return;
    }
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step.answer(dialog);
}

void Robot::GiveUp(QWidget& dialog, const std::string& why) {
    const auto* const message = qobject_cast<QMessageBox*>(&dialog);
    const auto text = message != nullptr ? message->text() : dialog.windowTitle();
    if (!std::exchange(gaveUp_, true))
        ADD_FAILURE() << "shown: " << NameOf(dialog) << " \"" << text.toStdString() << "\"; " << why;
    if (message != nullptr && message->button(QMessageBox::Yes) != nullptr)
        message->button(QMessageBox::Yes)->click();
    else if (NameOf(dialog) == "KVNMuster")
        dynamic_cast<QDialog&>(dialog).reject();
    else
        dynamic_cast<QDialog&>(dialog).done(ui::NeededDialog::kScrapped);
}

void Robot::Poll() {
    // A timer of its own for each look: the answer may open a dialog, which needs looks while this one still lasts.
    QTimer::singleShot(kInterval, this, &Robot::Poll);
    auto* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || !dialog->isVisible() || std::ranges::find(answering_, dialog) != answering_.end())
        return;
    if (!dialog->isActiveWindow()) {
        // Without a screen, a window that was hidden and comes again counts as active still, and can't become so.
        if (dialog->parentWidget() != nullptr)
            dialog->parentWidget()->window()->activateWindow();
        dialog->activateWindow();
        if (!inactive_.isValid())
            inactive_.start();
        if (inactive_.elapsed() > kPatience)
            GiveUp(*dialog, "it didn't become active");
        return;
    }
    inactive_.invalidate();
    answering_.push_back(dialog);
    if (gaveUp_)
        GiveUp(*dialog, "");
    else
        Respond(*dialog);
    answering_.pop_back();
}

}  // namespace korvane::test
