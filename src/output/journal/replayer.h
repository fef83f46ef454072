// Reads a journal back: gives each request its recorded answer, and stops where the engine asks something else.
#pragma once

#include <stdexcept>
#include <string>

#include "base/text.h"
#include "character/KVNDeclare.h"
#include "engine/term_loop.h"
#include "output/journal/requests.h"

namespace korvane::journal {

// The engine asked something else than the journal holds.
class Divergence : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The journal itself is malformed, or ends early.
class JournalError : public ParseError {
  public:
    using ParseError::ParseError;
};

// What the first line of a journal says.
struct Start {
    std::string race;
    std::string career;
    std::string assignment;
    RollingMethod method = RollingMethod::True2D;
    Options options;
};

class Replayer : public Dice, public Player {
  public:
    // The journal's name, for messages, and its text. All members throw JournalError, with the line, for a journal that
    // is malformed or ends early, and Divergence for one that doesn't match.
    Replayer(std::string name, std::string text);

    const Start& start() const { return start_; }
    // Demands that the journal ends as the life did, here and in this way.
    void ExpectEnd(LifeEnd end);
    void ExpectErrorEnd(std::string_view kind);

    int Roll(int count, int sides) override;
    int Draw(int n) override;

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    void ReadStart();
    // What is left of the text, from the next line on, and that line, without its end.
    std::string_view Rest() const { return std::string_view(text_).substr(next_); }
    std::string_view PeekLine() const { return SplitFirst(Rest(), "\n").first; }
    bool AtEnd() const { return next_ >= text_.size(); }
    // The object that a line is; throws when it is none, for the line just read.
    Json Parsed(std::string_view line) const;
    const Json& NextLine();
    // The next line, which must be the request with an answer.
    const Json& Match(const Json& request);
    // The same for a question at which a player may scrap the character: throws CharacterScrapped when that is what the
    // journal holds.
    const Json& MatchOrScrapped(const Json& request);
    bool EndsScrapped() const;
    void ExpectLast(const Json& end);
    [[noreturn]] void Diverge(std::string_view asked) const;
    [[noreturn]] void Reject(std::string_view expected, std::string_view found) const;

    // A member of the line just read; each throws when it is missing, of another type or out of range.
    const Json& Member(std::string_view key) const;
    int Number(std::string_view key, int least, int most) const;
    bool Truth(std::string_view key) const;
    std::string Text(std::string_view key) const;
    Options Boxes() const;
    // The place, from 0, of a text among those allowed.
    std::size_t OneOf(std::string_view key, std::span<const std::string_view> allowed) const;

    std::string name_;
    std::string text_;
    std::size_t next_ = 0;  // where the next line begins
    int read_ = 0;          // lines
    Json line_;             // the line just read
    Start start_;
};

}  // namespace korvane::journal
