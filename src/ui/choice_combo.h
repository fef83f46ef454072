// A combo box that changes only when the player means it.
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace korvane::ui {

// The wheel over one that hasn't the focus is left to what it stands in.
class ChoiceCombo : public QComboBox {
  public:
    ChoiceCombo() { setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

}  // namespace korvane::ui
