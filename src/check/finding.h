// What is wrong with rule data: findings, and the kinds of them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/nearest.h"

namespace korvane::check {

enum class Severity { Error, Warning };

// A kind of mistake; its code names it on the command line.
struct Kind {
    std::string_view code;
    Severity severity;
    std::string_view explanation;
};
// All of them, in the order of their codes.
std::span<const Kind> Kinds();
// The kind of that code; nullptr for none.
const Kind* KindNamed(std::string_view code);

struct Finding {
    std::string file;  // its bare name
    int line = 1;      // from 1
    int column = 1;    // from 1, in characters
    const Kind* kind = nullptr;
    std::string message;  // what is wrong, and what to write instead
    std::string text;     // the line as it stands
};

// Collects the findings of one file.
class Report {
  public:
    Report(std::string file, std::vector<Finding>& findings) : file_(std::move(file)), findings_(findings) {}

    const std::string& file() const { return file_; }
    // Adds a finding of a kind that there is.
    void Add(std::string_view kind, int line, std::size_t column, const std::string& message,
             std::string_view text = {});
    bool HasAny() const { return count_ > 0; }

  private:
    std::string file_;
    std::vector<Finding>& findings_;
    int count_ = 0;
};

// A part of a line: where it begins in it, so that what is wrong with it can be pointed at.
struct Piece {
    int line = 1;
    std::string_view whole;  // the line
    std::string_view text;   // the part, a view into the line

    // The column, from 1, at which a part of the text begins.
    std::size_t ColumnOf(std::string_view part) const;
};
inline void Add(Report& report, std::string_view kind, const Piece& piece, const std::string& message) {
    report.Add(kind, piece.line, piece.ColumnOf(piece.text), message, piece.whole);
}

}  // namespace korvane::check
