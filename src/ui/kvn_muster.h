// Mustering out: the player spends the benefit rolls, one press after another.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QTreeWidget>
#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "character/player.h"
#include "ui/back_button.h"
#include "ui/copy_list.h"
#include "ui/key_button.h"
#include "ui/odds_panel.h"

namespace korvane::ui {

// A row of a career's table: what its two columns give.
struct BenefitRow {
    QString cash;
    QString benefit;
};

// Stays open between the presses. Closing it is "Done". The keys 1 to 4 press the buttons.
class KVNMuster : public QDialog {
  public:
    explicit KVNMuster(QWidget* parent);

    // Called at each press of a button.
    std::function<void(const MusterPress&)> pressed;
    // Called when the player goes elsewhere, with a result of the way back.
    std::function<void(int result)> left;
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }

    void SetQuestion(const MusterQuestion& question);
    // What is left to spend and what it has brought, without a change to the buttons.
    void ShowState(std::string_view career, int rolls, int bonuses, std::span<const std::string> cash,
                   std::span<const std::string> benefits);
    // The rows of the career's table, by the roll, and what applies to the rolls.
    void SetTable(const std::vector<BenefitRow>& rows, const QString& modifiers);
    // What is lost by leaving now; empty for nothing.
    void SetForfeit(const QString& forfeit);
    // What the history has said since the dialog opened.
    void SetHistory(std::span<const std::string> lines);

    void reject() override;
    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void LayOut();
    void Press(MusterButton button);

    BackButton back_;
    OddsButton odds_;
    QLabel rolls_;
    QLabel bonuses_;
    QCheckBox gambler_;
    std::array<KeyButton, 4> buttons_;
    QLabel results_;
    QLabel forfeit_;
    QLabel modifiers_;
    QTreeWidget table_;
    CopyList cash_;
    CopyList benefits_;
    CopyList history_;
};

}  // namespace korvane::ui
