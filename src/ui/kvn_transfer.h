// The next career, or the end of all careers.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>

#include "character/player.h"
#include "ui/back_button.h"
#include "ui/choice_combo.h"
#include "ui/dialog.h"
#include "ui/odds_panel.h"

namespace korvane::ui {

// "Accept" needs a career; without an assignment the career's first one is meant.
class KVNTransfer : public NeededDialog {
  public:
    explicit KVNTransfer(QWidget* parent);

    // No career is chosen afterwards.
    void SetQuestion(const TransferQuestion& question);
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }
    // Nothing for "End Career".
    std::optional<TransferAnswer> Result() const;
    // What the transfer costs, in a sentence.
    void SetCost(const QString& cost) { cost_.setText(cost); }

    // Called when a career is chosen, to list its assignments. An exception of it must not pass through here.
    std::function<void(const QString& career)> careerChosen;
    void SetAssignments(const QStringList& names);

  private:
    void LayOut();

    QLabel heading_;
    QLabel notice_;
    QLabel cost_;
    QLabel description_;  // of the chosen career
    QLabel careerLabel_;
    QLabel assignmentLabel_;
    ChoiceCombo career_;
    ChoiceCombo assignment_;
    BackButton back_;
    OddsButton odds_;
    QPushButton accept_;
    QPushButton endCareer_;
    bool ended_ = false;
};

}  // namespace korvane::ui
