#include "engine/skill_roll.h"

#include "character/checks.h"

namespace korvane {

int SkillRoll(Session& session, std::string_view skill, int target, bool alone) {
    return RollUnder(session, skill, target, alone);
}

}  // namespace korvane
