// Rolls that decide something, and how lucky they were.
#pragma once

#include <string>
#include <string_view>

#include "base/numbers.h"

namespace korvane {

// A roll of two dice that decided something, with what it was rolled against.
struct RolledCheck {
    std::string_view check;  // its string, as "Edu 8+", or the skill's name
    int own = 0;             // the modifier of the character
    int once = 0;            // that of the moment
    int target = 0;
    int effect = 0;      // by how much it was made: 0 or more is a success
    bool under = false;  // a low roll succeeds: it may be the target at most
    bool alone = true;   // not one of several tries of which the best counts

    int roll() const { return under ? target - effect : effect - own - once + target; }
    // How good the roll was, from 2 to 12: of rolls that should be low the opposite side of the dice counts.
    int luck() const { return under ? 14 - roll() : roll(); }
    // How many of the 36 ways that two dice fall make it, with a further modifier.
    int WaysOf36(int further = 0) const;
};

// A check as it is read, "Dex 5+", wherever its string has the "+"; what is none stays as it is.
std::string CheckText(std::string_view check);

// How the rolls of a life fell.
struct Luck {
    struct Extreme {
        int luck = 0;       // of the roll, from 2 to 12
        std::string check;  // what it was rolled for
    };

    static constexpr int kUsual = 7;  // what two dice bring

    int rolls = 0;
    int sum = 0;  // of their luck
    Extreme best;
    Extreme worst;

    int Expected() const { return kUsual * rolls; }
    void Note(const RolledCheck& rolled);
};

}  // namespace korvane
