#include "engine/skill_packages.h"

namespace korvane {

void GrantBackgroundSkills(Session& /*session*/) {}

void GrantConnections(Session& /*session*/) {}

void GrantSkillPackage(Session& /*session*/) {}

}  // namespace korvane
