// Skill strings and what they do to the record: every form, specialities, the cap, limits.

#include "skills/grant.h"

#include "data/rule_row.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn;
using Lines = std::vector<std::string>;

class Grants : public test::World {
  protected:
    Grants() { session.race.specialities = {{"Pilot", {"Capital", "", "Spacecraft"}}}; }

    // Grants the texts and gives the history that came of them alone.
    Lines Granted(const std::vector<std::string_view>& texts) {
        character().History.Clear();
        for (const auto text : texts)
            GrantSkill(session, text);
        return History();
    }
    std::string ErrorOf(std::string_view text) {
        try {
            GrantSkill(session, text);
            return "none";
        } catch (const RuleError& error) {
            return std::string(NameOf(error.kind()));
        }
    }
    void ExpectSkills(const std::vector<std::pair<std::string, int>>& questions) {
        for (const auto& [options, pick] : questions)
            player.ExpectChoice("Select a Skill", options, pick);
    }
    void ExpectPilot(int pick) {
        player.ExpectChoice("Select Specialty for Pilot", "Capital/Spacecraft/Pick Later", pick);
    }
    void ExpectRefusal(const std::string& name, const std::vector<int>& marks) {
        player.ExpectTell("Skill " + name + " already at the max of 4. Select something else:")
            .ExpectListLimits("Select Any Skill", 1, 1, marks);
    }
};

TEST_F(Grants, EqualsSetsMinusAddsAndABareNameAddsOne) {
    EXPECT_EQ(Granted({"Science-0", "Science-0", "Medic", "Engineer (M-Drive)=1", "Vacc =1", "Admin=2", "Admin=1",
                       "Admin=2", "Admin=3", "Admin", "Admin- -1 "}),
              (Lines{"Science-0", "Science-0", "Medic-1", "Engineer (M-Drive)-1", "Vacc -1", "Admin-2",
                     "Skill Admin=1 already held", "Skill Admin=2 already held", "Admin-3", "Admin-4", "Admin-3"}));
    for (const auto* const text : {"Engineer (M-Drive)", "Admin-", "Admin=", "Admin=1-0", "Admin=1.5"})
        EXPECT_EQ(ErrorOf(text), "type") << text;
}

TEST_F(Grants, OrTakesTheNumberOfTheAnswerAndSlashesItsText) {
    ExpectSkills({{"Stealth/Survival-0", 1}, {"A/B or C", 2}, {"A/B/C", 1}, {"A/B/C", 2}, {"Edu +1/Medic=2", 2}});
    EXPECT_EQ(Granted({"  Stealth  or Survival-0 ", "A or B or C", "A/B or C", "A/B or C", "Edu +1/Medic=2"}),
              (Lines{"Stealth-1", "B or C-1", "A/B-1", "C-1", "Medic-2"}));
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(2, 0), Drawn(2, 1), Drawn(2, 0), Drawn(2, 1)});
    EXPECT_EQ(Granted({"D or E", "D or E", "F/G", "F/G"}), (Lines{"E-1", "D-1", "F-1", "G-1"}));
}

TEST_F(Grants, PlusRaisesACharacteristicToAtMost15) {
    character().CharacteristicName[6] = "STR";
    character().Characteristic[kEdu] = 15;
    character().Characteristic[kEnd] = 19;
    EXPECT_EQ(Granted({"sTr +2", "Edu +1", "End +1", "Dex + 1 0", "Int +-2", "Dex+3"}),
              (Lines{"sTr +2", "Edu +1", "End +1", "Dex +10", "Int +-2", "Dex +0"}));
    const std::array<int, 7> values = {0, 7, 15, 15, 5, 15, 9};  // the last of equal names; 17 and 19 become 15
    for (int i = 1; i <= 6; ++i)
        EXPECT_EQ(character().Characteristic[i], values.at(static_cast<std::size_t>(i))) << i;
    EXPECT_EQ(character().CharacteristicDM[kSoc], 1) << "the summary was refreshed";
    EXPECT_EQ(ErrorOf("Int +32767"), "overflow") << "before the limit of 15";
    Tick(Option::AutomaticGeneration);
    player.ExpectTell("Stat Foonot found").ExpectTell("Stat Foonot found").ExpectTell("Stat PSInot found");
    EXPECT_EQ(Granted({"Foo +1", "Foo +1=3", "PSI +1-0"}), (Lines{"Foo +1-1", "Foo +1-3", "PSI +1-0"}));
}

TEST_F(Grants, SpecialityIsAskedAboveLevelZeroAndFreesTheBareEntry) {
    ExpectPilot(2);
    EXPECT_EQ(Granted({"Pilot-0", "Admin-0", "Pilot-2"}), (Lines{"Pilot-0", "Admin-0", "Pilot (Spacecraft)-2"}));
    EXPECT_EQ(character().Skills.all()[0].Name, "Pilot (Spacecraft)") << "the new name takes the slot that became free";
    ExpectPilot(2);
    EXPECT_EQ(Granted({"Pilot=0", "Pilot (Spacecraft)", "pilot", "Pilot=2"}),
              (Lines{"Pilot-0", "Pilot (Spacecraft)-3", "pilot-1", "Skill Pilot=2 already held"}));
    EXPECT_EQ(LevelOf("Pilot"), -1) << "freed in set mode too, and though the speciality was held";
    ExpectPilot(3);
    EXPECT_EQ(Granted({"Pilot", "Pilot (Pick Later)"}), (Lines{"Pilot (Pick Later)-1", "Pilot (Pick Later)-2"}));
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(3, 0)});
    EXPECT_EQ(Granted({"Pilot"}), Lines{"Pilot (Capital)-1"});
}

TEST_F(Grants, CapRefusesLevelsAddedBeyond4AndOffersAnotherSkill) {
    Tick(Option::CapSkillsAt4);
    EXPECT_EQ(Granted({"Admin-5", "Medic-4", "Medic=6"}), (Lines{"Admin-5", "Medic-4", "Medic-6"}));
    ExpectRefusal("Medic", {1});
    ExpectRefusal("Admin", {34});
    EXPECT_EQ(Granted({"Medic-0"}), Lines{"Steward-1"}) << "a refusal writes no line";
    Hold("Pilot", 1);
    Hold("Pilot (Capital)", 4);
    ExpectPilot(1);
    ExpectRefusal("Pilot (Capital)", {});
    EXPECT_TRUE(Granted({"Pilot"}).empty() && LevelOf("Pilot") == -1) << "the bare entry is freed before the refusal";
    Hold("Zeal", 32767);
    EXPECT_EQ(ErrorOf("Zeal"), "overflow") << "before the refusal";
    Tick(Option::AutomaticGeneration);
    *character().Skills.LevelOf("Admin") = 3;
    dice.Expect({Drawn(38, 20), Drawn(38, 20), Drawn(38, 20)});
    EXPECT_EQ(Granted({"Medic", "Medic", "Admin"}), Lines{"Admin-4"}) << "refused as a replacement, it ends there";
}

TEST_F(Grants, EmptyTextRaisesALevelLeftInAFreeSlotAndAFullListDropsWhatIsNew) {
    Hold("Pilot", 3);
    Hold("Pilot (Capital)", 1);
    ExpectPilot(1);
    EXPECT_EQ(Granted({"Pilot", "", "=9", "Medic"}), (Lines{"Pilot (Capital)-2", "-4", "-9", "Medic-1"}));
    for (int i = 3; i < kMostSkills; ++i)
        Hold("Skill " + std::to_string(i), 1);
    ExpectPilot(2);
    EXPECT_EQ(Granted({"Pilot-0", "Zeal", "", "Pilot"}), (Lines{"Pilot-0", "Pilot (Spacecraft)-1"}));
}

TEST_F(Grants, ChoiceStaysInARecordsFieldOnlyForOr) {
    std::string_view field = "Admin=1 or Medic=1";
    std::string_view slashes = "Admin=1/Recon=1";
    ExpectSkills({{"Admin=1/Medic=1", 2}, {"Admin=1/Recon=1", 2}});
    for (auto* const text : {&field, &field, &slashes})
        GrantSkillOf(session, *text);
    EXPECT_TRUE(field == "Medic=1" && slashes == "Admin=1/Recon=1");
    EXPECT_EQ(History(), (Lines{"Medic-1", "Skill Medic=1 already held", "Recon-1"}));
}

TEST_F(Grants, SideThatAFieldKeepsIsGrantedWithoutASecondQuestion) {
    std::string_view field = "A or B or C";
    std::string_view slashes = "A or B/C";
    ExpectSkills({{"A/B or C", 2}, {"A/B/C", 2}});
    GrantSkillOf(session, field);
    GrantSkillOf(session, slashes);
    EXPECT_EQ(History(), (Lines{"B or C-1", "B/C-1"}));
}

// Somebody who wants what the cap refuses, again and again.
class Stubborn : public test::ScriptedPlayer {
  public:
    std::vector<int> Select(const ListQuestion& /*question*/) override {
        return ++asked_ < 200000 ? std::vector<int>{1} : std::vector<int>();
    }
    void Tell(const Notice& /*notice*/) override {}

  private:
    int asked_ = 0;
};

TEST_F(Grants, ARefusedRaiseMayBeRepeatedWithoutEnd) {
    Stubborn stubborn;
    session.seams.player = &stubborn;
    Tick(Option::CapSkillsAt4);
    Hold("Admin", 4);
    GrantSkill(session, "Admin");
    EXPECT_EQ(LevelOf("Admin"), 4);
}

TEST_F(Grants, ErrorsNameTheRowOfTheFile) {
    const auto error_of = [&](const std::function<void()>& rule) {
        try {
            rule();
        } catch (const RuleError& error) {
            return std::string(error.what());
        }
        return std::string("none");
    };
    const auto told = error_of([&] {
        const auto row = session.career.serviceTable[2];
        CarryOutRow(session.career.source, row, [&] { GrantSkill(session, Concat(row, "-x")); });
    });
    const auto row = Concat("\"", session.career.serviceTable[2], "\"");
    EXPECT_EQ(told, Concat("\"x\" is not a whole number (", KORVANE_RULES, "/Imperial Human-Army.ecf:29: ", row, ")"));
}

}  // namespace
}  // namespace korvane
