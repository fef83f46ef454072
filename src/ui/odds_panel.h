// What follows from each answer, under a question: a panel that folds away, and the button that does it.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QToolButton>
#include <QTreeWidget>
#include <functional>

#include "play/odds_table.h"

namespace korvane::ui {

// Answers by figures. Digits and letters are left to the dialog; Return answers nothing.
class OddsTree : public QTreeWidget {
  public:
    using QTreeWidget::QTreeWidget;

    void Show(const play::OddsTable& table);
    // Of all its columns.
    int WholeWidth() const;
    // As high as so many rows need in that width, at most eight.
    void TakeRows(int rows, int width);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

class OddsPanel : public QWidget {
  public:
    explicit OddsPanel(QWidget* parent);

    // For a question with so many answers, whose odds are on the way.
    void Await(int answers);
    void Show(const play::OddsTable& table);
    void Fail(const QString& why) { Say(tr("The odds can't be reckoned: %1").arg(why)); }
    // In place of odds.
    void Say(const QString& text);

    // It asks for no more.
    void SetMostWidth(int most) { most_ = most; }
    // The width doesn't hang on what is shown: answers mustn't move while somebody aims at them.
    QSize sizeHint() const override;

  private:
    int most_ = 900;
    QLabel judgements_;
    OddsTree table_;
    QLabel note_;
    bool told_ = false;  // a screen reader knows that there are figures
};

// "Odds" (Ctrl+D) unfolds the panel under its dialog, which grows by it. The panel is made when it is unfolded first.
class OddsButton : public QToolButton {
  public:
    explicit OddsButton(QDialog& dialog);

    // Called when the player folds or unfolds the panel.
    std::function<void(bool open)> folded;
    // Makes room for the panel, or takes it back; for a dialog that lays itself out. Else its layout takes the panel.
    std::function<void()> fit;

    // Folds or unfolds it without being asked.
    void Fold(bool open);
    // There are no odds here.
    void Withdraw();
    // Made when it is asked for first.
    OddsPanel& panel();
    bool IsOpen() const { return panel_ != nullptr && !panel_->isHidden(); }
    // Shows in the panel what changes it, and lets the dialog fit.
    void Change(const std::function<void(OddsPanel& panel)>& change);

  private:
    void MakePanel();
    void Fit();

    QDialog& dialog_;
    OddsPanel* panel_ = nullptr;
    QSize room_ = {0, 0};  // by which the dialog has grown
};

}  // namespace korvane::ui
