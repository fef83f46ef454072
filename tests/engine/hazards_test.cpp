// The frame of mishaps and events: how an entry is split, and the codes that any career may use.

#include "engine/hazards.h"

#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;

class Hazards : public test::World {
  protected:
    std::string Mishap(std::string_view entry) {
        session.career.mishapTable[3] = entry;
        character().MusterRolls = 3;
        dice.Expect({Rolled(1, 6, 3)});
        RollMishap(session);
        return Concat(History().back(), ": leaves ", character().LeaveCareer, ", rolls ", character().MusterRolls);
    }
    std::string Event(std::string_view entry, const std::vector<test::Die>& after = {}) {
        session.career.eventTable[8] = entry;
        character().AdvancementDM = 9;
        character().CommissionDM = 7;
        character().LeaveCareer = 1;
        dice.Expect({Rolled(2, 6, 8)});
        dice.Expect(after);
        RollCareerEvent(session);
        EXPECT_EQ(character().LeaveCareer, 0);
        return Concat(History().back(), ": ", character().AdvancementDM, " ", character().CommissionDM);
    }
};

TEST_F(Hazards, MishapsLoseTheCareerAndARollUnlessTheirCodesSayThatTheyDoNot) {
    EXPECT_EQ(Mishap("Dismissed"), "Dismissed: leaves 1, rolls 2");
    EXPECT_EQ(Mishap("Kept/NOEJEC PRO2"), "Kept: leaves 0, rolls 3");
    EXPECT_EQ(Mishap("NOEJEC/"), "NOEJEC: leaves 1, rolls 2");
    EXPECT_EQ(Mishap("NOEJEC alone"), "NOEJEC alone: leaves 0, rolls 3");
    EXPECT_EQ(Mishap("Two/one/xNOEJECx"), "Two: leaves 0, rolls 3");
    EXPECT_EQ(Mishap("Case/noejec"), "Case: leaves 1, rolls 2");
    SetCharacteristic(kSoc, 9);
    for (const int end : {2, 1, -2}) {
        character().Characteristic[kEnd] = end;
        Mishap("Shamed and worn/MINUS1END MINUS1SOC");
        EXPECT_EQ(character().Characteristic[kEnd], 1) << "losses stop there";
    }
    EXPECT_EQ(Concat(character().Characteristic[kSoc], " ", character().CharacteristicDM[kSoc]), "6 0");
}

TEST_F(Hazards, EventCodesPromoteCommissionAndImprove) {
    EXPECT_EQ(Event("Praised/PRO2"), "Praised: 2 7");
    EXPECT_EQ(Event("Hailed/PROA PRO2"), "Hailed: 50 7");
    EXPECT_EQ(Event("Raised/COMA"), "Raised: 9 50");
    EXPECT_EQ(Event("Liked/PROMA"), "Liked: 50 7");
    EXPECT_EQ(Event("COMA PRO2"), "COMA PRO2: 2 50");
    Hold("Medic", 1);
    player.ExpectList("Select a Held Skill to improve", "Medic=2", {1});
    EXPECT_EQ(Event("Lessons/ADVT"), "Medic-2: 9 7");
}

TEST_F(Hazards, ADisasterIsAMishapThatCostsNeitherCareerNorRoll) {
    session.career.mishapTable[2] = "Worn/MINUS1END";
    character().MusterRolls = 4;
    EXPECT_EQ(Event("A Disaster! All is lost/PRO2", {Rolled(1, 6, 2)}), "Worn: 2 7");
    EXPECT_EQ(Concat(character().Characteristic[kEnd], " ", character().MusterRolls), "6 4");
    EXPECT_EQ(Event("Calm/Disaster!"), "Calm: 9 7");
}

}  // namespace
}  // namespace korvane
