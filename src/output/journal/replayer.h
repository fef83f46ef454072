// Reads a journal back: gives each request its recorded answer, and stops where the engine asks something else.
#pragma once

#include <stdexcept>
#include <string>

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
class JournalError : public FileError {
  public:
    using FileError::FileError;
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
    // The journal's lines. All members throw JournalError, with the line, for a journal that is malformed or ends
    // early, and Divergence for one that doesn't match.
    explicit Replayer(TextFile file);

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

    TextFile file_;
    std::size_t read_ = 0;  // lines
    Json line_;             // the line just read
    Start start_;
};

}  // namespace korvane::journal
