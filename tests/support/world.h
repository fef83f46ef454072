// A session to try rules in: the shipped rule data, an "Imperial Human" in the "Army" ("Infantry") with 7 in each
// characteristic and nothing else, of a race without background skills, scripted dice and a scripted player. Tests
// change the records as they need.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "support/scripted_dice.h"
#include "support/scripted_player.h"

namespace korvane::test {

class World : public ::testing::Test {
  protected:
    World();

    CharacterRecord& character() { return session.character; }
    // Puts a skill into the first free slot, without a history line.
    void Hold(const std::string& name, int level);
    // The level of a skill; -1 when it isn't held.
    int LevelOf(const std::string& name) const;
    std::vector<std::string> History() const;
    void SetCharacteristic(int slot, int value);  // the modifiers are recomputed
    void Tick(Option option) { session.options.Set(option); }
    // Checks that the scripts were followed to their ends, in the middle of a test.
    void ExpectScriptsDone();

    Display display;
    ScriptedDice dice;
    ScriptedPlayer player;
    Session session;
};

}  // namespace korvane::test
