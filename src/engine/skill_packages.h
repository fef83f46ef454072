// Skills that come from no career: those of the youth, of shared adventures and of the group.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// How many background skills a character may have: 3 and the modifier of Edu, at least 1.
int BackgroundSkillCount(const CharacterRecord& character);
// What the character learned before the first term: so many different skills of the race's list, at level 0. A race
// without a list is asked nothing.
void GrantBackgroundSkills(Session& session);
// What the characters of a group owe to each other, with "Add 2 skills for Connections": a level each of two different
// basic skills, none above level 3.
void GrantConnections(Session& session);
// What a group needs for its campaign, with "Select Skill Package": each skill of one package at level 1 at least. A
// package file that is missing or malformed is told of and left out.
void GrantSkillPackage(Session& session);

}  // namespace korvane
