#include "character/rolled_check.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace korvane {

int RolledCheck::WaysOf36(int further) const {
    // The ways to fall below 2, 3, ... 12 and 13.
    constexpr std::array kWaysBelow = {0, 1, 3, 6, 10, 15, 21, 26, 30, 33, 35, 36};
    const auto below = [&](int number) {
        return kWaysBelow.at(static_cast<std::size_t>(std::clamp(number, 2, 13) - 2));
    };
    return under ? below(target + further + 1) : 36 - below(target - own - once - further);
}

std::string CheckText(std::string_view check) {
    std::string name;
    std::string number;
    for (const char character : check)
        if (character >= '0' && character <= '9')
            number += character;
        else if (character != '+')
            name += character;
    const bool is_check = check.find('+') != std::string_view::npos && !number.empty();
    return is_check ? Concat(Trim(name), " ", number, "+") : std::string(Trim(check));
}

void Luck::Note(const RolledCheck& rolled) {
    const int luck = rolled.luck();
    if (rolls == 0 || luck > best.luck) {
        best.luck = luck;
        best.check = rolled.check;
    }
    if (rolls == 0 || luck < worst.luck) {
        worst.luck = luck;
        worst.check = rolled.check;
    }
    ++rolls;
    sum += luck;
}

}  // namespace korvane
