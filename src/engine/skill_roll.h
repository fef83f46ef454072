// The roll against a skill that mishaps, events and prison share.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls 2D6 and gives the target minus the roll: 0 or more is a success. How well the skill is held plays no part, so a
// roll of at most the target succeeds whatever the skill. `alone`: not one of several tries of which the best counts.
int SkillRoll(Session& session, std::string_view skill, int target, bool alone = true);

}  // namespace korvane
