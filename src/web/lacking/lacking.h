// What the library of Debian's emscripten lacks of the standard one, as far as the engine uses it. Read before each
// source of a build for browsers; the sources themselves know nothing of it.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace std {  // NOLINT(cert-dcl58-cpp): only where it isn't there

namespace ranges {

template <typename Range, typename Is, typename Of = identity>
auto find_if(Range&& range, Is is, Of of = {}) {
    return std::find_if(begin(range), end(range), [&](auto&& each) { return bool(invoke(is, invoke(of, each))); });
}
template <typename Range, typename Value, typename Of = identity>
auto find(Range&& range, const Value& value, Of of = {}) {
    return std::find_if(begin(range), end(range), [&](auto&& each) { return invoke(of, each) == value; });
}
template <typename Range, typename Is, typename Of = identity>
bool any_of(Range&& range, Is is, Of of = {}) {
    return std::any_of(begin(range), end(range), [&](auto&& each) { return bool(invoke(is, invoke(of, each))); });
}
template <typename Range, typename Is, typename Of = identity>
bool all_of(Range&& range, Is is, Of of = {}) {
    return std::all_of(begin(range), end(range), [&](auto&& each) { return bool(invoke(is, invoke(of, each))); });
}
template <typename Range, typename Is, typename Of = identity>
bool none_of(Range&& range, Is is, Of of = {}) {
    return !ranges::any_of(range, is, of);
}
template <typename Range, typename Is, typename Of = identity>
auto count_if(Range&& range, Is is, Of of = {}) {
    return std::count_if(begin(range), end(range), [&](auto&& each) { return bool(invoke(is, invoke(of, each))); });
}
template <typename Range, typename Value>
auto count(Range&& range, const Value& value) {
    return std::count(begin(range), end(range), value);
}
template <typename Range, typename Out>
auto copy(Range&& range, Out out) {
    return std::copy(begin(range), end(range), out);
}
template <typename Range, typename Out, typename Is>
auto copy_if(Range&& range, Out out, Is is) {
    return std::copy_if(begin(range), end(range), out, is);
}
template <typename Range, typename Out>
auto move(Range&& range, Out out) {
    return std::move(begin(range), end(range), out);
}
template <typename Range, typename Out, typename Make>
auto transform(Range&& range, Out out, Make make) {
    return std::transform(begin(range), end(range), out, [&](auto&& each) { return invoke(make, each); });
}
template <typename One, typename Other, typename Same = std::equal_to<>>
bool equal(One&& one, Other&& other, Same same = {}) {
    return std::equal(begin(one), end(one), begin(other), end(other), same);
}
template <typename One, typename Other, typename Less = std::less<>>
bool lexicographical_compare(One&& one, Other&& other, Less is_less = {}) {
    return std::lexicographical_compare(begin(one), end(one), begin(other), end(other), is_less);
}
template <typename Less, typename Of>
auto LessOf(Less& is_less, Of& of) {
    return [&](auto&& one, auto&& other) { return bool(invoke(is_less, invoke(of, one), invoke(of, other))); };
}
template <typename Range, typename Value, typename Less = std::less<>, typename Of = identity>
auto lower_bound(Range&& range, const Value& value, Less is_less = {}, Of of = {}) {
    return std::lower_bound(begin(range), end(range), value, [&](auto&& each, auto&& wanted) {
        return bool(invoke(is_less, invoke(of, each), wanted));
    });
}
template <typename Range, typename Less = std::less<>, typename Of = identity>
auto max_element(Range&& range, Less is_less = {}, Of of = {}) {
    return std::max_element(begin(range), end(range), LessOf(is_less, of));
}
template <typename Range, typename Less = std::less<>, typename Of = identity>
auto min_element(Range&& range, Less is_less = {}, Of of = {}) {
    return std::min_element(begin(range), end(range), LessOf(is_less, of));
}
template <typename Range, typename Less = std::less<>, typename Of = identity>
void sort(Range&& range, Less is_less = {}, Of of = {}) {
    std::sort(begin(range), end(range), LessOf(is_less, of));
}
template <typename Range, typename Less = std::less<>, typename Of = identity>
void stable_sort(Range&& range, Less is_less = {}, Of of = {}) {
    std::stable_sort(begin(range), end(range), LessOf(is_less, of));
}
template <typename Range, typename Iterator, typename Less = std::less<>, typename Of = identity>
void partial_sort(Range&& range, Iterator middle, Less is_less = {}, Of of = {}) {
    std::partial_sort(begin(range), middle, end(range), LessOf(is_less, of));
}
template <typename Range>
void reverse(Range&& range) {
    std::reverse(begin(range), end(range));
}
template <typename Range, typename Value>
void replace(Range&& range, const Value& old_value, const Value& new_value) {
    std::replace(begin(range), end(range), old_value, new_value);
}

}  // namespace ranges

// Numbers with a fraction, in the plain notation that the engine uses.
inline from_chars_result from_chars(const char* first, const char* last, float& value,
                                    chars_format = chars_format::general) {
    const string text(first, last);
    char* end = nullptr;
    if (text.empty() || text.front() == '+' || isspace(static_cast<unsigned char>(text.front())) != 0)
        return {first, errc::invalid_argument};
    const float read = strtof(text.c_str(), &end);
    if (end == text.c_str())
        return {first, errc::invalid_argument};
    value = read;
    return {first + (end - text.c_str()), errc()};
}
inline from_chars_result from_chars(const char* first, const char* last, double& value,
                                    chars_format = chars_format::general) {
    const string text(first, last);
    char* end = nullptr;
    if (text.empty() || text.front() == '+' || isspace(static_cast<unsigned char>(text.front())) != 0)
        return {first, errc::invalid_argument};
    const double read = strtod(text.c_str(), &end);
    if (end == text.c_str())
        return {first, errc::invalid_argument};
    value = read;
    return {first + (end - text.c_str()), errc()};
}

// The shortest digits that are read back as the number.
template <typename Real>
to_chars_result ShortestFixed(char* first, char* last, Real value, int most_digits) {
    char digits[64];
    int precision = 0;
    for (; precision < most_digits; ++precision) {
        snprintf(digits, sizeof digits, "%.*e", precision, static_cast<double>(value));
        if (static_cast<Real>(strtod(digits, nullptr)) == value)
            break;
    }
    const int exponent = atoi(string_view(digits).substr(string_view(digits).find('e') + 1).data());
    char fixed[400];
    const int size = snprintf(fixed, sizeof fixed, "%.*f", max(0, precision - exponent), static_cast<double>(value));
    if (size > last - first)
        return {last, errc::value_too_large};
    return {std::copy(fixed, fixed + size, first), errc()};
}
inline to_chars_result to_chars(char* first, char* last, float value, chars_format) {
    return ShortestFixed(first, last, value, 9);
}
inline to_chars_result to_chars(char* first, char* last, double value, chars_format) {
    return ShortestFixed(first, last, value, 17);
}

}  // namespace std
