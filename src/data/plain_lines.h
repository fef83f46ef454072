// The lines of a data file that players write freely: blank lines and comments, which begin with "#", are skipped, and
// blanks around a line don't count.
#pragma once

#include <string_view>

#include "base/text_file.h"

namespace korvane {

class PlainLines {
  public:
    // Stands on the first line.
    explicit PlainLines(const TextFile& file) : file_(file) { Advance(); }

    bool AtEnd() const;
    // The line on which this stands; empty at the end.
    std::string_view Current() const { return current_; }
    void Advance();
    // Steps over the line, which must be `wanted`, in any case: FileError.
    void Take(std::string_view wanted);
    // The whole number that a piece of the current line is, from `least` to `most`; FileError for anything else.
    int Number(std::string_view piece, int least, int most, std::string_view expected) const;

    // Throws the FileError for the current line, which was found where something else was expected.
    [[noreturn]] void Reject(std::string_view expected) const;
    [[noreturn]] void Reject(std::string_view expected, std::string_view found) const;

  private:
    const TextFile& file_;
    int line_ = 0;  // from 1
    std::string_view current_;
};

}  // namespace korvane
