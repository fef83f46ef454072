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
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "ui/choice_combo.h"
#include "ui/copy_list.h"
#include "ui/dialog_player.h"
#include "ui/option_boxes.h"

namespace korvane {

// Routes each control to the operation that owns it. Changes that the rules announce are collected and shown before the
// next dialog, and when the rules are done.
class KVNGen : public QMainWindow, public Display {
  public:
    KVNGen(Session& session, ui::InputGuard& guard);

    // The player whose dialogs belong to this window.
    Player& player() { return player_; }
    // Called with the finished character, still in the session, when a life has run to its end.
    std::function<void()> characterFinished;

    // Fills the window when it is shown first: the title, the races. Throws FileError for a malformed rule file.
    void Load();

    void HistoryChanged() override { changes_.history = true; }
    void SkillsChanged() override { changes_.skills = true; }
    void SummaryChanged() override { changes_.summary = true; }
    void SelectionChanged() override { changes_.selection = true; }
    void OptionsChanged() override { changes_.options = true; }
    void ControlsLocked(bool locked) override;

    // Shows what has changed.
    void Refresh();

  private:
    void SetUpMenu();
    void SetUpSelection();
    void SetUpStatistics();
    void SetUpDetails();
    void SetUpHandlers();
    void LayOut();

    void SelectRace();
    void Roll();
    void StartCareer();
    void RunToTheEnd();
    void ScrapAndRestart();
    void ShowAbout();
    void TakeOptions(const Options& options);

    // Carries out what a control asks for, unless the rules run already: then nothing acts but the dialog that asks.
    void Do(const std::function<void()>& action);
    // Carries out a part of that. An error is shown and goes no further: a rule's error ends what was asked
    // for, any other the program.
    void Guard(const std::function<void()>& action);
    void EndProgram(const QString& error);

    void ShowSelection();
    void ShowLabels();
    void ShowDetails();
    void EnableStart();
    void Say(const QString& text);

    // A character whose life has ended: its skills, history and details stay in view while the statistics are the next
    // one's already.
    struct KeptCharacter {
        CharacterRecord record;
        std::vector<std::string> details;
    };
    void KeepCharacter();
    const CharacterRecord& ShownCharacter() const { return kept_ ? kept_->record : session_.character; }

    struct Changes {
        bool history = false;
        bool skills = false;
        bool summary = false;
        bool selection = false;
        bool options = false;
    };

    Session& session_;
    ui::InputGuard& guard_;
    ui::DialogPlayer player_;
    Changes changes_;
    bool locked_ = false;
    bool afterError_ = false;            // the character is what an error left
    std::optional<KeptCharacter> kept_;  // the last one, shown until the next start

    // The boxes come before what stands in them.
    QSplitter splitter_;
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
    ui::CopyList history_;
    ui::OptionBoxes options_;
    QLabel age_;
    QLabel rank_;
    QLabel allies_;
    QLabel enemies_;
    QLabel contacts_;
    QLabel rivals_;
    QLabel medicalDebt_;
    ui::CopyList details_;
    QLabel status_;
};

}  // namespace korvane
