#include "output/journal/members.h"

#include <algorithm>
#include <optional>

#include "base/encoding.h"
#include "base/text.h"

namespace korvane::journal {

namespace {

// Whether brackets of a line stand deeper in each other than a journal's do. What reads JSON may do it by recursion.
bool NestsTooDeep(std::string_view line) {
    constexpr int kMostDepth = 16;
    int depth = 0;
    bool in_text = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (in_text && c == '\\')
            ++i;
        else if (c == '"')
            in_text = !in_text;
        else if (!in_text && (c == '[' || c == '{') && ++depth > kMostDepth)
            return true;
        else if (!in_text && (c == ']' || c == '}'))
            --depth;
    }
    return false;
}

}  // namespace

std::string Shown(const Json& value) {
    constexpr std::size_t kMostHeld = 80;
    return Printable(value.dump(-1, ' ', false, Json::error_handler_t::replace), kMostHeld);
}

Json Parsed(std::string_view line) {
    constexpr std::size_t kMostLine = std::size_t{1} << 20U;
    if (line.size() > kMostLine)
        throw Fault{"a line of at most 1 MB", Concat("one of ", line.size() >> 20U, " MB")};
    if (NestsTooDeep(line))
        throw Fault{"a JSON object whose brackets stand at most 16 deep in each other", Quoted(line)};
    auto parsed = Json::parse(line, nullptr, false);
    if (!parsed.is_object())
        throw Fault{"a JSON object", Quoted(line)};
    return parsed;
}

const Json& Members::Get(std::string_view key) const {
    const auto place = object_.find(std::string(key));
    if (place == object_.end())
        throw Fault{Concat("the member \"", key, "\""), Shown(object_)};
    return *place;
}

int Members::Number(std::string_view key, std::int64_t least, std::int64_t most) const {
    return static_cast<int>(Whole(Get(key), key, least, most));
}

std::int64_t Members::Whole(const Json& value, std::string_view key, std::int64_t least, std::int64_t most) {
    const auto number = value.is_number_integer() ? value.get<std::int64_t>() : least - 1;
    if (number < least || number > most)
        throw Fault{Concat("\"", key, "\" as a number from ", least, " to ", most), Shown(value)};
    return number;
}

bool Members::Truth(std::string_view key) const {
    const auto& value = Get(key);
    if (!value.is_boolean())
        throw Fault{Concat("\"", key, "\" as true or false"), Shown(value)};
    return value.get<bool>();
}

std::string Members::Text(std::string_view key) const {
    const auto& value = Get(key);
    if (!value.is_string())
        throw Fault{Concat("\"", key, "\" as a text"), Shown(value)};
    return value.get<std::string>();
}

const Json& Members::List(std::string_view key) const {
    const auto& value = Get(key);
    if (!value.is_array())
        throw Fault{Concat("\"", key, "\" as a list"), Shown(value)};
    return value;
}

std::vector<std::string> Members::Texts(std::string_view key) const {
    std::vector<std::string> texts;
    for (const auto& value : List(key)) {
        if (!value.is_string())
            throw Fault{Concat("\"", key, "\" as a list of texts"), Shown(value)};
        texts.push_back(value.get<std::string>());
    }
    return texts;
}

Options Members::Boxes() const {
    Options options;
    for (const auto& caption : List("options")) {
        const auto option = caption.is_string() ? OptionOfCaption(caption.get<std::string>()) : std::nullopt;
        if (!option)
            throw Fault{"the caption of an option", Shown(caption)};
        options.Set(*option);
    }
    return options;
}

std::size_t Members::OneOf(std::string_view key, std::span<const std::string_view> allowed) const {
    const auto text = Text(key);
    const auto place = std::ranges::find(allowed, text);
    if (place == allowed.end())
        throw Fault{Concat("\"", key, "\" as one of the answers there are"), Quoted(text)};
    return static_cast<std::size_t>(place - allowed.begin());
}

}  // namespace korvane::journal
