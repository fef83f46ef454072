#include "engine/skill_roll.h"

#include "character/checks.h"
#include "skills/modifiers.h"

namespace korvane {

int SkillRoll(Session& session, std::string_view skill, int target, bool alone) {
    return RollUnder(session, skill, target, alone);
}

int RollBest(Session& session, std::span<const std::string_view> skills, int target) {
    const int modifier = BestSkillModifier(session, skills);
    return RollAgainst(session, session.choice.PickText, modifier, target);
}

}  // namespace korvane
