#include "ui/dialog.h"

#include <QKeyEvent>
#include <QScreen>

namespace korvane::ui {

int FromTwips(const QWidget& widget, int twips) {
    constexpr double kTwipsPerInch = 1440;
    return qRound(twips * widget.screen()->logicalDotsPerInchX() / kTwipsPerInch);
}

void CenterOnScreen(QWidget& window) {
    auto frame = window.frameGeometry();
    frame.moveCenter(window.screen()->availableGeometry().center());
    window.move(frame.topLeft());
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
