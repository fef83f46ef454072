#include "engine/skill_roll.h"

namespace korvane {

int SkillRoll(Session& session, std::string_view /*skill*/, int target) {
    return target - Roll(session, 2, 6);
}

}  // namespace korvane
