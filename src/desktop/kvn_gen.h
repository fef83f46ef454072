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
#include "desktop/life_journals.h"
#include "ui/choice_combo.h"
#include "ui/copy_list.h"
#include "ui/dialog_player.h"
#include "ui/elided_label.h"
#include "ui/life_view.h"
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
    void KeepJournalIn(const std::filesystem::path& path) {
        Do([&] { journals_.KeepIn(path); });
    }
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
    void SetUpPlayer();
    void LayOut();
    // The next character's column, and the panes of all the rest.
    QWidget* LeftColumn();
    QWidget* Panes();
    // Stands at a line of the history.
    void GoToLine(int line);
    // The size that the window opens with.
    QSize UsualSize() const;

    void StartCareer();
    // Lives a life by the controller, and says how it ended.
    void Live(const std::function<LifeEnd(const play::RecordedLife::Finished& finished)>& live);
    // Tells that something stopped the generation.
    void TellStopped(const QString& error);
    void ExportEnded();
    // Lets the player choose a question by the line of the history that followed it.
    std::optional<std::size_t> ChooseQuestion();
    // Shows what each career holds for the character that waits for its start, and takes over what is chosen.
    void CompareCareers();
    // Whether what there is of the character is what an error left, which is told.
    bool HasFailed();
    // Rolls the home world of the finished character in view anew, else of the one that waits for its start.
    void RollHomeWorldAnew();
    // Does something that only looks at a life; what stands in its way is told.
    void Look(const std::function<void()>& look);
    // Lives the finished character's life anew from a term on that the player chooses.
    void LiveAnother();
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
    LifeJournals journals_;
    Display nobody_;  // of lives that are looked at beside
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
    ui::LifeView life_;
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
