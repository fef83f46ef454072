// The skill tables of the career and the assignment, side by side: the player picks the one to roll on.
#pragma once

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
#include "ui/recent_lines.h"

namespace korvane::ui {

// The keys 1 to 6 press the buttons of the columns.
class KVNTables : public NeededDialog {
  public:
    explicit KVNTables(QWidget* parent);

    void SetQuestion(const TableQuestion& question);
    void SetHeldSkills(const std::vector<std::string>& lines);
    // The column that was pressed, counted from 1.
    int picked() const { return picked_; }
    BackButton& back() { return back_; }
    OddsButton& odds() { return odds_; }
    RecentLines& recent() { return recent_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Column {
        KeyButton* button;
        CopyList* rows;
    };
    static constexpr int kColumns = 6;

    Column MakeColumn(int number);
    void ShowColumn(int number, const TableColumn& content);

    std::array<Column, kColumns> columns_{};
    RecentLines recent_;
    BackButton back_;
    OddsButton odds_;
    QLabel instruction_;
    QLabel heldLabel_;
    CopyList held_;
    int picked_ = 0;
};

}  // namespace korvane::ui
