// Whether a journal's life was honestly lived.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "play/life.h"

namespace korvane::play {

enum class Verdict {
    Proved,         // every die is the seed's, the rules and the result are those told
    Consistent,     // all fits together, but nobody can prove the clock's dice
    RulesDiffer,    // rule files aren't those that the life was lived with
    DieDiffers,     // a die isn't the seed's
    AnswerDiffers,  // the engine asks something else than the journal holds
    ResultDiffers,  // the character isn't the one that the journal tells of
    Unfinished,     // the journal has no end
};
// "proved", "the rules differ", and so on.
std::string_view NameOf(Verdict verdict);

struct Proof {
    Verdict verdict = Verdict::Proved;
    std::string why;                 // in a sentence; empty where the verdict says it all
    std::optional<int> line;         // of the journal
    std::vector<std::string> files;  // that differ
};

// Lives the journal's life again on the session's rules and rolls the dice of its seed itself; of `demanded`, where one
// is. Throws JournalError for a journal that can't be read, and FileError for rule files that can't be.
Proof Verify(Session& session, const journal::Journal& journal, const std::optional<Seed>& demanded);

}  // namespace korvane::play
