// The choice service: every single choice that the rules leave to the player.
#pragma once

#include <span>

#include "character/KVNDeclare.h"

namespace korvane {

using Alternatives = std::span<const std::string_view>;

// An answer: the place of the alternative, from 1, and its text, which stands where the caller's alternatives do.
struct Choice {
    int place = 0;
    std::string_view text;
};

// Asks for one of the alternatives; empty ones are alternatives too. In automatic mode the answer is drawn and nothing
// is shown. Throws RuleError (subscript), before anything is asked, for more than 24 alternatives.
Choice Choose(Session& session, std::string_view title, Alternatives alternatives);
// The same for a choice that is none of the life's: the place is 0 when the player leaves it.
Choice ChooseOrLeave(Session& session, std::string_view title, Alternatives alternatives);

// The same as `Choose`, with the number of the answer, left in `PickIndex` too: it counts from 1 when the player
// answered and from 0 when the answer was drawn. Two rules act on it as it stands and say so; all others take the
// place.
Count ChooseOption(Session& session, std::string_view title, Alternatives alternatives);

}  // namespace korvane
