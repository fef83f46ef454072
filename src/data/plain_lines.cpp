#include "data/plain_lines.h"

#include <charconv>

#include "base/error.h"
#include "base/text.h"

namespace korvane {

bool PlainLines::AtEnd() const {
    return line_ > static_cast<int>(file_.lines.size());
}

void PlainLines::Advance() {
    do {
        ++line_;
        current_ = AtEnd() ? std::string_view() : Trim(file_.lines[static_cast<std::size_t>(line_ - 1)]);
    } while (!AtEnd() && (current_.empty() || current_.starts_with('#')));
}

void PlainLines::Take(std::string_view wanted) {
    if (AtEnd() || !EqualsIgnoringCase(current_, wanted))
        Reject(Concat("the line \"", wanted, "\""));
    Advance();
}

int PlainLines::Number(std::string_view piece, int least, int most, std::string_view expected) const {
    const auto digits = Trim(piece);
    const auto* const end = digits.data() + digits.size();
    int number = 0;
    const auto read = std::from_chars(digits.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < least || number > most)
        Reject(expected);
    return number;
}

void PlainLines::Reject(std::string_view expected) const {
    Reject(expected, AtEnd() ? "the end of the file" : Concat("\"", current_, "\""));
}

void PlainLines::Reject(std::string_view expected, std::string_view found) const {
    throw FileError(file_.name, line_, expected, found);
}

}  // namespace korvane
