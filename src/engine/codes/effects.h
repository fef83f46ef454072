// The small effects of which codes are composed: plain structs that can be looked at.
#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

// A number of the character.
using Field = Count CharacterNumbers::*;

// Sets a number.
struct Set {
    Field field;
    int value;
};

// Adds to a number, or takes from it.
struct Add {
    Field field;
    int amount;
};

// Lowers a characteristic, but not below a floor.
struct Lower {
    int slot;
    int amount;
    int floor;
};

// What no other effect says: a function of the rules.
struct Call {
    void (*function)(Session& session);
};

using Effect = std::variant<Set, Add, Lower, Call>;
using Effects = std::vector<Effect>;

}  // namespace korvane
