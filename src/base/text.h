// Text helpers. Texts are UTF-8; where a rule counts characters, characters are counted, not bytes.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/numbers.h"

namespace korvane {

// The text without leading and trailing blanks.
std::string_view Trim(std::string_view text);
bool IsBlank(std::string_view text);

// Comparisons without regard to the case of the letters a to z.
std::string Upper(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool BeginsIgnoringCase(std::string_view text, std::string_view beginning);
bool EndsIgnoringCase(std::string_view text, std::string_view ending);
// Whether `a` sorts before `b`.
bool LessIgnoringCase(std::string_view a, std::string_view b);

// The number of characters, the text after the first `count` characters (empty when there are no more), and the first
// `count` characters.
std::size_t CharacterCount(std::string_view text);
std::string_view AfterCharacters(std::string_view text, std::size_t count);
std::string_view FirstCharacters(std::string_view text, std::size_t count);
// The 1-based character position of the first `mark`; 0 when there is none.
std::size_t CharacterPosition(std::string_view text, char mark);

// The letters a to z of the text, in either case, in their order.
std::string LettersOnly(std::string_view text);

// The number at the text's beginning: blanks are skipped anywhere, a sign, decimals and an exponent are taken, reading
// ends at the first character that can't continue the number. No number gives 0, one beyond a double an infinity.
double LenientNumber(std::string_view text);
// The same, rounded to a whole number, halves to even. Throws RuleError (overflow) beyond 16 bits.
Count LenientCount(std::string_view text);
// A whole number with an optional sign and blanks around it; throws RuleError (type) for anything else.
Count StrictCount(std::string_view text);

// The parts of the text before and after the first `mark`; without one, the whole text and nothing.
std::pair<std::string_view, std::string_view> SplitFirst(std::string_view text, std::string_view mark);
// The pieces between the marks, from left to right; empty pieces are kept.
std::vector<std::string_view> SplitAll(std::string_view text, char mark);

// The amount rounded to a whole number, in groups of three digits joined by ","; zero has no digits at all.
std::string FormatThousands(double amount);
std::string FormatWhole(std::int64_t whole);
template <std::integral Whole>
std::string FormatThousands(Whole amount) {
    return FormatWhole(amount);
}
template <typename Stored, typename Wide>
std::string FormatThousands(Checked<Stored, Wide> amount) {
    return FormatWhole(Wide{amount});
}

// The shortest decimal form without an exponent, as "2500" or "0.5".
std::string ShortestNumber(float number);

// Appends texts and whole numbers to a text.
template <typename Text, typename Piece>
void AppendPiece(Text& to, const Piece& piece) {
    if constexpr (std::is_array_v<Piece>) {
        to.append(std::string_view(piece, std::size(piece) - 1));  // a literal
    } else if constexpr (std::convertible_to<const Piece&, std::string_view>) {
        to.append(std::string_view(piece));
    } else {
        static_assert(!std::is_same_v<Piece, char> && !std::is_same_v<Piece, bool>, "neither is a number");
        std::array<char, 24> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), piece + 0).ptr;
        to.append(digits.data(), end);
    }
}
template <typename Text, typename... Pieces>
void AppendAll(Text& to, const Pieces&... pieces) {
    (AppendPiece(to, pieces), ...);
}
template <typename... Pieces>
std::string Concat(const Pieces&... pieces) {
    std::string text;
    AppendAll(text, pieces...);
    return text;
}

// "one, two, three".
template <typename Texts>
std::string Listed(const Texts& texts) {
    std::string list;
    for (const std::string_view text : texts)
        AppendAll(list, list.empty() ? "" : ", ", Trim(text));
    return list;
}

}  // namespace korvane
