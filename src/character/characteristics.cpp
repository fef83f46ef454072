#include "character/characteristics.h"

#include <algorithm>
#include <array>

#include "character/home_world.h"
#include "character/summary.h"
#include "data/rule_row.h"

namespace korvane {

namespace {

// Rolls one die more than the race's figure and adds the second and the third of them in ascending order. With three
// dice that drops the lowest; a position that isn't there counts 0.
int RollDroppingLowest(Session& session, int figure) {
    constexpr int kNoDie = 99;
    std::array<int, 10> dice{};
    dice.fill(kNoDie);
    for (int i = 0; i <= figure; ++i)
        dice.at(static_cast<std::size_t>(i)) = Roll(session, 1, 6);
    std::ranges::sort(dice);
    const auto value = [](int die) { return die == kNoDie ? 0 : die; };
    return value(dice[1]) + value(dice[2]);
}

int RollTwoDice(Session& session) {
    const int first = Roll(session, 1, 6);
    return first + Roll(session, 1, 6);
}

void ApplyRaceModifier(Count& value, const RaceRecord& race, std::size_t slot) {
    const auto modifier = race.characteristicModifier.at(slot);
    if (IsBlank(modifier))
        return;
    CarryOutRow(race.source, modifier, [&] {
        const int amount = LenientCount(AfterCharacters(modifier, 1));
        value += modifier[0] == '+' ? amount : -amount;
    });
}

}  // namespace

void RollCharacteristics(Session& session) {
    auto& character = session.character;
    const auto& race = session.race;
    character.CharacteristicCount = race.characteristicCount;
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        character.Characteristic[i] =
            session.method == RollingMethod::True2D
                ? RollTwoDice(session)
                : RollDroppingLowest(session, race.characteristicDice.at(static_cast<std::size_t>(i)));
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        ApplyRaceModifier(character.Characteristic[i], race, static_cast<std::size_t>(i));
}

void StartNewCharacter(Session& session) {
    if (session.seams.observer != nullptr)
        session.seams.observer->CharacterBegins();
    auto& character = session.character;
    character.Clear();
    character.Age = session.race.startingAge;
    for (int i = 1; i <= session.race.characteristicCount; ++i)
        character.CharacteristicName[i] = session.race.characteristicName.at(static_cast<std::size_t>(i));
    RollCharacteristics(session);
    RollHomeWorld(session);
    if (session.seams.observer != nullptr)
        session.seams.observer->CharacterStarted();
    ShowSummary(session);
}

}  // namespace korvane
