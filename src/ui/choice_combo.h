// A combo box that changes only when the player means it.
#pragma once

#include <QComboBox>
#include <QPaintEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include "ui/looks.h"

namespace korvane::ui {

// The wheel over one that hasn't the focus is left to what it stands in.
class ChoiceCombo : public QComboBox {
  public:
    ChoiceCombo() {
        setFocusPolicy(Qt::StrongFocus);
        KeepReadable(*this);  // what is chosen is read most while it can't be changed
    }

  protected:
    // What has no room ends in "…", and is told by the tool tip.
    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter painter(this);
        QStyleOptionComboBox box;
        initStyleOption(&box);
        painter.drawComplexControl(QStyle::CC_ComboBox, box);
        const auto room = style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, this);
        const auto whole = currentIndex() < 0 ? placeholderText() : box.currentText;
        if (currentIndex() < 0)
            box.palette.setBrush(QPalette::ButtonText, palette().placeholderText());
        box.currentText = fontMetrics().elidedText(whole, Qt::ElideRight, room.width());
        painter.drawControl(QStyle::CE_ComboBoxLabel, box);
        if (const auto tip = box.currentText == whole ? QString() : whole.toHtmlEscaped(); toolTip() != tip)
            setToolTip(tip);
    }
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

}  // namespace korvane::ui
