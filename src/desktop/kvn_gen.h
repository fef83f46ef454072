// The main window: race, career and characteristics are chosen here, the career is started, and the character is read.
#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "desktop/generation_controller.h"
#include "desktop/journal_keeper.h"
#include "ui/choice_combo.h"
#include "ui/copy_list.h"
#include "ui/dialog_player.h"
#include "ui/elided_label.h"
#include "ui/option_boxes.h"
#include "ui/story_list.h"

namespace korvane {

// Routes each control to the controller and shows what has changed: before the next dialog, and when what was asked for
// is done.
class KVNGen : public QMainWindow {
  public:
    // The window's player answers, and it shows what happens; the session's seams are set. The dice fall where no seed
    // is used.
    KVNGen(Session& session, ui::InputGuard& guard, Dice& dice);

    Player& player() { return player_; }
    Display& display() { return controller_; }
    play::RecordedLife& life() { return controller_.life(); }
    // Called with the finished character, still in the session, when a life has run to its end. Returns whether the
    // player goes back into the life.
    std::function<bool()> characterFinished;
    // Called to export a character that was finished before, in the session for that long.
    std::function<void()> exportAgain;

    // Fills the window when it is shown first: the title, the races. Throws FileError for a malformed rule file.
    void Load();
    // From now on each life is kept in a file, the first in this one; an unfinished journal that is there is gone on
    // with.
    void KeepJournalIn(const std::filesystem::path& path);
    // Puts the controls into the state in which a character is set up.
    void Unlock() { Refresh(); }
    // Shows what has changed.
    void Refresh();

  private:
    void SetUpMenu();
    void SetUpSelection();
    void SetUpStatistics();
    void SetUpDetails();
    void SetUpHandlers();
    void LayOut();

    void StartCareer();
    // Lives a life by the controller, and says how it ended.
    void Live(const std::function<LifeEnd(const play::RecordedLife::Finished& finished)>& live);
    void KeepJournal();
    void TryToKeepIn(const std::filesystem::path& path);
    void KeepIn(const std::filesystem::path& path);
    void Keep(std::unique_ptr<JournalKeeper> keeper);
    // Goes on with a journal's life; an unfinished one is kept on in its file.
    void GoOn(const journal::Journal& journal, const std::filesystem::path& path);
    play::KeptJournal::Report ReportOfKeeper();
    // Tells that something stopped the generation.
    void TellStopped(const QString& error);
    void OpenJournal();
    void SaveJournal();
    void ExportEnded();
    // Lets the player choose a question by the line of the history that followed it.
    std::optional<std::size_t> ChooseMoment();
    // The question that a row of the history came from.
    std::optional<std::size_t> MomentOf(int row) const;
    void ShowAbout();
    // Carries out what a control asks for, unless the rules run already: then nothing acts but the dialog that asks.
    void Do(const std::function<void()>& action);
    // Carries out a part of that. An error is shown and goes no further: a rule's error ends what was asked for, any
    // other the program.
    void Guard(const std::function<void()>& action);
    void EndProgram(const QString& error);

    void ShowSelection();
    void ShowState();
    void ShowLabels();
    void ShowDetails();
    // What is said of a finished character.
    QString WordsAtTheEnd() const;
    void Say(const QString& text);

    Session& session_;
    ui::InputGuard& guard_;
    ui::DialogPlayer player_;
    GenerationController controller_;
    std::unique_ptr<JournalKeeper> keeper_;
    // The boxes come before what stands in them.
    QSplitter splitter_;
    QLabel next_;     // whose the left column is
    QLabel heading_;  // whose all the rest is
    QGroupBox selectCareer_;
    QGroupBox statistics_;
    QGroupBox optionsGroup_;
    QGroupBox detailsGroup_;

    ui::ChoiceCombo race_;
    ui::ChoiceCombo career_;
    ui::ChoiceCombo assignment_;
    ui::CopyList characteristics_;
    QPushButton roll_;
    QRadioButton roll3Drop1_;
    QRadioButton true2D_;
    QPushButton startCareer_;
    QPushButton scrapAndRestart_;
    ui::CopyList skills_;
    ui::StoryList history_;
    ui::OptionBoxes options_;
    QLabel age_;
    QLabel rank_;
    QLabel allies_;
    QLabel enemies_;
    QLabel contacts_;
    QLabel rivals_;
    QLabel medicalDebt_;
    ui::CopyList details_;
    ui::ElidedLabel status_;
};

}  // namespace korvane
