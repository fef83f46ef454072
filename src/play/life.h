// One way to live a life, with or without a journal, and to live a journal's again.
#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "character/characteristics.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/journal/recorder.h"
#include "output/journal/replayer.h"

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

// How a character begins: usually with new dice.
using Beginning = std::function<void(Session&)>;

// Begins a character and lives its life to its end, whatever ends it. What isn't an error of the rules or of their
// files passes through.
LifeOutcome LiveOut(Session& session, const Beginning& begin = StartNewCharacter);
// The same, with its journal written; the recorder stands in the session's seams.
LifeOutcome LiveRecorded(Session& session, journal::Recorder& recorder);
// The same for a beginning that writes the journal's first line itself. A finished character is handed over before the
// last line is written.
LifeOutcome LiveRecorded(Session& session, journal::Recorder& recorder, const Beginning& begin,
                         const std::function<void()>& handOver = {});
// Lives the journal's life again, on what it says was selected. Throws MissingSelection, and what the replayer throws:
// also where the life doesn't end as the journal does.
LifeOutcome LiveAgain(Session& session, journal::Replayer& replayer);

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

}  // namespace korvane::play
