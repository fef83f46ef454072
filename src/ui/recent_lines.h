// What has just happened, above a question about it.
#pragma once

#include <QLabel>
#include <QMessageBox>
#include <QMoveEvent>
#include <QWidget>
#include <array>
#include <span>
#include <string>

#include "ui/elided_label.h"

namespace korvane::ui {

// The last lines of the history, dimmed; the newest is shown whole, those before it in a line each. Hidden where there
// are none.
class RecentLines : public QWidget {
  public:
    static constexpr std::size_t kMost = 3;

    explicit RecentLines(QWidget* parent = nullptr);

    // Of these, the last ones are shown.
    void Show(std::span<const std::string> history);
    bool empty() const { return newest_.text().isEmpty(); }
    // All of them, for a screen reader.
    QString text() const;

  private:
    std::array<ElidedLabel, kMost - 1> before_;
    QLabel newest_;
};

// The same above a message box's own text.
void AddRecentLines(QMessageBox& box, std::span<const std::string> history);

// The same in a window of its own, beside a dialog whose size is told: above it, or below, or at a side; not at all
// where it would cover the dialog. It takes no input.
class RecentLinesAbove : public QObject {
  public:
    explicit RecentLinesAbove(QWidget& dialog);

    void Show(std::span<const std::string> history);

  protected:
    // Follows the dialog.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Place();

    QWidget& dialog_;
    QWidget window_;
    RecentLines lines_;
};

}  // namespace korvane::ui
