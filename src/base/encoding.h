// The two encodings of text files that people keep: UTF-8 and Windows-1252.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

// The text of a file's bytes, in UTF-8: a byte-order mark is skipped, and bytes that aren't well-formed UTF-8 are read
// as Windows-1252.
std::string DecodeText(std::string bytes);
// The same for a text that comes from no file: a byte-order mark is a letter of it.
std::string DecodeWord(std::string bytes);

// How the bytes of a file stand for its text.
enum class Encoding { Utf8, Utf8WithMark, Windows1252 };
// The encoding as which `DecodeText` reads the bytes.
Encoding EncodingOf(std::string_view bytes);
// The bytes of a text, given in UTF-8. A letter that Windows-1252 doesn't have becomes a numeric reference, as pages
// know it: "&#8730;".
std::string EncodeText(std::string_view text, Encoding encoding);

// A text as a message can show it, in UTF-8: control characters and what is no character are spelt out ("\\n",
// "\\x1B"), and what is longer than `most` characters ends in "...".
std::string Printable(std::string_view text, std::size_t most);
// What was found somewhere, for a message: in quotation marks, at most 80 characters of it.
std::string Quoted(std::string_view text);

}  // namespace korvane
