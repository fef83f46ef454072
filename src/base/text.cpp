#include "base/text.h"

#include <algorithm>
#include <cmath>

#include "base/encoding.h"

namespace korvane {

namespace {

constexpr char UpperLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr bool SameLetter(char a, char b) {
    return UpperLetter(a) == UpperLetter(b);
}

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Whether the byte begins a character (it isn't a continuation byte of UTF-8).
constexpr bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

// The byte position at which the character with the 0-based number `count` begins.
std::size_t BytePosition(std::string_view text, std::size_t count) {
    std::size_t seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (BeginsCharacter(text[i]) && seen++ == count)
            return i;
    return text.size();
}

// The characters of a number at the beginning of a text without blanks, in the form that the standard library reads.
std::string NumberText(std::string_view text) {
    std::string dense;
    for (const char c : text)
        if (c != ' ' && c != '\t')
            dense += c;
    std::size_t end = 0;
    const auto skip_sign = [&] {
        if (end < dense.size() && (dense[end] == '+' || dense[end] == '-'))
            ++end;
    };
    const auto skip_digits = [&] {
        const auto begin = end;
        while (end < dense.size() && IsDigit(dense[end]))
            ++end;
        return end - begin;
    };
    skip_sign();
    auto digits = skip_digits();
    if (end < dense.size() && dense[end] == '.') {
        ++end;
        digits += skip_digits();
    }
    if (digits == 0)
        return "0";
    if (end < dense.size() && UpperLetter(dense[end]) == 'E') {
        const auto before_exponent = end++;
        skip_sign();
        if (skip_digits() == 0)
            end = before_exponent;
    }
    dense.resize(end);
    return dense;
}

}  // namespace

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsBlank(std::string_view text) {
    return text.empty() || (text[0] == ' ' && text.find_first_not_of(' ') == std::string_view::npos);
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), UpperLetter);
    return upper;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, SameLetter);
}

bool BeginsIgnoringCase(std::string_view text, std::string_view beginning) {
    return EqualsIgnoringCase(text.substr(0, beginning.size()), beginning);
}

bool EndsIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && EqualsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
    const auto less = [](char x, char y) {
        return static_cast<unsigned char>(UpperLetter(x)) < static_cast<unsigned char>(UpperLetter(y));
    };
    return std::ranges::lexicographical_compare(a, b, less);
}

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, BeginsCharacter));
}

std::string_view AfterCharacters(std::string_view text, std::size_t count) {
    return text.substr(BytePosition(text, count));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    return text.substr(0, BytePosition(text, count));
}

std::size_t CharacterPosition(std::string_view text, char mark) {
    const auto position = text.find(mark);
    return position == std::string_view::npos ? 0 : CharacterCount(text.substr(0, position)) + 1;
}

std::string LettersOnly(std::string_view text) {
    std::string letters;
    std::ranges::copy_if(text, std::back_inserter(letters),
                         [](char c) { return UpperLetter(c) >= 'A' && UpperLetter(c) <= 'Z'; });
    return letters;
}

double LenientNumber(std::string_view text) {
    // Nearly all numbers in the rules are a digit and a plus sign.
    if (text.size() == 2 && IsDigit(text[0]) && text[1] == '+')
        return text[0] - '0';
    const auto number = NumberText(text);
    const auto begin = number.data() + (number.front() == '+' ? 1 : 0);
    double value = 0;
    const auto outcome = std::from_chars(begin, number.data() + number.size(), value);
    if (outcome.ec != std::errc::result_out_of_range)
        return value;
    const bool tiny = number.find_last_of('-') != std::string::npos && number.find_last_of('-') > 0;
    const double huge = number.front() == '-' ? -HUGE_VAL : HUGE_VAL;
    return tiny ? 0 : huge;
}

Count LenientCount(std::string_view text) {
    const double whole = std::nearbyint(LenientNumber(text));
    if (std::abs(whole) > 1e9)
        throw RuleError(RuleError::Kind::Overflow, "the number " + Quoted(Trim(text)) + " is out of range");
    return static_cast<int>(whole);
}

Count StrictCount(std::string_view text) {
    const auto number = Trim(text);
    const auto digits = number.substr(!number.empty() && (number[0] == '+' || number[0] == '-') ? 1 : 0);
    if (digits.empty() || !std::ranges::all_of(digits, IsDigit))
        throw RuleError(RuleError::Kind::Type, Quoted(text) + " is not a whole number");
    int value = 0;
    const auto outcome = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (outcome.ec == std::errc::result_out_of_range)
        throw RuleError(RuleError::Kind::Overflow, "the number " + Quoted(number) + " is out of range");
    return number[0] == '-' ? -value : value;
}

std::pair<std::string_view, std::string_view> SplitFirst(std::string_view text, std::string_view mark) {
    const auto position = text.find(mark);
    if (position == std::string_view::npos)
        return {text, {}};
    return {text.substr(0, position), text.substr(position + mark.size())};
}

std::vector<std::string_view> SplitAll(std::string_view text, char mark) {
    std::vector<std::string_view> pieces;
    for (auto end = text.find(mark); end != std::string_view::npos; end = text.find(mark)) {
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.push_back(text);
    return pieces;
}

std::string FormatThousands(double amount) {
    return FormatWhole(std::llround(amount));
}

std::string FormatWhole(std::int64_t whole) {
    if (whole == 0)
        return {};
    auto digits = std::to_string(std::llabs(whole));
    for (auto place = static_cast<int>(digits.size()) - 3; place > 0; place -= 3)
        digits.insert(static_cast<std::size_t>(place), ",");
    return whole < 0 ? "-" + digits : digits;
}

std::string ShortestNumber(float number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr;
    return {digits.data(), end};
}

}  // namespace korvane
