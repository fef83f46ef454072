#include "output/svg_text.h"

#include <array>
#include <cmath>

#include "base/text.h"

namespace korvane {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return escaped;
}

std::string SvgNumber(double number) {
    const auto hundredths = std::llround(std::abs(number) * 100);
    auto text = Concat(number < 0 && hundredths != 0 ? "-" : "", hundredths / 100);
    if (const auto rest = hundredths % 100; rest != 0) {
        AppendAll(text, rest < 10 ? ".0" : ".", rest);
        if (text.back() == '0')
            text.pop_back();
    }
    return text;
}

std::string SvgOpen(std::string_view name, SvgAttributes attributes) {
    auto text = Concat("<", name);
    for (const auto& [attribute, value] : attributes)
        if (!value.empty())
            AppendAll(text, " ", attribute, "=\"", value, "\"");
    return text + ">";
}

std::string SvgElement(std::string_view name, SvgAttributes attributes, std::string_view content) {
    auto text = SvgOpen(name, attributes);
    if (content.empty()) {
        text.insert(text.size() - 1, "/");
        return text;
    }
    AppendAll(text, content, "</", name, ">");
    return text;
}

namespace {

// In parts of the font's size.
double CharacterWidth(char c) {
    if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U)
        return 0;  // goes on with a letter that has been counted
    if (static_cast<unsigned char>(c) >= 0xE0U)
        return 1;  // may be one of the wide scripts
    if (std::string_view("ijl .,:;'!|").find(c) != std::string_view::npos)
        return 0.33;
    if (std::string_view("frtIJ()[]/-").find(c) != std::string_view::npos)
        return 0.41;
    if (std::string_view("mwMWQ@%&").find(c) != std::string_view::npos)
        return 0.95;
    return c >= 'a' && c <= 'z' ? 0.62 : 0.7;
}

}  // namespace

double TextWidth(std::string_view text, double size) {
    double width = 0;
    for (const char c : text)
        width += CharacterWidth(c);
    return width * size;
}

std::string ShortenedTo(double room, std::string_view text, double size) {
    constexpr std::size_t kFewest = 3;  // letters that still tell careers apart
    if (TextWidth(text, size) <= room)
        return std::string(text);
    for (auto count = CharacterCount(text); count-- > kFewest;) {
        auto shortened = Concat(Trim(FirstCharacters(text, count)), "\u2026");
        if (TextWidth(shortened, size) <= room)
            return shortened;
    }
    return {};
}

}  // namespace korvane
