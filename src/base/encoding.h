// The two encodings of text files that people keep: UTF-8 and Windows-1252.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// Whether the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

// The text of a file's bytes, in UTF-8: a byte-order mark is skipped, and bytes that aren't well-formed UTF-8 are read
// as Windows-1252.
std::string DecodeText(std::string_view bytes);

// How the bytes of a file stand for its text.
enum class Encoding { Utf8, Utf8WithMark, Windows1252 };
// The encoding as which `DecodeText` reads the bytes.
Encoding EncodingOf(std::string_view bytes);
// The bytes of a text, given in UTF-8. A letter that Windows-1252 doesn't have becomes a numeric reference, as pages
// know it: "&#8730;".
std::string EncodeText(std::string_view text, Encoding encoding);

}  // namespace korvane
