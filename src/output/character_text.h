// A finished character as plain text, as a player would paste it into a chat.
#pragma once

#include <string>

#include "character/KVNDeclare.h"

namespace korvane {

// Lines ended by LF: who the character is, characteristics, skills, benefits and the numbered history.
std::string CharacterText(const Session& session);

}  // namespace korvane
