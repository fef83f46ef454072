// The errors of the program: one small family, caught where a front end starts a generation and in `main`.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane {

// A file that is missing or malformed. The message reads "FILE:LINE: expected WHAT, found WHAT".
class FileError : public std::runtime_error {
  public:
    // `file` is the native path, `line` counts from 1.
    FileError(std::string file, int line, std::string_view expected, std::string_view found);

    const std::string& file() const { return file_; }
    int line() const { return line_; }

  private:
    std::string file_;
    int line_;
};

// A rule that can't be carried out with the data it was given; it stops the generation in progress.
class RuleError : public std::runtime_error {
  public:
    enum class Kind { Subscript, Overflow, Type };

    RuleError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

    Kind kind() const { return kind_; }

  private:
    Kind kind_;
};

// "subscript", "overflow" or "type".
std::string_view NameOf(RuleError::Kind kind);

// A setting or an argument that the user got wrong; the message says what would be right.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace korvane
