#include "base/error.h"

#include <system_error>
#include <utility>

#include "base/encoding.h"

namespace korvane {

namespace {

// A path or a text as a message may show it.
constexpr std::size_t kMostShown = 300;

std::string Placed(const std::string& file, int line) {
    return Printable(file, kMostShown) + ":" + std::to_string(line);
}

}  // namespace

FileError::FileError(std::string file, const std::string& message)
    : std::runtime_error(message), file_(std::move(file)) {}

ParseError::ParseError(const std::string& file, int line, std::string_view expected, std::string_view found)
    : FileError(file, Placed(file, line) + ": expected " + Printable(expected, kMostShown) + ", found " +
                          Printable(found, kMostShown)),
      line_(line) {}

IoError::IoError(const std::string& file, std::string_view what, std::string_view why)
    : FileError(file, Printable(file, kMostShown) + ": " + std::string(what) + ": " + std::string(why)) {}

IoError::IoError(const std::string& file, std::string_view what, int error)
    : IoError(file, what, std::string_view(std::generic_category().message(error))) {}

const char* RuleError::what() const noexcept {
    return placed_.empty() ? std::runtime_error::what() : placed_.c_str();
}

void RuleError::AddPlace(const std::string& file, int line, std::string_view row) {
    if (placed_.empty() && line > 0)
        placed_ = std::string(std::runtime_error::what()) + " (" + Placed(file, line) + ": " + Quoted(row) + ")";
}

std::string_view NameOf(RuleError::Kind kind) {
    switch (kind) {
        case RuleError::Kind::Subscript:
            return "subscript";
        case RuleError::Kind::Overflow:
            return "overflow";
        case RuleError::Kind::Type:
            return "type";
    }
    return "";
}

}  // namespace korvane
