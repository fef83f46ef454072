// Takes care that a question is answered only by what the player meant for it.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <vector>

namespace korvane::ui {

// Looks at all input of the program as long as it lives, and lets through what may act:
// - While the rules run, or a dialog asks, nothing but the dialog that asks. What was typed or clicked together with an
//   answer, before the next dialog is there, would else reach the windows behind, inside the rules.
// - No press within the double-click interval after a question came or was answered, by the clock and by the presses'
//   own times: it was meant for what stood there before.
// - No repetition of a key that is held down, where it would answer.
// A double-click interval of 0 takes the time out of it all.
class InputGuard : public QObject {
  public:
    InputGuard();

    // Runs a modal dialog until it is answered. Returns its result. Throws std::logic_error when it is open already.
    int Run(QDialog& dialog);

    // While one lives, rules run.
    class Working {
      public:
        explicit Working(InputGuard& guard) : guard_(guard) { ++guard_.working_; }
        ~Working() { --guard_.working_; }
        Working(const Working&) = delete;
        Working& operator=(const Working&) = delete;

      private:
        InputGuard& guard_;
    };
    // While one lives, the dialog asks.
    class Asking {
      public:
        Asking(InputGuard& guard, QWidget& dialog);
        ~Asking();
        Asking(const Asking&) = delete;
        Asking& operator=(const Asking&) = delete;

      private:
        InputGuard& guard_;
    };
    // Whether rules run, or the program is about to end: nothing may begin.
    bool working() const { return working_ > 0 || ended_; }
    // Ends the program, with its exit status; from now on no input acts, as what was pressed at once with the last
    // would.
    void EndProgram(int status);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Whether input for the widget may act at all.
    bool MayAct(const QWidget& widget) const;
    bool IsEarly(const QEvent& event) const;
    // Follows the keys as they reach the program's windows: the toolkit takes a repetition for a new press where the
    // window changed under it.
    void FollowKey(const QKeyEvent& event);
    // A question came, or was answered.
    void NoteChange();

    // The key that moved last.
    struct LastKey {
        int key = 0;
        bool down = false;
        bool repeats = false;
        quint64 time = 0;
    };

    int working_ = 0;
    bool ended_ = false;
    LastKey lastKey_;
    std::vector<QPointer<QWidget>> asking_;  // the last one asks
    QElapsedTimer sinceChange_;
    quint64 lastPress_ = 0;     // its own time, in milliseconds
    quint64 beforeChange_ = 0;  // that of the last one before the change
};

}  // namespace korvane::ui
