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
// The tape's own seed made these lines no more. Whether there is one to be rolled.
bool RollHomeWorldAnew(Session& session, std::vector<journal::Line>& lines, Dice& dice);

}  // namespace korvane::play
