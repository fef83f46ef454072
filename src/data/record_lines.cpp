#include "data/record_lines.h"

#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"

namespace korvane {

std::string_view RecordLines::Next(std::string_view what) {
    ++line_;
    if (line_ > file_.lines())
        Reject(what, "the end of the file");
    return file_.line(line_);
}

std::string_view RecordLines::NextAfterLabel(std::size_t label, std::string_view what) {
    return AfterCharacters(Next(what), label);
}

Count RecordLines::NextCount(std::size_t label, std::string_view what) {
    const auto text = NextAfterLabel(label, what);
    try {
        return LenientCount(text);
    } catch (const RuleError&) {
        Reject(what, Concat("the number ", Quoted(text), ", which is out of range"));
    }
}

Count RecordLines::NextCountUpTo(int most, std::string_view what) {
    const auto count = NextCount(0, what);
    if (count > most)
        Reject(Concat(what, ", at most ", most), Concat(count));
    return count;
}

void RecordLines::Reject(std::string_view expected, std::string_view found) const {
    throw ParseError(file_.name(), line_, expected, found);
}

}  // namespace korvane
