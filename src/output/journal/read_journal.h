// Reads a journal back onto a tape.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "output/journal/tape.h"

namespace korvane::journal {

// The engine asked something else than the journal holds.
class Divergence : public std::runtime_error {
  public:
    // `line` is that of the journal.
    Divergence(int line, const std::string& message) : std::runtime_error(message), line_(line) {}
    int line() const { return line_; }

  private:
    int line_;
};

// The journal itself is malformed, or ends early.
class JournalError : public ParseError {
  public:
    using ParseError::ParseError;
};

struct Journal {
    std::string name;               // for messages
    Tape tape;                      // to the first line that can't be read: an odd one
    std::size_t bytes = 0;          // of the file, up to the end of the last line that could be taken
    std::vector<std::size_t> ends;  // in bytes of the file: of the start, and of each line of the tape that isn't odd
    bool goesOn = false;            // whether something follows the end of the life
    bool isCut = false;             // whether the last line has no line end: who wrote it was stopped
    std::optional<std::string> digest = {};  // of the journal as it stands, but for its own digest; where it has one

    // Whether a line that can't be taken was written whole: it is no accident of the writing.
    bool IsDamaged() const;
};

// Reads a journal of version 1 or 2, in UTF-8. A line that can't be taken stands on the tape as an odd one, to be told
// when a life comes to it, and is the last. Throws JournalError for a malformed first line.
Journal ReadJournal(std::string name, std::string_view text);

// The engine asked something where the journal holds something else, at that place of its tape.
Divergence DivergenceAt(const std::string& name, std::size_t place, std::string_view held, std::string_view asked);
// Refuses a line that the engine's request met. Throws JournalError when only its answer can't be taken, else
// Divergence.
[[noreturn]] void RefuseLine(const std::string& name, std::size_t place, const Line& held, const std::string& asked);

}  // namespace korvane::journal
