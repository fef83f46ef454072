// Choices of several skills from a list, and of any basic skill.

#include "skills/any_skill.h"
#include "skills/list_choice.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn, test::Rolled;
using Lines = std::vector<std::string>;

const std::string kBasic =
    "Admin/Advocate/Animals/Art/Astrogation/Athletics/Broker/Carouse/Deception/Diplomat/Drive/Electronics/Engineer/"
    "Explosives/Flyer/Gambler/Gun Combat/Gunner/Heavy Weapons/Investigate/Jack of all Trades/Language/Leadership/"
    "Mechanic/Medic/Melee/Navigation/Persuade/Profession/Recon/Science/Seafarer/Stealth/Steward/Streetwise/Survival/"
    "Tactics/Vacc Suit";

class SkillLists : public test::World {
  protected:
    void Select(int maximum, int minimum, const std::vector<std::string_view>& items) {
        SelectSkillsFromList(session, maximum, minimum, "Select", ListItems(items));
    }
    void ExpectFails(int fails) {
        dice.Expect(std::vector(static_cast<std::size_t>(fails), Rolled(1, 38, 1)));
        dice.Expect({Rolled(1, 38, 2)});
    }
};

TEST_F(SkillLists, ItemsAreSortedWithoutCaseAndGrantedInListOrder) {
    player.ExpectList("Select", "admin-0/ADMIN-0/Gun Combat-0/medic-0/Recon-0", {2, 4, 5});
    player.ExpectListLimits("Select", 1, 1, {}).ExpectListLimits("Select", 3, 2, {});
    Select(3, 2, {"Recon-0", "medic-0", "admin-0", "ADMIN-0", "Gun Combat-0"});
    Select(0, -1, {"Medic"});  // limits below 1; Cancel
    Select(3, 2, {"Medic"});
    EXPECT_EQ(History(), (Lines{"ADMIN-0", "medic-0", "Recon-0"}));
    EXPECT_EQ(session.choice.LastSkillGranted, "Recon-0");
}

TEST_F(SkillLists, AutomaticModeMarksFromTheMaximumUpToTheMinimum) {
    Tick(Option::AutomaticGeneration);
    dice.Expect({Rolled(1, 3, 2), Rolled(1, 3, 3), Rolled(1, 3, 3), Rolled(1, 3, 3), Rolled(1, 3, 1)});
    Select(3, 3, {"C", "B", "A"});  // one of the sorted list
    Select(3, 1, {"A", "B", "C"});  // none
    Select(0, 1, {"A", "B", "C"});  // the limits as given; what is marked is rolled again
    EXPECT_EQ(History(), (Lines{"B-1", "A-1", "C-1"}));
}

TEST_F(SkillLists, RefusedGrantRefillsTheDialogButTheOuterMarksHold) {
    Tick(Option::CapSkillsAt4);
    player.ExpectList("Select", "Admin/Medic/Recon/Zeal", {1, 2, 3});
    for (const std::string name : {"Admin", "Recon"}) {
        Hold(name, 4);
        player.ExpectTell("Skill " + name + " already at the max of 4. Select something else:");
        player.ExpectList("Select Any Skill", kBasic, {34});
    }
    Select(3, 3, {"Admin", "Medic", "Recon", "Zeal"});
    EXPECT_EQ(History(), (Lines{"Steward-1", "Medic-1", "Steward-2"}));
    EXPECT_EQ(session.choice.LastSkillGranted, "Recon") << "the item's text, not what replaced it";
}

TEST_F(SkillLists, AnySkillIsAskedFromTheBasicSkillsAndAutomaticallyAdminOnce) {
    player.ExpectList("Select Any 2 Skills", kBasic, {25, 38}).ExpectListLimits("Select Any 3 Skills", 3, 3, {});
    player.ExpectList("Select Any Skill", kBasic, {25}).ExpectListLimits("Select Any Skill", 1, 1, {24});
    SelectAnySkill(session, 2);
    SelectAnySkill(session, 3);
    SelectAnySkillAtZero(session);
    Tick(Option::AutomaticGeneration);
    SelectAnySkillAsked(session);  // asked all the same
    dice.Expect({Drawn(38, 37), Drawn(38, 5), Rolled(1, 38, 1)});
    ExpectFails(98);
    ExpectFails(98);
    SelectAnySkillAtZero(session);
    SelectAnySkill(session, 1);
    SelectAnySkill(session, 3);  // each round counts its tries anew
    ExpectFails(0);
    ExpectFails(250);
    player.ExpectTell("100 fails to pick a skill");
    SelectAnySkill(session, 2);
    EXPECT_EQ(History(),
              (Lines{"Medic-1", "Vacc Suit-1", "Medic-1", "Mechanic-1", "Admin-0", "Admin-1", "Admin-2", "Admin-3"}));
}

}  // namespace
}  // namespace korvane
