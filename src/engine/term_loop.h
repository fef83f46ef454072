// The life of a character, term by term.
#pragma once

#include <functional>

#include "character/KVNDeclare.h"

namespace korvane {

// The term after which a life musters out, whatever the player wants; one that prison took beyond it goes on.
inline constexpr int kTermLimit = 10;

enum class LifeEnd { MusteredOut, Scrapped };

// Takes the character that was started from the opening term to the end of the last career. Throws RuleError for data
// that the rules can't be carried out with, FileError for a rule file that a change of career needs.
LifeEnd RunLife(Session& session);

// "Start Career": locks the controls, has the life lived, and starts the next character. The controls are unlocked also
// when a life ends in an error.
void RunCareer(Session& session, const std::function<void()>& life);

}  // namespace korvane
