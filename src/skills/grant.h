// Skill strings: the one textual form of each gain, and the operation that carries it out.
//
//   "A or B", "A/B"   one of the two, the player's choice
//   "Edu +1"          raises a characteristic, to at most 15
//   "Admin=1"         sets a skill to at least 1
//   "Science-0"       adds levels to a skill; a new skill starts there
//   "Pilot"           adds one level
//
// A skill of which the race knows specialities becomes one of them when levels are gained; "Pilot (Spacecraft)" names
// it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

// The speciality of a skill whose player has not made up their mind.
inline constexpr std::string_view kPickLater = "Pick Later";

// Carries out a skill string. Throws RuleError: type for a level that is no number, overflow for one that leaves 16
// bits.
void GrantSkill(Session& session, std::string_view text);

// The same for a field of a record: where it holds " or ", the chosen side replaces it until its file is loaded again.
void GrantSkillOf(Session& session, std::string_view& field);

// The names of the skills that a text joins by " or " or "/", each once and without its level; what raises a
// characteristic is none.
std::vector<std::string_view> SkillsIn(std::string_view text);
// Has the character know a skill of a text, at level 0 when it is new: the player's choice where there are several.
void TrainSkill(Session& session, std::string_view text);

// Whether a level can be added to the skill, or to one of its specialities, without going above `most`.
bool MayRaiseSkill(const Session& session, std::string_view name, int most);
// Adds a level to a skill that may rise; of its specialities only those that may are offered. Returns the name of what
// was raised.
std::string RaiseSkill(Session& session, std::string_view name, int most);

}  // namespace korvane
