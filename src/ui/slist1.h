// A choice of several items of a list.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "character/player.h"
#include "ui/back_button.h"
#include "ui/input_guard.h"
#include "ui/odds_panel.h"
#include "ui/recent_lines.h"

namespace korvane::ui {

// A list that has no current item until the player moves to one.
class MarkList : public QListWidget {
  protected:
    void focusInEvent(QFocusEvent* event) override;
};

// The player marks items between the minimum and the maximum; Space marks the current item, Enter and a double click
// act as "OK". Where one is to be chosen, a click or an arrow moves the mark. Closing it acts as "Cancel".
class SLIST1 : public QDialog {
  public:
    SLIST1(QWidget* parent, InputGuard& guard);

    // No item is marked afterwards, and none is current. The window's title is that of its messages.
    void SetQuestion(const ListQuestion& question);
    // The marked items, counted from 1, ascending; none after "Cancel".
    std::vector<int> Marked() const;
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }
    RecentLines& recent() { return recent_; }

    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void LayOut();
    void ConnectAll();
    void Check();
    void Clear();
    void Find();
    void MarkAllContaining(const QString& text);
    void ShowCount();
    void ShowMessage(const QString& text);
    // Keeps the dialog within three quarters of the screen's height and half of its width.
    void LimitSize();

    InputGuard& guard_;
    RecentLines recent_;
    QLabel prompt_;
    int least_ = 1;
    int most_ = 1;
    QLabel chooseOne_;
    QWidget limits_;  // holds what follows
    QLineEdit minimum_;
    QLineEdit maximum_;
    QLabel count_;
    MarkList list_;
    QPushButton ok_;
    QPushButton cancel_;
    QPushButton selectAll_;
    QPushButton clear_;
    QPushButton find_;
    BackButton back_;
    OddsButton odds_;
};

}  // namespace korvane::ui
