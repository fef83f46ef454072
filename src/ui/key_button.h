// A button with the key that presses it on its face.
#pragma once

#include <QPaintEvent>
#include <QPushButton>
#include <QString>

namespace korvane::ui {

class KeyButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

    // The dialog that the button stands in listens to the key.
    void SetKey(const QString& key);
    // The room that the key takes beside the text.
    int KeyRoom() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString key_;
};

}  // namespace korvane::ui
