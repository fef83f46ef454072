#include "data/plain_lines.h"

#include <charconv>

#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"

namespace korvane {

bool PlainLines::AtEnd() const {
    return line_ > file_.lines();
}

void PlainLines::Advance() {
    do {
        ++line_;
        current_ = AtEnd() ? std::string_view() : Trim(file_.line(line_));
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
    Reject(expected, AtEnd() ? "the end of the file" : Quoted(current_));
}

void PlainLines::Reject(std::string_view expected, std::string_view found) const {
    throw ParseError(file_.name(), line_, expected, found);
}

}  // namespace korvane
