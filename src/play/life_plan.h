// Whole lives without a person.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "character/KVNDeclare.h"
#include "play/life.h"

namespace korvane::play {

enum class PlayerKind { Sensible, Automatic, Random };

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

// Lives the character with that number. With a seed, all of it depends on the seed and the number alone. The finished
// character is left in the session. Writes the journal where there is a sink for it. Throws MissingSelection, and
// FileError for a malformed file of the selection.
LifeOutcome Live(Session& session, const LifePlan& plan, std::uint64_t number, const journal::Recorder::Sink& journal);

}  // namespace korvane::play
