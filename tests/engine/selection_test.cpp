// What selecting a race or a career loads, and in which order.

#include "engine/selection.h"

#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

class Selecting : public test::World {
  protected:
    Selecting() {
        folder.CopyRules();
        session.data = DataFolder(folder.held());
    }
    void ExpectNewCharacter() {
        dice.Expect(std::vector<test::Die>(12, test::Rolled(1, 6, 4)));
        dice.Expect(test::HomeWorldRolls());
    }

    const std::string human = "Imperial Human";
    test::TempFolder folder;
};

TEST_F(Selecting, ARaceBringsItsFirstCareerThenItsOwnFileAndANewCharacter) {
    character().Cash = 700;
    session.race.traits[10] = "Another race's";
    ExpectNewCharacter();
    LoadRace(session, human);
    EXPECT_EQ(session.selection.careers->size(), 8U);
    EXPECT_EQ(*session.selection.assignments, (Names{"Counterspy", "Customs Watch", "Law Enforcement"}));
    EXPECT_EQ(session.assignment.survival, "Soc 7+") << "the first assignment's";
    EXPECT_EQ(session.race.traits[10], "") << "nothing of an earlier race survives";
    EXPECT_EQ(Concat(character().Characteristic[kStr], " ", character().Age, " ", character().Cash), "8 18 0");
    LoadCareer(session, human, "Army");
    folder.Write("Imperial Human.eri", "Imperial Human\n");
    EXPECT_THROW(LoadRace(session, human), FileError);
    EXPECT_EQ(session.career.qualification, "Edu 6+") << "the first career was loaded before the race's own file";
}

TEST_F(Selecting, TitlesThatAFileDoesNotGiveStayFromWhatWasLoadedBefore) {
    const auto& title = session.career.skillTableTitle[1];
    auto navy = folder.Read("Imperial Human-Navy.ecf");
    folder.Write("Imperial Human-Navy.ecf", navy.erase(navy.find("Personal Development"), 20));
    session.career.skillTableTitle[1] = "Stale";
    ExpectNewCharacter();
    LoadRace(session, human);
    LoadCareer(session, human, "Navy");
    EXPECT_EQ(title, "Personal Development") << "from the career that the race loaded first";
    folder.Write("Imperial Human-Agent.ecf", navy);
    ExpectNewCharacter();
    LoadRace(session, human);
    EXPECT_EQ(title, "Personal Development") << "from the life before";
    EXPECT_FALSE(SelectStart(session, human, "Navy", "Flight"));
    EXPECT_EQ(title, "") << "a start is that of a new program";
}

TEST_F(Selecting, MissingCareersAndAssignmentsAreTold) {
    folder.Write("Elf.eri", "Elf\n");
    folder.Write("Elf Lord-Army.ecf", "");
    folder.Write("Imperial Human-Adept Reserve-Flight.eas", "");
    folder.Write("Imperial Human-Adept.ecf", folder.Read("Imperial Human-Navy.ecf"));
    player.ExpectTell("Career data files missing for Elf").ExpectTell("Assignment data files missing for Adept");
    LoadRace(session, "Elf");
    EXPECT_EQ(Concat(session.race.name, character().Characteristic[kStr]), human + "7") << "the records stay";
    EXPECT_EQ(session.selection.careers->size() + session.selection.assignments->size(), 0U);
    EXPECT_EQ(session.selection.career + session.selection.assignment, "")
        << "a list that was cleared has no selection";
    ExpectNewCharacter();  // the race is loaded all the same
    LoadRace(session, human);
    EXPECT_EQ(Concat(session.selection.career, "/", session.selection.assignment, "/", session.career.commission),
              "Adept//Edu 8");
}

TEST_F(Selecting, TheImperialHumanIsTheDefaultRaceElseTheFirst) {
    const test::TempFolder none;
    session.data = DataFolder(none.held());
    ListRaces(session);
    none.Write("Worlds.dat", folder.Read("Worlds.dat"));
    for (const std::string race : {"Elf", "Imperial Human"}) {
        for (const std::string part : {".eri", "-Army.ecf", "-Army-Infantry.eas"})
            none.Write(race + part, folder.Read(human + part));
        ExpectNewCharacter();
        ListRaces(session);
        EXPECT_EQ(session.selection.race, race);
    }
}

}  // namespace
}  // namespace korvane
