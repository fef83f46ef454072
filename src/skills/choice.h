// The choice service: every single choice that the rules leave to the player.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Asks for one of the alternatives of `options`, which are separated by "/"; empty ones are alternatives too. In
// automatic mode the answer is drawn and nothing is shown. The text of the answer is left in `PickText`, its place,
// from 1, in `PickPlace`.
//
// The result, left in `PickIndex` too, counts from 1 when the player answered and from 0 when the answer was drawn;
// rules that act on it as it stands say so, all others use the place. Throws RuleError (subscript), before anything is
// asked, for more than 24 alternatives.
Count ChooseOption(Session& session, std::string_view title, std::string_view options);

// The same, with the place of the answer, from 1, as the result.
int ChoosePlace(Session& session, std::string_view title, std::string_view options);

// The same for a choice that is none of the life's: the place is 0 when the player leaves it, and nothing is left in
// `PickText`.
int ChoosePlaceOrLeave(Session& session, std::string_view title, std::string_view options);

// The alternative at a place, from 1, of a "/"-separated text.
std::string_view AlternativeAt(std::string_view options, int place);

}  // namespace korvane
