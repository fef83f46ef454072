// What a skill adds to a roll.
#pragma once

#include <span>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The level of the skill of exactly that name; else, for a bare name, the best of its held specialities, and for a name
// with a speciality, 0 when the skill is held in another way; else -3, raised by "Jack of all Trades" to at most 0.
int SkillModifier(const CharacterRecord& character, std::string_view name);

// The greatest modifier among the names; the first of equals. Its name is left in `PickText`.
int BestSkillModifier(Session& session, std::span<const std::string_view> names);

}  // namespace korvane
