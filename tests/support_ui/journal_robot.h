// Lives a journal's life again at the real dialogs.
#pragma once

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "data/records.h"
#include "support_ui/robot.h"

namespace korvane::test {

// Answers each dialog by mouse and keyboard as the journal's next question was answered. A dialog that doesn't show
// what the journal says was asked fails the test.
class JournalRobot : public Robot {
  public:
    // The lines of a whole journal.
    explicit JournalRobot(const std::vector<std::string>& journal);

    // Whether all of the journal's questions were put.
    bool AllAnswered() const;
    // The kinds of questions that were put.
    const std::set<std::string>& kinds() const { return kinds_; }

  protected:
    void Respond(QWidget& dialog) override;

  private:
    using Line = nlohmann::ordered_json;

    void Answer(QWidget& dialog, const std::string& kind, const Line& line);
    void Choose(QWidget& dialog, const Line& line) const;
    void Select(QWidget& dialog, const Line& line) const;
    void Reply(QWidget& dialog, const Line& line, const QString& answer) const;
    void PickTable(QWidget& dialog, const Line& line) const;
    void EndTerm(QWidget& dialog, const Line& line) const;
    void Transfer(QWidget& dialog, const Line& line) const;
    void Muster(QWidget& dialog, const Line& line) const;
    // Presses the button by its key, or clicks on it; now this, now that.
    void Press(QWidget& dialog, int number, const QString& button) const;

    std::vector<Line> questions_;  // and the line of the end
    std::size_t next_ = 0;
    bool scrapping_ = false;
    std::set<std::string> kinds_;
};

// The text of a journal of the dice alone, for a replayer that only rolls. They come twice, as the first of them roll
// the next character too.
std::string DiceOf(const std::vector<std::string>& journal);

}  // namespace korvane::test
