// The roll against a skill that mishaps, events and prison share.
#pragma once

#include <span>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Rolls 2D6 and gives the target minus the roll: 0 or more is a success. How well the skill is held plays no part, so a
// roll of at most the target succeeds whatever the skill. `alone`: not one of several tries of which the best counts.
int SkillRoll(Session& session, std::string_view skill, int target, bool alone = true);

// Rolls 2D6 with the best modifier among skills against a target; the best is picked. The result is the effect: 0 or
// more is a success.
int RollBest(Session& session, std::span<const std::string_view> skills, int target);

}  // namespace korvane
