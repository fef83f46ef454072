// The way back out of a question: a small button with a menu, and its keys.
#pragma once

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QToolButton>

#include "character/player.h"

namespace korvane::ui {

// How a dialog was left that was not answered: what the player wants instead.
inline constexpr int kWentBack = 3;
inline constexpr int kWentForward = 4;
inline constexpr int kWentToHistory = 5;
inline constexpr int kWentAway = 6;

// "Back" asks the last question again (Ctrl+Z); its menu leads forward again (Ctrl+Shift+Z), to any question of the
// history (Ctrl+H), and out of a life whose journal is kept (Ctrl+L). It leaves the dialog with one of the results
// above.
class BackButton : public QToolButton {
  public:
    explicit BackButton(QDialog& dialog);

    // Enables what the player may do; nothing without steps.
    void Offer(const LifeSteps* steps);

  private:
    QAction* Add(const QString& text, const QKeySequence& keys, int result);

    QDialog& dialog_;
    QMenu menu_;
    QAction* back_;
    QAction* forward_;
    QAction* history_;
    QAction* leave_;
};

}  // namespace korvane::ui
