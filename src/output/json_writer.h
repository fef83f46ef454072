// Writes JSON on one line, piece by piece, at the end of a text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "character/seed.h"

namespace korvane {

// Commas come by themselves. What isn't UTF-8 is written as U+FFFD, so that the line can be read by anybody.
class JsonWriter {
  public:
    explicit JsonWriter(std::string& out) : out_(out) {}

    JsonWriter& Key(std::string_view key);
    void Text(std::string_view text);
    void Number(std::int64_t number);
    void Unsigned(std::uint64_t number);
    // A number as one, a word as a text.
    void Given(const Seed& seed);
    void Truth(bool truth) { Raw(truth ? "true" : "false"); }
    void Null() { Raw("null"); }
    // A value as it stands.
    void Raw(std::string_view value);
    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }

    template <typename Texts>
    void TextArray(const Texts& texts) {
        BeginArray();
        for (const auto& text : texts)
            Text(text);
        EndArray();
    }
    template <typename Numbers>
    void NumberArray(const Numbers& numbers) {
        BeginArray();
        for (const auto number : numbers)
            Number(number);
        EndArray();
    }

  private:
    void Separate();
    void Open(char bracket);
    void Close(char bracket);
    void Quote(std::string_view text);

    std::string& out_;
    bool first_ = true;
};

}  // namespace korvane
