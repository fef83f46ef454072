// Rolling names of a file's syllables, and choosing one of ten.

#include "engine/names.h"

#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;

class RolledNames : public test::World {
  protected:
    RolledNames() { session.data = DataFolder(folder.held()); }

    // A table, each of whose six parts is a line.
    static std::string Table(const std::string& name, const std::vector<std::string>& parts) {
        auto text = "Table " + name;
        for (std::size_t i = 0; i < parts.size(); ++i)
            AppendAll(text, i < 3 ? "\nGiven " : "\nFamily ", std::array{"start", "middle", "end"}.at(i % 3), "\n",
                      parts[i]);
        return text + "\n";
    }
    std::string NameOf(const std::vector<int>& ends, const std::vector<int>& draws) {
        for (std::size_t i = 0; i < draws.size(); ++i)
            dice.Expect({Drawn(ends[i], draws[i])});
        auto name = RollNameOf(session);
        dice.ExpectDone();
        return name;
    }

    test::TempFolder folder;
};

TEST_F(RolledNames, TakeOneDrawAPartByTheirWeights) {
    folder.Write("Names.dat", Table("Default", {"ba 2\n-", "ri", "-\nlo", "o'\n-", "d'a 998\nda\n-", "-\nro"}));
    const std::vector<int> ends = {3, 1, 2, 2, 1000, 2};
    EXPECT_EQ(NameOf(ends, {0, 0, 0, 0, 0, 0}), "Bari O'd'a");
    EXPECT_EQ(NameOf(ends, {1, 0, 1, 1, 997, 1}), "Barilo D'aro");
    EXPECT_EQ(NameOf(ends, {2, 0, 1, 1, 998, 0}), "Rilo Da");
    EXPECT_EQ(NameOf(ends, {2, 0, 0, 1, 999, 0}), "Ri") << "without a family name";
}

TEST_F(RolledNames, BeginWithACapitalAndComeFromTheTableOfTheRace) {
    session.race.kind = " Wood folk";
    folder.Write("Names.dat", Table("Default", {"a", "-", "-", "-", "-", "-"}) +
                                  Table("Wood Folk", {"é", "-", "lan", "÷", "ÿ", "b"}));
    EXPECT_EQ(NameOf(std::vector(6, 1), std::vector(6, 0)), "Élan ÷ÿb");
    session.race.kind = "Other";
    EXPECT_EQ(NameOf(std::vector(6, 1), std::vector(6, 0)), "A");
}

TEST_F(RolledNames, AreOfferedByTensUntilOneIsChosen) {
    folder.Write("Names.dat", Table("Default", {"a\nbo\nka", "-", "-", "-", "-", "-"}));
    const auto expect_ten = [&](int first) {
        for (int i = 0; i < 10; ++i)
            dice.Expect(
                {Drawn(3, i == 0 ? first : 2), Drawn(1, 0), Drawn(1, 0), Drawn(1, 0), Drawn(1, 0), Drawn(1, 0)});
    };
    expect_ten(0);
    expect_ten(1);
    player.ExpectChoice("Select Character Name", "A/Ka/Ka/Ka/Ka/Ka/Ka/Ka/Ka/Ka/(Roll Again)", 11)
        .ExpectChoice("Select Character Name", "Bo/Ka/Ka/Ka/Ka/Ka/Ka/Ka/Ka/Ka/(Roll Again)", 1);
    EXPECT_EQ(RollName(session), "Bo");
    expect_ten(1);
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(11, 9)});
    EXPECT_EQ(RollName(session), "Ka");
}

}  // namespace
}  // namespace korvane
