#include "character/seed.h"

#include <algorithm>
#include <charconv>

#include "base/digest.h"
#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"

namespace korvane {

namespace {

// Whether a text is a whole number as people write one, of whatever size.
bool IsWholeNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::uint64_t NumberOfWord(std::string_view word) {
    const auto digest = Sha256(word);
    std::uint64_t number = 0;
    for (std::size_t i = sizeof number; i-- > 0;)
        number = number << 8U | digest.at(i);
    return number;
}

}  // namespace

Seed::Seed(std::string_view given) : given_(given), isNumber_(IsWholeNumber(given)) {
    if (IsBlank(given))
        throw UsageError("a seed is a word or a whole number; this one is empty");
    if (!isNumber_) {
        value_ = NumberOfWord(given);
        return;
    }
    const auto* const end = given.data() + given.size();
    if (const auto read = std::from_chars(given.data(), end, value_); read.ec != std::errc() || read.ptr != end)
        throw UsageError(Concat("the seed ", Quoted(given), " is no whole number from 0 to 18446744073709551615"));
}

}  // namespace korvane
