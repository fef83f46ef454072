#include "character/checks.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace korvane {

namespace {

void Note(Session& session, const RolledCheck& rolled) {
    session.character.Luck.Note(rolled);
    if (session.seams.observer != nullptr)
        session.seams.observer->CheckRolled(rolled);
}

}  // namespace

int CheckTarget(std::string_view check) {
    // Targets beyond any roll are all alike; the bound only keeps the number within an int.
    constexpr double kBeyondAnyRoll = 1e6;
    return static_cast<int>(
        std::clamp(std::nearbyint(LenientNumber(AfterCharacters(check, 4))), -kBeyondAnyRoll, kBeyondAnyRoll));
}

int RollAgainst(Session& session, std::string_view what, int modifier, int target) {
    const int effect = Roll(session, 2, 6) + modifier - target;
    Note(session, {what, modifier, 0, target, effect});
    return effect;
}

int RollUnder(Session& session, std::string_view what, int target, bool alone) {
    const int effect = target - Roll(session, 2, 6);
    Note(session, {what, 0, 0, target, effect, true, alone});
    return effect;
}

int RollCheck(Session& session, std::string_view check, int dm) {
    const auto slot = static_cast<int>(CharacterPosition(check, '+'));
    const int roll = Roll(session, 2, 6);
    const int own = session.character.CharacteristicDM[slot];
    const int target = CheckTarget(check);
    const int effect = roll + dm + own - target;
    Note(session, {check, own, dm, target, effect});
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
