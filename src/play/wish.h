// What somebody wants of a character: "career = Scout and (Pilot >= 2 or Dex > 9) and not was = Prisoner".
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "character/KVNDeclare.h"
#include "play/vocabulary.h"

namespace korvane::play {

// An expression of comparisons with `and`, `or`, `not` and brackets; `and` binds closer than `or`. What is compared:
// - a number of the character: age, termsTotal, rank, cash, pension, medicalDebt, contacts, allies, rivals, enemies ...
// - a characteristic, or a skill; a skill without a speciality counts the best of its specialities, and one that isn't
//   held counts as -1
// - a text: race, career, assignment, education; benefit and was (a career served), of which the character may have
//   several. Texts know = and != alone, without regard to case.
// Names and texts with blanks may stand as they are or in double quotes; those that hold such a word or brackets need
// the quotes.
class Wish {
  public:
    // Reads an expression. Throws UsageError for a wrong one, with the place marked under it, and for an unknown
    // race, career, assignment, characteristic or skill.
    Wish(std::string_view text, const Vocabulary& known);

    bool Fits(const Session& session) const { return fits_(session); }

  private:
    std::function<bool(const Session&)> fits_;
};

}  // namespace korvane::play
