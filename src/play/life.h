// One way to live a life, with or without a tape, and to live a journal's again.
#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "character/characteristics.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/character_document.h"
#include "output/journal/read_journal.h"
#include "output/journal/tape_deck.h"

namespace korvane::play {

// How a life ended: well, or by an error.
struct LifeOutcome {
    std::optional<LifeEnd> end;  // none: an error ended it
    std::string kind;            // of the error: "subscript", "type", "overflow" or "file"
    std::string error;           // what it said
    std::exception_ptr cause;    // the error itself

    bool finished() const { return end == LifeEnd::MusteredOut; }
    bool endedInFileError() const { return kind == "file"; }
};

// Has a deck answer what the session asks, and note what it does; what observed it before is told on.
void Insert(journal::TapeDeck& deck, Session& session);

// How a character begins: usually with new dice.
using Beginning = std::function<void(Session&)>;

// Begins a character and lives its life to its end, whatever ends it. What isn't an error of the rules or of their
// files passes through.
LifeOutcome LiveOut(Session& session, const Beginning& begin = StartNewCharacter);

// The start of a journal of the life that the session is about to live.
journal::Start StartOf(const Session& session, const Origin& dice);
// What the document of a tape's character says beside it.
DocumentLabels LabelsOf(const journal::Tape& tape);
// The digest of the document of the session's character, whose life the tape holds.
std::string DocumentDigest(const Session& session, const journal::Tape& tape);
// The end of a journal whose life ended in this way, in the session.
journal::End EndOf(const Session& session, const journal::Tape& tape, const LifeOutcome& outcome);

// Lives a life on a tape: records what its session's dice and player answer.
LifeOutcome LiveRecorded(Session& session, journal::Tape& tape, const Origin& dice);

// Lives the tape's life again, on what it says was selected; the deck stands before the tape, at its beginning. Throws
// MissingSelection, and what the deck throws: also where the life doesn't end as the tape does.
LifeOutcome LiveAgain(Session& session, const journal::Tape& tape, journal::TapeDeck& deck);

// A selection that the data doesn't have.
class MissingSelection : public std::runtime_error {
  public:
    explicit MissingSelection(Missing missing);
    const Missing& missing() const { return missing_; }

  private:
    Missing missing_;
};
// Selects what a life starts from. Throws MissingSelection, and FileError for a malformed file.
void Select(Session& session, std::string_view race, std::string_view career, std::string_view assignment);
// The same for what a tape says. The selection asks nothing; what it tells was told before the tape began.
void SelectStartOf(Session& session, const journal::Start& start);

}  // namespace korvane::play
