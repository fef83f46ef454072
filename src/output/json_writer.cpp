#include "output/json_writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace korvane {

namespace {

bool IsPlain(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= 0x20 && code < 0x7F && c != '"' && c != '\\';
}

}  // namespace

void JsonWriter::Separate() {
    if (!first_)
        out_ += ',';
    first_ = false;
}

void JsonWriter::Open(char bracket) {
    Separate();
    out_ += bracket;
    first_ = true;
}

void JsonWriter::Close(char bracket) {
    out_ += bracket;
    first_ = false;
}

// Most texts stand as they are.
void JsonWriter::Quote(std::string_view text) {
    if (std::ranges::all_of(text, IsPlain)) {
        out_ += '"';
        out_ += text;
        out_ += '"';
        return;
    }
    out_ += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

JsonWriter& JsonWriter::Key(std::string_view key) {
    Separate();
    Quote(key);
    out_ += ':';
    first_ = true;
    return *this;
}

void JsonWriter::Text(std::string_view text) {
    Separate();
    Quote(text);
}

void JsonWriter::Number(std::int64_t number) {
    Raw(std::to_string(number));
}

void JsonWriter::Unsigned(std::uint64_t number) {
    Raw(std::to_string(number));
}

void JsonWriter::Given(const Seed& seed) {
    if (seed.isNumber())
        Unsigned(seed.value());
    else
        Text(seed.given());
}

void JsonWriter::Raw(std::string_view value) {
    Separate();
    out_ += value;
}

}  // namespace korvane
