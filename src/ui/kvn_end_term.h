// The end of a term: on, out, elsewhere or all over again; and the options for the terms to come.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <array>
#include <string>
#include <vector>

#include "character/player.h"
#include "ui/back_button.h"
#include "ui/copy_list.h"
#include "ui/dialog.h"
#include "ui/key_button.h"
#include "ui/odds_panel.h"
#include "ui/option_boxes.h"
#include "ui/story_list.h"

namespace korvane::ui {

// The keys 1 to 4 press the buttons.
class KVNEndTerm : public NeededDialog {
  public:
    explicit KVNEndTerm(QWidget* parent);

    // Called with the boxes as soon as the player changes one.
    std::function<void(const Options&)> optionsChanged;

    void SetQuestion(const EndOfTermQuestion& question);
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }
    void SetSkills(const std::vector<std::string>& lines);
    void SetHistory(const CharacterRecord& character, const RaceRecord& race);
    EndOfTermAnswer Result() const { return {choice_, boxes_.Ticked()}; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void LayOut();

    BackButton back_;
    OddsButton odds_;
    QGroupBox options_;
    OptionBoxes boxes_;
    QLabel heading_;
    QLabel skillsLabel_;
    QLabel historyLabel_;
    CopyList skills_;
    StoryList history_;
    std::array<KeyButton, 4> buttons_;
    EndOfTermChoice choice_ = EndOfTermChoice::ReEnlist;
};

}  // namespace korvane::ui
