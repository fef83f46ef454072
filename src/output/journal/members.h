// The members of a journal's lines, as they are read.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "character/options.h"

namespace korvane::journal {

using Json = nlohmann::ordered_json;

// What a line should hold, and what it does.
struct Fault {
    std::string expected;
    std::string found;
};

// A value as a message can show it.
std::string Shown(const Json& value);
// The object that a line is. Throws Fault for anything else, also for what would cost too much to read.
Json Parsed(std::string_view line);

// The members of an object; each operation throws Fault for one that is missing, of another type or out of range.
class Members {
  public:
    explicit Members(const Json& object) : object_(object) {}

    bool Has(std::string_view key) const { return object_.contains(std::string(key)); }
    const Json& Get(std::string_view key) const;
    int Number(std::string_view key, std::int64_t least, std::int64_t most) const;
    static std::int64_t Whole(const Json& value, std::string_view key, std::int64_t least, std::int64_t most);
    bool Truth(std::string_view key) const;
    std::string Text(std::string_view key) const;
    const Json& List(std::string_view key) const;
    std::vector<std::string> Texts(std::string_view key) const;
    Options Boxes() const;
    // The place, from 0, of a text among those allowed.
    std::size_t OneOf(std::string_view key, std::span<const std::string_view> allowed) const;

  private:
    const Json& object_;
};

}  // namespace korvane::journal
