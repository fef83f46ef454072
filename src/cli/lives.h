// Whole lives without a person: what `generate` does for each character.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "character/KVNDeclare.h"
#include "engine/term_loop.h"
#include "output/journal/recorder.h"

namespace korvane::cli {

enum class PlayerKind { Automatic, Random };

struct LifePlan {
    // Empty: picked at random for each character, the career never "Prisoner".
    std::string race;
    std::string career;
    std::string assignment;
    RollingMethod method = RollingMethod::True2D;
    Options options;
    PlayerKind player = PlayerKind::Automatic;
    int terms = 4;
    std::optional<std::uint64_t> seed;  // none: the clock's dice
};

// How a life went. One that an error of the rules ended has no end, but the error's text.
struct LifeOutcome {
    std::optional<LifeEnd> end;
    std::string error;
};

// Lives the character with that number. With a seed, all of it depends on the seed and the number alone. The finished
// character is left in the session. Writes the journal where there is a sink for it. Throws UsageError for a selection
// that the data doesn't have and FileError for a malformed file.
LifeOutcome Live(Session& session, const LifePlan& plan, std::uint64_t number, const journal::Recorder::Sink& journal);

}  // namespace korvane::cli
