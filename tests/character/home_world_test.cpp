// Rolling a home world: the order of the rolls, what rows do to later ones, and whether the shipped worlds hang
// together.

#include "character/home_world.h"

#include <algorithm>
#include <set>

#include "base/files.h"
#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;

class HomeWorlds : public test::World {
  protected:
    HomeWorlds() { session.data = DataFolder(folder.held()); }

    // The world of these rolls, a letter a table.
    std::string WorldOf(const std::vector<int>& rolls) {
        for (const int roll : rolls)
            dice.Expect({Rolled(2, 6, roll)});
        RollHomeWorld(session);
        dice.ExpectDone();
        return character().HomeWorld;
    }

    test::TempFolder folder;
};

TEST_F(HomeWorlds, RollsFollowTheOrderOfTheFileAndCarryTheShiftsOfRowsBefore) {
    folder.Write("Worlds.dat",
                 "Order: tech level, law level, population, hydrographics, atmosphere, size, port\n"
                 "Table Port\n2 to 6: a\n7: b\n8 to 12: c\n"
                 "Table Size\n2 to 12: d\n"
                 "Table Atmosphere\n2 to 12: e\n"
                 "Table Hydrographics\n2 to 12: f\n"
                 "Table Population\n2 to 7: g | port at most 5\n8 to 12: h\n"
                 "Table Law level\n2 to 7: i | port at least 7, population +3\n8 to 12: j | population -20\n"
                 "Table Tech level\n2 to 7: k | port -2, law level at most 7\n8 to 12: l | port +2, port +1\n");
    const std::string middle = "; Size: d; Atmosphere: e; Hydrographics: f; Population: ";
    EXPECT_EQ(WorldOf({7, 12, 5, 7, 7, 7, 2}), "Port: b" + middle + "h; Law level: i; Tech level: k")
        << "law at most 7, population 8, port at least 7";
    EXPECT_EQ(WorldOf({8, 12, 12, 2, 2, 2, 12}), "Port: a" + middle + "g; Law level: j; Tech level: l")
        << "a total below the table takes its first row; port 15, but at most 5";
    EXPECT_EQ(WorldOf({8, 7, 4, 2, 2, 2, 12}), "Port: b" + middle + "g; Law level: i; Tech level: l")
        << "of two limits that contradict each other \"at least\" holds";
    EXPECT_EQ(WorldOf({8, 7, 5, 2, 2, 2, 12}), "Port: c" + middle + "h; Law level: i; Tech level: l")
        << "a total beyond the table takes its last row";
}

TEST_F(HomeWorlds, WithoutTablesNothingIsRolled) {
    character().HomeWorld = "of another";
    EXPECT_EQ(WorldOf({}), "");
}

// Dice that fall as a list says, and then 7.
struct ListedDice : Dice {
    std::vector<int> totals;
    std::size_t next = 0;
    int Roll(int /*count*/, int /*sides*/) override { return next < totals.size() ? totals[next++] : 7; }
    int Draw(int /*n*/) override { return 0; }
};

// What a world says, and what it must say too: one of several.
struct Need {
    std::string said;
    std::vector<std::string> needs;
};
const std::vector<std::string> kEngines = {"engines, radio", "fusion power", "starships built"};
const std::vector<Need> kNeeds = {
    {"moonlet", {"Atmosphere: none"}},
    {"Atmosphere: none", {"Hydrographics: dry"}},
    {"no lung can use", {"Hydrographics: dry"}},
    {"Atmosphere: none", kEngines},
    {"no lung can use", kEngines},
    {"poisonous", kEngines},
    {"wear masks", {"steam", "engines, radio", "fusion power", "starships built"}},
    {"some dozens", {"flint", "iron and sails", "steam", "engines, radio"}},
    {"a few thousand", {"flint", "iron and sails", "steam", "engines, radio", "fusion power"}},
    {"billions", {"steam", "engines, radio", "fusion power", "starships built"}},
    {"billions", {"plain courts", "permits", "watching eyes"}},
    {"great cities", {"plain courts", "permits", "watching eyes"}},
    {"watching eyes", kEngines},
    {"a busy port", kEngines},
    {"a great port", {"fusion power", "starships built"}},
    {"starships built", {"a busy port", "a great port"}}};

class ShippedWorlds : public test::World {
  protected:
    ShippedWorlds() {
        session.data = DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once);
        session.seams.dice = &listed;
    }

    const std::string& WorldOf(const std::vector<int>& rolls) {
        listed.totals = rolls;
        listed.next = 0;
        RollHomeWorld(session);
        return character().HomeWorld;
    }
    // What the world says of a table.
    static std::string PartOf(const std::string& world, std::size_t table) {
        const auto begin = world.find(Concat(kWorldTableNames.at(table), ": "));
        return world.substr(begin, world.find("; ", begin) - begin);
    }
    void ExpectHangsTogether(const std::string& world) {
        const auto says = [&](const std::string& text) { return world.find(text) != std::string::npos; };
        for (const auto& [said, needs] : kNeeds)
            if (says(said)) {
                met.insert(said);
                EXPECT_TRUE(std::ranges::any_of(needs, says)) << said << ": " << world;
            }
    }
    // Goes through every world that begins with these rolls; rolls that give the same rows are tried once.
    void Explore(std::vector<int>& rolls) {
        const auto table = session.data.HomeWorlds()->order.at(rolls.size());
        std::set<std::string> seen;
        for (int roll = 2; roll <= 12; ++roll) {
            rolls.push_back(roll);
            const auto world = WorldOf(rolls);
            if (seen.insert(PartOf(world, table)).second) {
                if (rolls.size() < kWorldTableNames.size()) {
                    Explore(rolls);
                } else {
                    ExpectHangsTogether(world);
                    ++worlds;
                }
            }
            rolls.pop_back();
        }
    }

    ListedDice listed;
    int worlds = 0;
    std::set<std::string> met;
};

TEST_F(ShippedWorlds, EveryOneHangsTogether) {
    std::vector<int> rolls;
    Explore(rolls);
    EXPECT_GT(worlds, 10000);
    for (const auto& need : kNeeds)
        EXPECT_TRUE(met.contains(need.said)) << "no world says \"" << need.said << "\"";
}

}  // namespace
}  // namespace korvane
