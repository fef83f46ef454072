#include "ui/looks.h"

#include <QApplication>
#include <QColor>

namespace korvane::ui {

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QPalette DarkPalette() {
    QPalette palette(QColor(53, 53, 53), QColor(42, 42, 42));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(46, 46, 46));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor(235, 235, 235));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    palette.setColor(QPalette::Button, QColor(66, 66, 66));
    palette.setColor(QPalette::Highlight, QColor(64, 116, 168));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(170, 170, 170));
    palette.setColor(QPalette::ToolTipBase, QColor(66, 66, 66));
    return palette;
}

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
