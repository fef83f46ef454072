#include "character/checks.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace korvane {

int CheckTarget(std::string_view check) {
    // Targets beyond any roll are all alike; the bound only keeps the number within an int.
    constexpr double kBeyondAnyRoll = 1e6;
    return static_cast<int>(
        std::clamp(std::nearbyint(LenientNumber(AfterCharacters(check, 4))), -kBeyondAnyRoll, kBeyondAnyRoll));
}

int RollCheck(Session& session, std::string_view check, int dm) {
    const auto slot = static_cast<int>(CharacterPosition(check, '+'));
    const int roll = Roll(session, 2, 6);
    const int own = session.character.CharacteristicDM[slot];
    const int effect = roll + dm + own - CheckTarget(check);
    if (session.seams.observer != nullptr)
        session.seams.observer->CheckRolled(check, own, dm, effect);
    return effect;
}

bool CheckStat(Session& session, std::string_view check) {
    const auto name = FirstCharacters(check, 3);
    const int slot = CharacteristicSlot(session.character, name);
    if (slot == 0) {
        Tell(session, Concat("Check Stat ", check, "not found ", name));
        return false;
    }
    return session.character.Characteristic[slot] >= CheckTarget(check);
}

}  // namespace korvane
