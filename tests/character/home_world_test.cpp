// Rolling a home world: the order of the rolls, what rows do to later ones, and whether the shipped worlds hang
// together.

#include "character/home_world.h"

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
        std::string facts;
        for (const auto& fact : character().HomeWorld)
            facts += fact;
        return facts;
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
    EXPECT_EQ(WorldOf({7, 12, 5, 7, 7, 7, 2}), "bdefhik") << "law at most 7, population 8, port at least 7";
    EXPECT_EQ(WorldOf({8, 12, 12, 2, 2, 2, 12}), "adefgjl")
        << "a total below the table takes its first row; port 15, but at most 5";
    EXPECT_EQ(WorldOf({8, 7, 4, 2, 2, 2, 12}), "bdefgil")
        << "of two limits that contradict each other \"at least\" holds";
    EXPECT_EQ(WorldOf({8, 7, 5, 2, 2, 2, 12}), "cdefhil") << "a total beyond the table takes its last row";
}

TEST_F(HomeWorlds, WithoutTablesNothingIsRolled) {
    character().HomeWorld.fill("of another");
    EXPECT_EQ(WorldOf({}), "");
}

TEST(ShippedWorlds, HangTogether) {
    Display display;
    Session session(DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display});
    SeededDice dice(1, 1);
    session.seams.dice = &dice;
    int airless = 0;
    for (int i = 0; i < 2000; ++i) {
        RollHomeWorld(session);
        const auto& [port, size, air, water, people, law, tech] = session.character.HomeWorld;
        if (air.starts_with("none")) {
            ++airless;
            EXPECT_TRUE(water.starts_with("dry")) << water;
            EXPECT_TRUE(tech.find("sails") == std::string::npos && tech.find("flint") == std::string::npos) << tech;
        }
    }
    EXPECT_GT(airless, 10);
}

}  // namespace
}  // namespace korvane
