#include "base/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace korvane {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// What the bytes 0x80 to 0x9F mean in Windows-1252; the five unassigned ones stand for themselves.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendCharacter(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6U));
        text += static_cast<char>(0x80 | (character & 0x3FU));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12U));
        text += static_cast<char>(0x80 | ((character >> 6U) & 0x3FU));
        text += static_cast<char>(0x80 | (character & 0x3FU));
    }
}

// The length of the well-formed character at the beginning of `bytes`; 0 when there is none.
std::size_t CharacterLength(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
    const auto lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0U) != 0x80)
            return 0;
    // Overlong forms, surrogates and what lies beyond Unicode.
    const bool bad = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F) ||
                     (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F);
    return bad ? 0 : length;
}

// The character that a well-formed sequence stands for.
char32_t CharacterOf(std::string_view sequence) {
    static constexpr std::array<unsigned, 5> kLeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = static_cast<unsigned char>(sequence[0]) & kLeadBits.at(sequence.size());
    for (const char c : sequence.substr(1))
        character = (character << 6U) | (static_cast<unsigned char>(c) & 0x3FU);
    return character;
}

void AppendWindows1252(std::string& bytes, char32_t character) {
    const auto place = std::ranges::find(kWindows1252, character);
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        bytes += static_cast<char>(character);
    else if (place != kWindows1252.end())
        bytes += static_cast<char>(0x80 + (place - kWindows1252.begin()));
    else
        bytes += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto length = CharacterLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

// How a byte or a character that can't be shown is spelt.
std::string SpeltOut(std::string_view character) {
    static constexpr std::string_view kHex = "0123456789ABCDEF";
    if (character == "\n")
        return "\\n";
    if (character == "\r")
        return "\\r";
    if (character == "\t")
        return "\\t";
    std::string spelt;
    for (const char c : character) {
        const auto byte = static_cast<unsigned char>(c);
        spelt += {'\\', 'x', kHex[byte >> 4U], kHex[byte & 0xFU]};
    }
    return spelt;
}

// Whether a well-formed character is one that steers a terminal: C0, delete and C1.
bool IsControl(std::string_view character) {
    const auto code = CharacterOf(character);
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

}  // namespace

std::string DecodeText(std::string bytes) {
    if (bytes.starts_with(kByteOrderMark))
        bytes.erase(0, kByteOrderMark.size());
    return DecodeWord(std::move(bytes));
}

std::string DecodeWord(std::string bytes) {
    if (IsUtf8(bytes))
        return bytes;
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendCharacter(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252.at(byte - 0x80U) : byte);
    }
    return text;
}

Encoding EncodingOf(std::string_view bytes) {
    if (!IsUtf8(bytes))
        return Encoding::Windows1252;
    return bytes.starts_with(kByteOrderMark) ? Encoding::Utf8WithMark : Encoding::Utf8;
}

std::string EncodeText(std::string_view text, Encoding encoding) {
    if (encoding == Encoding::Utf8)
        return std::string(text);
    if (encoding == Encoding::Utf8WithMark)
        return std::string(kByteOrderMark).append(text);
    std::string bytes;
    while (!text.empty()) {
        // A byte that is no part of a character stands for itself.
        const auto length = CharacterLength(text);
        if (length == 0)
            bytes += text[0];
        else
            AppendWindows1252(bytes, CharacterOf(text.substr(0, length)));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return bytes;
}

std::string Printable(std::string_view text, std::size_t most) {
    std::string shown;
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == most)
            return shown + "...";
        const auto length = std::max<std::size_t>(CharacterLength(text), 1);
        const auto character = text.substr(0, length);
        if (CharacterLength(text) == 0 || IsControl(character))
            shown += SpeltOut(character);
        else
            shown += character;
        text.remove_prefix(length);
    }
    return shown;
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t kMostQuoted = 80;
    return "\"" + Printable(text, kMostQuoted) + "\"";
}

}  // namespace korvane
