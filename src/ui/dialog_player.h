// The player at the screen: puts each question as a modal dialog and waits for the answer.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "ui/input_guard.h"
#include "ui/kvn_end_term.h"
#include "ui/kvn_muster.h"
#include "ui/kvn_tables.h"
#include "ui/kvn_transfer.h"
#include "ui/odds_desk.h"
#include "ui/slist1.h"
#include "ui/spickbox.h"

namespace korvane::ui {

// Dialogs are made on first use and used again. What the player closes without an answer throws CharacterScrapped, once
// confirmed.
class DialogPlayer : public Player {
  public:
    // The dialogs belong to `window`; `session` tells what they show beside their question and is never changed.
    DialogPlayer(const Session& session, QWidget& window, InputGuard& guard);

    // The steps back and forward that the dialogs offer; none: none.
    const LifeSteps* steps = nullptr;
    // Lets the player choose a question of the history, while the dialog is away; nothing: back to the question.
    std::function<std::optional<std::size_t>()> chooseMoment;
    // Where the odds of its questions come from.
    OddsDesk& odds() { return odds_; }
    // Called before a dialog is shown, so that the window behind it shows what has happened.
    std::function<void()> beforeDialog;
    // Called as soon as the player changes a box in the end-of-term dialog.
    std::function<void(const Options&)> optionsChanged;

    // Hides the dialog that stays open between its presses; for the end of a generation, whatever ended it.
    void Finish();

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    // What is shown behind a dialog is brought up to date before it comes.
    void Announce();
    // The dialog, made if need be, before the window that it stands before.
    template <typename Dialog>
    Dialog& Prepare(std::unique_ptr<Dialog>& dialog);
    // Shows the last lines of the history above the dialog's question.
    template <typename Dialog>
    void Remind(Dialog& dialog) const;
    // Runs a dialog that needs an answer. Throws CharacterScrapped when there is none.
    void RunNeeded(NeededDialog& dialog);
    // Runs a dialog, by a function that gives its result, until that is no wish to look for a question in the history.
    // Throws WentBack or WentForward where the player goes elsewhere.
    int RunWithSteps(const std::function<int()>& run);
    // One press; nothing when the program ends.
    std::optional<MusterPress> RunMuster(KVNMuster& dialog);
    // The rows of the career's benefits, by the roll.
    std::vector<BenefitRow> BenefitRows() const;
    QString Title() const;
    // The window that a message stands before.
    QWidget* Front() const;
    std::vector<std::string> SkillTexts() const;
    std::span<const std::string> HistoryTexts(std::size_t from = 0) const;

    const Session& session_;
    QWidget& window_;
    InputGuard& guard_;
    // This owns the dialogs; the window, their parent, outlives it. Before those that may become its children:
    std::unique_ptr<KVNMuster> muster_;
    std::unique_ptr<SPICKBOX> choice_;
    std::unique_ptr<SLIST1> list_;
    std::unique_ptr<KVNTables> tables_;
    std::unique_ptr<KVNEndTerm> endTerm_;
    std::unique_ptr<KVNTransfer> transfer_;
    OddsDesk odds_;
    bool mayAbandon_ = false;  // "Done" was pressed, and the question of the unused rolls comes
};

}  // namespace korvane::ui
