// What SVG is written with: elements, numbers, texts, and how wide a text will be.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

// A text as markup may hold it, within quotation marks too; what no markup may hold is a blank.
std::string Escaped(std::string_view text);

// A number with two decimals at most, and none that it doesn't need.
std::string SvgNumber(double number);

// An attribute whose value has to be escaped already.
using SvgAttributes = std::initializer_list<std::pair<std::string_view, std::string>>;

// The beginning of an element, "<rect x="1">", to be closed; or with all that is in it, "<title>Navy</title>".
std::string SvgOpen(std::string_view name, SvgAttributes attributes);
std::string SvgElement(std::string_view name, SvgAttributes attributes, std::string_view content = {});

// How wide a text is at most, in a common sans serif font of this size.
double TextWidth(std::string_view text, double size);

// As much of a text as the room holds, with "…" for the rest; empty where that would tell nothing.
std::string ShortenedTo(double room, std::string_view text, double size);

}  // namespace korvane
