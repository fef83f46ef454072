// The tape of a life: what was asked and what was answered, in order, as values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "character/options.h"
#include "character/player.h"
#include "character/seed.h"

namespace korvane::journal {

// What is asked. Two requests are the same when they are equal.
struct RollRequest {
    int count = 0;
    int sides = 0;
    bool operator==(const RollRequest&) const = default;
};
struct DrawRequest {
    int n = 0;
    bool operator==(const DrawRequest&) const = default;
};
struct ChooseRequest {
    std::string title;
    std::vector<std::string> options;
    bool operator==(const ChooseRequest&) const = default;
};
struct SelectRequest {
    std::string prompt;
    int maximum = 1;
    int minimum = 1;
    std::vector<std::string> items;
    bool operator==(const SelectRequest&) const = default;
};
struct AskRequest {
    std::string text;
    bool operator==(const AskRequest&) const = default;
};
struct TellRequest {
    std::string text;
    bool operator==(const TellRequest&) const = default;
};
struct TableRequest {
    std::vector<int> enabled;  // the columns whose button is
    bool operator==(const TableRequest&) const = default;
};
struct EndOfTermRequest {
    int termsTotal = 0;
    bool operator==(const EndOfTermRequest&) const = default;
};
struct TransferRequest {
    bool operator==(const TransferRequest&) const = default;
};
struct MusterRequest {
    int rolls = 0;
    bool operator==(const MusterRequest&) const = default;
};
// A rule file that is loaded, by its bare name; the answer is the digest of its bytes.
struct FileRequest {
    std::string name;
    bool operator==(const FileRequest&) const = default;
};

// An answer that is none.
struct Nothing {};

template <typename RequestOf, typename AnswerOf>
struct Entry {
    using Request = RequestOf;
    using Answer = AnswerOf;
    Request request;
    Answer answer;
};
using RollLine = Entry<RollRequest, int>;
using DrawLine = Entry<DrawRequest, int>;
using ChooseLine = Entry<ChooseRequest, int>;
using SelectLine = Entry<SelectRequest, std::vector<int>>;
using AskLine = Entry<AskRequest, bool>;
using TellLine = Entry<TellRequest, Nothing>;
using TableLine = Entry<TableRequest, int>;
using EndOfTermLine = Entry<EndOfTermRequest, EndOfTermAnswer>;
using TransferLine = Entry<TransferRequest, std::optional<TransferAnswer>>;
using MusterLine = Entry<MusterRequest, MusterPress>;
using FileLine = Entry<FileRequest, std::string>;
// A line of a file that is none of these, or whose answer can't be.
struct OddLine {
    std::string text;
    std::string expected;  // empty for a request that nobody knows
    std::string found;
};
using Line = std::variant<RollLine, DrawLine, ChooseLine, SelectLine, AskLine, TellLine, TableLine, EndOfTermLine,
                          TransferLine, MusterLine, FileLine, OddLine>;

// Whether a line is a question to the player.
inline bool IsQuestion(const Line& line) {
    return !std::holds_alternative<RollLine>(line) && !std::holds_alternative<DrawLine>(line) &&
           !std::holds_alternative<TellLine>(line) && !std::holds_alternative<FileLine>(line);
}

// How a life began.
struct Start {
    int version = 2;             // of the journal
    std::string program;         // empty in version 1
    std::optional<Origin> dice;  // none in version 1
    std::string race;
    std::string career;
    std::string assignment;
    RollingMethod method = RollingMethod::True2D;
    Options options;
};

// How a life ended.
enum class EndKind { MusteredOut, Scrapped, Error };
struct End {
    EndKind kind = EndKind::MusteredOut;
    std::string errorKind;                // "subscript", "type", "overflow" or "file"
    std::string message;                  // of the error, free
    std::optional<std::string> document;  // the digest of the finished character's
    std::optional<std::int64_t> backs;    // none in version 1
    std::optional<std::string> journal;   // the digest of all that is told but this
};

struct Tape {
    Start start;
    std::vector<Line> lines;
    std::optional<End> end;
    std::int64_t backs = 0;  // how often the player went back to an earlier question
};

// The number of a line of the tape in its journal; the start is line 1.
constexpr int JournalLine(std::size_t place) {
    return static_cast<int>(place) + 2;
}

}  // namespace korvane::journal
