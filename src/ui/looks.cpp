#include "ui/looks.h"

#include <QApplication>
#include <QColor>

namespace korvane::ui {

namespace {

// Whether texts are light on a dark ground.
bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

void MendPalette() {
    if (!IsDark(QApplication::palette()))
        return;
    // Their outlines are taken from the ground, a little darker; a lighter inside is what can be seen.
    auto boxes = QApplication::palette();
    boxes.setColor(QPalette::Base, QColor(95, 95, 95));
    QApplication::setPalette(boxes, "QCheckBox");
    QApplication::setPalette(boxes, "QRadioButton");
}

}  // namespace korvane::ui
