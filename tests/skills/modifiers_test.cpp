// What skills add to rolls, and the improvement of a held skill.

#include "skills/modifiers.h"

#include "skills/grant.h"
#include "skills/improve.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Drawn, test::Rolled;
using Modifiers = test::World;

TEST_F(Modifiers, ExactNameThenSpecialitiesThenUnskilled) {
    Hold("Art (Dance)", 0);
    Hold("Art (Song)", 2);
    Hold("Art (Cookery)", 1);
    Hold("Pilot", 0);
    Hold("Pilot (Capital)", 4);
    for (const auto& [jack, unskilled] :
         {std::pair{"Admin", -3}, std::pair{"Jack of all Trades=2", -1}, std::pair{"Jack of all Trades=5", 0}}) {
        GrantSkill(session, jack);
        for (const auto* const name : {"Medic", "Ar", "art", "Medic (Field)", ""})
            EXPECT_EQ(SkillModifier(character(), name), unskilled) << name;
        for (const auto* const name : {"Art (Verse)", "Pilot", "Pilot (Small Craft)", "Admin (Naval)"})
            EXPECT_EQ(SkillModifier(character(), name), 0) << name;
        EXPECT_EQ(SkillModifier(character(), "Art"), 2);
    }
    EXPECT_EQ(BestSkillModifier(session, std::vector<std::string_view>{"Medic", "Art", "Art (Song)"}), 2);
    EXPECT_EQ(session.choice.PickText, "Art") << "the first of equals";
    EXPECT_EQ(BestSkillModifier(session, std::vector<std::string_view>{"Zeal"}), 0);
}

TEST_F(Modifiers, ImprovementOffersEachHeldSkillAtOneLevelMore) {
    ImproveHeldSkill(session);  // nothing is held, so nothing is asked
    Hold("medic", 4);
    Hold("Admin", 3);
    Hold("Pilot", 0);
    player.ExpectList("Select a Held Skill to improve", "Admin=4/medic=5/Pilot=1", {2});
    player.ExpectListLimits("Select a Held Skill to improve", 1, 1, {});
    ImproveHeldSkill(session);
    ImproveHeldSkill(session);
    Tick(Option::CapSkillsAt4);
    Tick(Option::AutomaticGeneration);
    dice.Expect({Rolled(1, 2, 2), Drawn(4, 0), Rolled(1, 2, 1)});
    ImproveHeldSkill(session);
    ImproveHeldSkill(session);
    *character().Skills.LevelOf("Pilot (Capital)") = 4;
    ImproveHeldSkill(session);  // all are at the cap
    EXPECT_EQ(History(), (std::vector<std::string>{"medic-5", "Pilot (Capital)-1", "Admin-4"}));
}

}  // namespace
}  // namespace korvane
