// The errors of the program: one small family, caught where a front end starts a generation and in `main`.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane {

// Something about a file; one of the two below says what.
class FileError : public std::runtime_error {
  public:
    // The native path.
    const std::string& file() const { return file_; }

  protected:
    FileError(std::string file, const std::string& message);

  private:
    std::string file_;
};

// What a file says isn't what is expected there. The message reads "FILE:LINE: expected WHAT, found WHAT"; what can't
// be shown in it is spelt out.
class ParseError : public FileError {
  public:
    // `line` counts from 1.
    ParseError(const std::string& file, int line, std::string_view expected, std::string_view found);

    int line() const { return line_; }

  private:
    int line_;
};

// What the system refuses. The message reads "FILE: WHAT: WHY", as "Jo.htm: can't be written: No space left on device".
class IoError : public FileError {
  public:
    IoError(const std::string& file, std::string_view what, std::string_view why);
    // The reason is that of the system's error number.
    IoError(const std::string& file, std::string_view what, int error);
};

// A rule that can't be carried out with the data it was given; it stops the generation in progress.
class RuleError : public std::runtime_error {
  public:
    enum class Kind { Subscript, Overflow, Type };

    RuleError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

    Kind kind() const { return kind_; }
    // The message, with the place where there is one: `WHAT (FILE:LINE: "ROW")`.
    const char* what() const noexcept override;

    // Says which row of a rule file was being carried out; a place that is known already stays. A line of 0 is none.
    void AddPlace(const std::string& file, int line, std::string_view row);

  private:
    Kind kind_;
    std::string placed_;  // the message with its place; empty when none is known
};

// "subscript", "overflow" or "type".
std::string_view NameOf(RuleError::Kind kind);

// A setting or an argument that the user got wrong; the message says what would be right.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace korvane
