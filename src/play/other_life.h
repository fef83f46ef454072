// A life that was lived, with something of it rolled anew.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "output/journal/tape.h"

namespace korvane::play {

// Where a term of a life begins.
struct TermBeginning {
    int term = 0;
    std::size_t line = 0;  // of the tape, the first of the term
    std::string heading;   // "Term 3, age 26, Navy"
};
// Lives the tape's life again, on a session of its own. Throws what LiveAgain throws.
std::vector<TermBeginning> TermBeginnings(Session& session, const journal::Tape& tape);

// The life up to a line, to be gone on with by other dice: so it is said to be of no seed any more.
journal::Tape UpTo(journal::Tape tape, std::size_t line);

// Rolls the home world anew with other dice: that of the session's character, and what the lines of its tape say of it.
// No seed made these lines any more. Whether there is one to be rolled: in the data, and in the lines.
bool RollHomeWorldAnew(Session& session, std::vector<journal::Line>& lines, Dice& dice);
// A finished life with another home world and nothing else; its character is left in the session, which is one of its
// own. Nothing where there is none to be rolled. Throws what LiveAgain throws.
std::optional<journal::Tape> WithAnotherHomeWorld(Session& session, journal::Tape tape, Dice& dice);

}  // namespace korvane::play
