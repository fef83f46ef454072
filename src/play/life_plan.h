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
    std::optional<Seed> seed;  // none: the clock's dice
};

// Lives the character with that number. With a seed, all of it depends on the seed and the number alone. The finished
// character is left in the session. Records the life where there is a tape for it. Throws MissingSelection, and
// FileError for a malformed file of the selection.
LifeOutcome Live(Session& session, const LifePlan& plan, std::uint64_t number, journal::Tape* tape = nullptr);

}  // namespace korvane::play
