// The lines of a data file, read strictly in order.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "base/numbers.h"
#include "base/text_file.h"

namespace korvane {

class RecordLines {
  public:
    explicit RecordLines(const TextFile& file) : file_(file) {}

    // The next line. `what` names it for the error when the file has ended: FileError.
    std::string_view Next(std::string_view what);
    // The line just read.
    std::string_view Current() const { return file_.line(line_); }
    // The next line without its label of `label` characters.
    std::string_view NextAfterLabel(std::size_t label, std::string_view what);
    // The next line read as a number, leniently, after a label; FileError when it leaves 16 bits.
    Count NextCount(std::size_t label, std::string_view what);
    // A count of lines to come, not above `most`.
    Count NextCountUpTo(int most, std::string_view what);
    void SkipHeading(std::string_view what) { Next(what); }

    // Fills the rows from the next lines, from the given first slot.
    template <typename Rows>
    void Fill(Rows& rows, int first, int last, std::string_view what) {
        for (int i = first; i <= last; ++i)
            rows.at(static_cast<std::size_t>(i)) = Next(what);
    }

    // Throws the FileError for the line just read.
    [[noreturn]] void Reject(std::string_view expected, std::string_view found) const;

  private:
    const TextFile& file_;
    int line_ = 0;  // of the line just read, from 1
};

}  // namespace korvane
