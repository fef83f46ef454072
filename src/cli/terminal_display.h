// What a terminal shows of a life: wrapped lines, the history as it comes, dice and checks.
#pragma once

#include <ostream>
#include <string_view>

#include "character/KVNDeclare.h"
#include "output/journal/tape.h"

namespace korvane::cli {

// Writes lines, wrapped at words to a width in characters; 0 for as they are. What follows a line that begins with
// blanks is set in as far.
class WrappedOut {
  public:
    WrappedOut(std::ostream& out, int width) : out_(out), width_(width) {}
    void Write(std::string_view text);
    void Flush() { out_ << std::flush; }

  private:
    void WriteLine(std::string_view line);

    std::ostream& out_;
    int width_;
};

// Writes what happens, as it comes: the history, dice and checks.
class TerminalDisplay : public Display {
  public:
    TerminalDisplay(const Session& session, WrappedOut& out) : session_(session), out_(out) {}

    // Writes nothing for a while; what happens then is written later only where `all` says so.
    void Hush(bool all = false);
    void GoOn();
    void ShowDice(const journal::Line& line);
    void ShowCheck(const RolledCheck& rolled);
    void HistoryChanged() override;

  private:
    const Session& session_;
    WrappedOut& out_;
    std::size_t shown_ = 0;
    bool hushed_ = false;
    bool all_ = false;
};

}  // namespace korvane::cli
