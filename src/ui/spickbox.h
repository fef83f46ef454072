// One choice among up to 24 alternatives: a button for each.
#pragma once

#include <QLabel>
#include <span>
#include <vector>

#include "character/player.h"
#include "ui/back_button.h"
#include "ui/dialog.h"
#include "ui/key_button.h"
#include "ui/odds_panel.h"
#include "ui/recent_lines.h"

namespace korvane::ui {

// The keys 1 to 9 press the first nine buttons, A to O the others.
class SPICKBOX : public NeededDialog {
  public:
    explicit SPICKBOX(QWidget* parent);

    void SetQuestion(const ChoiceQuestion& question);
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }
    RecentLinesAbove& recent() { return recent_; }
    // The alternative that was chosen, counted from 1.
    int picked() const { return picked_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddButton();
    std::span<KeyButton* const> Shown() const { return std::span(buttons_).first(static_cast<std::size_t>(shown_)); }
    // The width of the longest text, in characters of which each takes 100 twips, decides over all widths.
    void Place();
    void Fit();

    RecentLinesAbove recent_;
    BackButton back_;
    OddsButton odds_;
    int longest_ = 0;  // text, in characters
    QLabel title_;     // a narrow frame may cut the window's own
    std::vector<KeyButton*> buttons_;
    int shown_ = 0;
    int picked_ = 0;
};

}  // namespace korvane::ui
