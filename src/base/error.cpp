#include "base/error.h"

#include <utility>

namespace korvane {

namespace {

std::string Message(const std::string& file, int line, std::string_view expected, std::string_view found) {
    std::string message = file + ":" + std::to_string(line) + ": expected ";
    message += expected;
    message += ", found ";
    message += found;
    return message;
}

}  // namespace

FileError::FileError(std::string file, int line, std::string_view expected, std::string_view found)
    : std::runtime_error(Message(file, line, expected, found)), file_(std::move(file)), line_(line) {}

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
