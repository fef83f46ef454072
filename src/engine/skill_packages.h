// Skills that come from no career: those of the youth, of shared adventures and of the group.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// What the character learned before the first term.
void GrantBackgroundSkills(Session& session);
// What the characters of a group owe to each other; with "Add 2 skills for Connections".
void GrantConnections(Session& session);
// What a group needs for its campaign; with "Select Skill Package".
void GrantSkillPackage(Session& session);

}  // namespace korvane
