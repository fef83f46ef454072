#include "support/world.h"

#include <stdexcept>

#include "base/files.h"
#include "engine/selection.h"

namespace korvane::test {

World::World() : session(DataFolder(HeldPath(KORVANE_RULES)), {&dice, &player, &display}) {
    if (SelectStart(session, "Imperial Human", "Army", "Infantry"))
        throw std::logic_error("the shipped data has no infantry");
    session.race.backgroundSkillCount = 0;
    character().CharacteristicCount = session.race.characteristicCount;
    for (int i = 1; i <= character().CharacteristicCount; ++i) {
        character().CharacteristicName[i] = session.race.characteristicName.at(static_cast<std::size_t>(i));
        character().Characteristic[i] = 7;
    }
}

void World::Hold(const std::string& name, int level) {
    character().Skills.Take(name, level);
}

int World::LevelOf(const std::string& name) const {
    const auto* const skill = session.character.Skills.Find(name);
    return skill == nullptr ? -1 : int{skill->Level};
}

std::vector<std::string> World::History() const {
    const auto lines = session.character.History.lines();
    return {lines.begin(), lines.end()};
}

void World::SetCharacteristic(int slot, int value) {
    character().Characteristic[slot] = value;
    RecomputeCharacteristicDMs(character());
}

void World::ExpectScriptsDone() {
    dice.ExpectDone();
    player.ExpectDone();
}

}  // namespace korvane::test
