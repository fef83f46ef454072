// The two tests that a check string, as "Edu 8+", can be put to.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The target of a check string: the number from its fifth character on.
int CheckTarget(std::string_view check);

// Rolls 2D6 with a modifier against a target, for what is named. The result is the effect: 0 or more is a success.
int RollAgainst(Session& session, std::string_view what, int modifier, int target);
// Rolls 2D6 that may be the target at most. The result is the target minus the roll: 0 or more is a success. `alone`:
// not one of several tries of which the best counts.
int RollUnder(Session& session, std::string_view what, int target, bool alone = true);

// Rolls 2D6 against the check. The result is the effect: 0 or more is a success. The modifier is that of the
// characteristic in the slot given by the place of the first "+" in the check, not of the one that it names. Throws
// RuleError (subscript), after the dice, when that place is beyond the tenth character.
int RollCheck(Session& session, std::string_view check, int dm);

// Whether the named characteristic reaches the target, without dice. A name that isn't known is told to the player and
// fails.
bool CheckStat(Session& session, std::string_view check);

}  // namespace korvane
