#include "ui/dialog.h"

#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace korvane::ui {

int FromTwips(const QWidget& widget, int twips) {
    constexpr double kTwipsPerInch = 1440;
    return qRound(twips * widget.screen()->logicalDotsPerInchX() / kTwipsPerInch);
}

void CenterOnScreen(QWidget& window) {
    // Without its frame, whose size isn't known before the window has been shown; to move a window is to move its
    // frame.
    auto inside = QRect({}, window.size());
    inside.moveCenter(window.screen()->availableGeometry().center());
    window.setGeometry(inside);
}

void PlaceOverUpperPart(QWidget& dialog, const QWidget& window) {
    const auto screen = window.screen()->availableGeometry();
    const auto room = screen.adjusted(0, dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0);
    auto place = QRect({}, dialog.size());
    place.moveCenter({window.geometry().center().x(), 0});
    place.moveTop(window.geometry().top());
    place.moveLeft(std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
    place.moveTop(std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - place.height())));
    dialog.setGeometry(place);
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
