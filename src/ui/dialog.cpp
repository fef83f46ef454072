#include "ui/dialog.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

namespace korvane::ui {

int FromTwips(const QWidget& widget, int twips) {
    constexpr double kTwipsPerInch = 1440;
    return qRound(twips * widget.screen()->logicalDotsPerInchX() / kTwipsPerInch);
}

void CenterOnScreen(QWidget& window) {
    // Without its frame, whose size isn't known before the window has been shown.
    auto inside = QRect({}, window.size());
    inside.moveCenter(window.screen()->availableGeometry().center());
    window.move(inside.topLeft());
}

void PlaceOverUpperPart(QWidget& dialog, const QWidget& window) {
    const auto room = window.screen()->availableGeometry();
    const auto size = dialog.size();
    const int left = window.geometry().center().x() - size.width() / 2;
    const int top = window.geometry().top();
    dialog.move(std::clamp(left, room.left(), std::max(room.left(), room.right() - size.width())),
                std::clamp(top, room.top(), std::max(room.top(), room.bottom() - size.height())));
}

NeededDialog::NeededDialog(QWidget* parent) : QDialog(parent) {
    setModal(true);
}

void NeededDialog::reject() {
    if (!mayScrap || mayScrap())
        done(kScrapped);
}

int DigitOf(const QKeyEvent& event) {
    const int digit = event.key() - Qt::Key_0;
    // A key that is held down must not answer what comes next.
    return !event.isAutoRepeat() && digit >= 1 && digit <= 9 && (event.modifiers() & ~Qt::KeypadModifier) == 0 ? digit
                                                                                                               : 0;
}

}  // namespace korvane::ui
