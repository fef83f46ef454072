// The program's notices: once a month at the start, and from the menu.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <array>

namespace korvane::ui {

class KVNAbout : public QDialog {
  public:
    KVNAbout(const QString& programTitle, QWidget* parent);

  private:
    QLabel heading_;
    std::array<QPlainTextEdit, 4> notices_;
    QPushButton agree_;
};

}  // namespace korvane::ui
