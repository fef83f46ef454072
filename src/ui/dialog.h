// What the dialogs have in common.
#pragma once

#include <QDialog>
#include <functional>

namespace korvane::ui {

// The pixels of a length in twips, 1440 to the inch, at the logical resolution of the widget's screen.
int FromTwips(const QWidget& widget, int twips);
// Puts a window into the middle of its screen, at the same place each time.
void CenterOnScreen(QWidget& window);
// Puts a dialog over the upper part of a window, so that what stands at its lower end is left in sight where there is
// room; at the same place each time.
void PlaceOverUpperPart(QWidget& dialog, const QWidget& window);

// A dialog whose question needs an answer. Closing it, by Escape or by the window manager, first asks whether the
// character is to be scrapped; a No leaves the dialog as it is.
class NeededDialog : public QDialog {
  public:
    static constexpr int kScrapped = 2;  // the result of a dialog that was closed without an answer

    explicit NeededDialog(QWidget* parent);

    // Asks the player whether to scrap the character. Without it the dialog is simply left.
    std::function<bool()> mayScrap;

    void reject() override;
};

// The number of a key from 1 to 9; 0 for any other.
int DigitOf(const QKeyEvent& event);

}  // namespace korvane::ui
