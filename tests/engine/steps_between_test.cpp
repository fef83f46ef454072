// The steps around the terms: background skills, the military academy, connections and the skill package.

#include "engine/education.h"
#include "engine/selection.h"
#include "engine/skill_packages.h"
#include "engine/term_loop.h"
#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using test::Rolled;
using Lines = std::vector<std::string>;

class StepsBetween : public test::World {
  protected:
    void GiveBackground(const std::vector<std::string_view>& skills) {
        session.race.backgroundSkillCount = static_cast<int>(skills.size());
        std::ranges::copy(skills, session.race.backgroundSkills.begin() + 1);
    }
    std::vector<std::string> LeftOpen() const {
        const auto lines = session.character.LeftOpen.lines();
        return {lines.begin(), lines.end()};
    }
    void UsePackages(const std::string& text) {
        folder.Write("Packages.dat", text);
        session.data = DataFolder(folder.held());
        Tick(Option::SelectSkillPackage);
    }

    test::TempFolder folder;
};

TEST_F(StepsBetween, BackgroundSkillsAreAsManyAsEducationAllows) {
    const auto asked = [&](int edu) {
        SetCharacteristic(kEdu, edu);
        return BackgroundSkillCount(character());
    };
    EXPECT_EQ(Concat(asked(0), asked(2), asked(4), asked(7), asked(9), asked(15)), "112346");
    GiveBackground({"Engineer (M-Drive)=1", "Drive/Flyer-1", "-", "Str +1", "Pilot-0", "Pilot", "Admin=2"});
    SetCharacteristic(kEdu, 7);
    player.ExpectListLimits("Select 3 background skills", 3, 3, {1, 2, 3})
        .ExpectChoice("Select a Skill", "Drive/Flyer", 2);
    GrantBackgroundSkills(session);
    EXPECT_EQ(History(), (Lines{"Admin-0", "Flyer-0", "Engineer (M-Drive)-0"})) << "at level 0, whatever the list says";
    player.ExpectListLimits("Select 3 background skills", 3, 3, {});
    GrantBackgroundSkills(session);
    EXPECT_EQ(LeftOpen(), Lines{"3 background skills"}) << "after Cancel";
    GiveBackground({"Recon-0"});
    player.ExpectListLimits("Select 1 background skills", 1, 1, {1});
    GrantBackgroundSkills(session);
    GiveBackground({});
    GrantBackgroundSkills(session);
    EXPECT_EQ(History().size(), 4U);
}

TEST_F(StepsBetween, AutomaticBackgroundSkillsDiffer) {
    Tick(Option::AutomaticGeneration);
    GiveBackground({"Admin-0", "Drive-0", "Medic-0", "Recon-0"});
    dice.Expect({Drawn(4, 3), Drawn(3, 0), Drawn(2, 1)});
    GrantBackgroundSkills(session);
    EXPECT_EQ(History(), (Lines{"Admin-0", "Medic-0", "Recon-0"}));
}

TEST_F(StepsBetween, ConnectionsRaiseTwoDifferentSkillsToThreeAtMost) {
    GrantConnections(session);  // the box isn't ticked: nothing is asked
    Tick(Option::AddSkillsForConnections);
    session.race.specialities = {{"Art", {"Song", "Dance"}}};
    Hold("Admin", 3);
    Hold("Art (Song)", 3);
    Hold("Art (Pick Later)", 3);
    Hold("Medic", 2);
    AddHistory(session, "Ally: Old friend");
    AddHistory(session, "Ally: Old friend");
    AddHistory(session, "Enlist: nobody");
    const std::string first =
        "Advocate/Animals/Art/Astrogation/Athletics/Broker/Carouse/Deception/Diplomat/Drive/Electronics/"
        "Engineer/Explosives/Flyer/Gambler/Gun Combat/Gunner/Heavy Weapons/Investigate/Language/"
        "Leadership/Mechanic/Medic/Melee/Navigation/Persuade/Profession/Recon/Science/Seafarer/Stealth/"
        "Steward/Streetwise/Survival/Tactics/Vacc Suit";
    const std::string people = "I don't say/Another player's character/Old friend (Ally)";
    player.ExpectList("Select a skill for connection 1", first, {3})
        .ExpectChoice("With whom is the connection for Art?", people, 3)
        .ExpectChoice("Select Specialty for Art", "Dance", 1)
        .ExpectListLimits("Select a skill for connection 2", 1, 1, {22})
        .ExpectChoice("With whom is the connection for Medic?", people, 1);
    GrantConnections(session);
    EXPECT_EQ(History().back(), "Medic-3");
    EXPECT_EQ(LevelOf("Art (Dance)"), 1);
    const auto& made = character().Connections;
    ASSERT_EQ(made.size(), 2U);
    EXPECT_EQ(made[0].skill + made[0].with + made[1].skill + made[1].with, "Art (Dance)Old friend (Ally)Medic");
    EXPECT_EQ(History()[3], "Connection: Old friend (Ally)");
    EXPECT_EQ(History()[5], "Connection");
    player.ExpectListLimits("Select a skill for connection 1", 1, 1, {});
    GrantConnections(session);
    EXPECT_EQ(LeftOpen(), Lines{"2 skills for connections"});
}

TEST_F(StepsBetween, APackageBringsEachOfItsSkillsToLevelOne) {
    UsePackages("# ours\nPackage Crew\nPilot\nAdmin\nMedic or Recon\nPackage Other\nBroker\n");
    session.race.specialities = {{"Pilot", {"Small Craft"}}};
    Hold("Pilot (Small Craft)", 2);
    Hold("Admin", 0);
    player.ExpectChoice("Select Skill Package", "Crew/Other", 1).ExpectChoice("Select a Skill", "Medic/Recon", 2);
    GrantSkillPackage(session);
    EXPECT_EQ(History(), (Lines{"Skill package: Crew", "Skill Pilot=1 already held", "Admin-1", "Recon-1"}));
    EXPECT_EQ(character().SkillPackage, "Crew");
}

TEST_F(StepsBetween, APackageFileThatIsMissingOrWrongLosesNoLife) {
    session.data = DataFolder(folder.held());
    GrantSkillPackage(session);  // the box isn't ticked
    Tick(Option::SelectSkillPackage);
    player.ExpectTell("No skill package: the data folder has no Packages.dat");
    GrantSkillPackage(session);
    UsePackages("Package Crew\n");
    player.ExpectTell(
        "No skill package: Packages.dat:2: expected a skill of the package Crew, found the end of the file");
    GrantSkillPackage(session);
    EXPECT_EQ(LeftOpen(), (Lines{"1 skill package", "1 skill package"}));
    EXPECT_TRUE(History().empty());
}

class Academy : public test::World {
  protected:
    Academy() {
        if (SelectStart(session, "Imperial Human", "Marine", "Support"))
            ADD_FAILURE() << "no marines";
        session.race.backgroundSkillCount = 0;
        player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Military Academy", 3);
    }
    // Enters the marines' academy with a 9, evades a war there, and graduates by the last roll.
    void Study(int graduation) {
        player.ExpectChoice("Select Military Academy", "Army/Marine/Navy", 2)
            .ExpectChoice("Select a Skill", "Heavy Weapons/Explosives", 2)
            .ExpectChoice("Select a Skill", "Melee (Blade)/Melee (Bludgeon)", 1);
        dice.Expect({Rolled(2, 6, 9), Rolled(2, 6, 11), Rolled(2, 6, 9), Rolled(2, 6, graduation)});
    }
    // Lives until the first term's skill tables. Returns the lines after the first.
    Lines Live() {
        player.ExpectScrap();
        EXPECT_EQ(RunLife(session), LifeEnd::Scrapped);
        ExpectScriptsDone();
        const auto lines = History();
        return {lines.begin() + 1, lines.end()};
    }
    void BeginAnew() {
        const auto values = character().Characteristic;
        const auto names = character().CharacteristicName;
        character().Clear();
        character().Characteristic = values;
        character().CharacteristicName = names;
        character().CharacteristicCount = kSoc;
    }
    const Lines course = {"Military Academy: Marine",
                          "Stealth-0",
                          "Vacc Suit-0",
                          "Explosives-0",
                          "Melee (Blade)-0",
                          "Survival-0",
                          "War breaks out but you pull some strings and are not drafted"};
};

TEST_F(Academy, MakesOfficersWhoAreNotRefused) {
    Study(11);
    dice.Expect({Rolled(2, 6, 2)});  // the qualification
    auto lines = Live();
    auto expected = course;
    expected.insert(expected.end(), {"Graduated (Hons)", "Edu +1", "Soc +1", "Enlist Marine Support", "Commissioned"});
    lines.resize(expected.size());
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(Concat(character().Rank, " ", character().Commissioned, " ", character().Graduated), "7 1 2");
    EXPECT_EQ(character().Education, "Military Academy (Marine)");
}

TEST_F(Academy, FailureLeavesTheSkillsAlone) {
    Study(6);
    dice.Expect({Rolled(2, 6, 12)});
    auto lines = Live();
    lines.resize(course.size() + 2);
    auto expected = course;
    expected.insert(expected.end(), {"Failed", "Enlist Marine Support"});
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(Concat(character().Rank, " ", character().Graduated), "0 0");
}

TEST_F(Academy, OfAnotherServiceAsksWhetherToStayThere) {
    for (const bool stays : {true, false}) {
        if (!SelectCareer(session, "Scout"))
            FAIL();
        BeginAnew();
        Study(7);
        player.ExpectAsk("Enlist in the Marine as an officer, instead of the Scout?", stays);
        if (stays)
            player.ExpectChoice("Select Assignment", "Ground Assault/Star Marine/Support", 2);
        dice.Expect({Rolled(2, 6, stays ? 2 : 12)});
        const auto lines = Live();
        EXPECT_EQ(lines[course.size()], "Graduated");
        EXPECT_EQ(lines[course.size() + 2], stays ? "Enlist Marine Star Marine" : "Enlist Scout Courier");
        EXPECT_EQ(character().Commissioned, stays ? 1 : 0);
        player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Military Academy", 3);
    }
    player.ExpectScrap();
    EXPECT_EQ(RunLife(session), LifeEnd::Scrapped) << "at the choice of the academy";
}

TEST_F(Academy, RejectsAndIsForcedAndLacksWhatTheRaceLacks) {
    session.selection.careers = std::make_shared<const Names>(Names{"Marine", "Scout"});
    player.ExpectChoice("Select Military Academy", "Marine", 1);
    dice.Expect({Rolled(2, 6, 7), Rolled(2, 6, 12)});
    EXPECT_EQ(Live()[1], "Rejected") << "by a Str of 7 at 8";
    session.selection.careers = std::make_shared<const Names>(Names{"Scout"});
    BeginAnew();
    AttendMilitaryAcademy(session);
    EXPECT_EQ(History(), Lines{"Military Academy: none"});
    session.selection.careers = session.data.CareerNames("Imperial Human");
    Tick(Option::ForceAcademicSuccess);
    BeginAnew();
    Study(2);
    AttendMilitaryAcademy(session);
    EXPECT_EQ(History()[1], "Success forced");
    EXPECT_EQ(character().Graduated, 1);
    EXPECT_EQ(character().QualificationDM, kAutomaticSuccess);
}

}  // namespace
}  // namespace korvane
