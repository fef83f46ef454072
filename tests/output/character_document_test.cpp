// The finished character as a document and as text.

#include "output/character_document.h"

#include "output/character_text.h"
#include "output/luck_line.h"
#include "support/world.h"

namespace korvane {
namespace {

using Document = test::World;

TEST_F(Document, HoldsTheRecordInItsOrder) {
    auto& record = character();
    for (int slot = 2; slot <= kSoc; ++slot)
        SetCharacteristic(slot, 7);
    SetCharacteristic(kStr, 24);
    record.CharacteristicCount = 1;
    record.CharacteristicName[1] = "Ki ";
    record.Age = 34;
    record.TermsTotal = 4;
    record.TermsInCareer = 3;
    record.Rank = 7;
    record.Commissioned = 1;
    record.Contacts = 2;
    record.SurvivalDM = -1;
    record.Cash = 20000;
    record.MedicalDebt = 1250.5F;
    record.Benefits.Add("Scout Ship");
    record.CareersServed.Add("Army");
    Hold("Gone", 3);
    Hold("Admin", 1);
    record.Skills.Free("Gone");
    session.assignment.rankTitle[7] = " Ensign ";
    AddHistory(session, "-- \"Term\" 1 --");
    EXPECT_EQ(
        CharacterDocument(session),
        R"({"race":"Imperial Human","career":"Army","assignment":"Infantry","homeWorld":"",)"
        R"("characteristics":[{"name":"Ki","value":24,"modifier":0}],)"
        R"("age":34,"termsTotal":4,"termsInCareer":3,"rank":7,"rankTitle":"Ensign","commissioned":true,"graduated":0,)"
        R"("allies":0,"enemies":0,"contacts":2,"rivals":0,)"
        R"("oneShot":{"qualification":0,"survival":-1,"commission":0,"advancement":0},)"
        R"("paroleThreshold":0,"musterRolls":0,"benefitRollsModifier":0,"musterBonusCount":0,)"
        R"("cash":20000,"cashRollsUsed":0,"pension":0,"medicalDebt":1250.5,)"
        R"("benefits":["Scout Ship"],"careersServed":["Army"],"skills":[{"name":"Admin","level":1}],)"
        R"("history":["-- \"Term\" 1 --"],)"
        R"("education":null,"connections":[],"package":null,"open":[]})");
    EXPECT_TRUE(CharacterDocument(session, {"Jo", 3, Origin{Seed("a \"word\""), 3}, 2})
                    .starts_with(R"({"name":"Jo","number":3,"seed":"a \"word\"","backs":2,"race":)"));
    record.Education = "University";
    record.Connections = {{"Art (Pick Later)", "Ro (Ally)"}, {"Medic", ""}};
    record.SkillPackage = "Embassy";
    record.LeftOpen.Add("2 background skills");
    record.MusterRolls = 1;
    Hold("Art (Pick Later)", 1);
    EXPECT_TRUE(CharacterDocument(session).ends_with(
        R"x("education":"University","connections":[{"skill":"Art (Pick Later)","with":"Ro (Ally)"},)x"
        R"({"skill":"Medic","with":null}],"package":"Embassy",)"
        R"("open":["the speciality of Art-1","2 background skills","1 benefit roll"]})"));
    record.MedicalDebt = 150000;
    EXPECT_EQ(CharacterText(session),
              "Imperial Human, Army (Infantry), age 34, 4 terms\nRank:  Ensign  (O1)\nCharacteristics: Ki 24 (+0)\n"
              "Skills: Art (Pick Later)-1, Admin-1\nEducation: University\nCareers: Army\nBenefits: Scout Ship\nCash "
              "Cr20,000, medical debt Cr150,000\n"
              "Allies: 0, Enemies: 0, Contacts: 2, Rivals: 0\n"
              "Still to decide: the speciality of Art-1, 2 background skills, 1 benefit roll\nHistory:\n  1. -- "
              "\"Term\" 1 --\n");
    EXPECT_NE(CharacterDocument(session).find(R"("medicalDebt":150000,)"), std::string::npos);
}

TEST(LuckTexts, CompareWithLivesOfAsManyChecks) {
    Luck luck;
    EXPECT_EQ(LuckLine(luck), "");
    luck.Note({"Edu 8+", 0, 0, 8, 4});
    EXPECT_NEAR(ShareOfLessLucky(luck), 35.0 / 36, 1e-9) << "but for another 12";
    luck.Note({"Gambler", 0, 0, 8, 6, true});
    EXPECT_EQ(LuckLine(luck),
              "Luck: 2 checks rolled 24 where dice bring 14, luckier than more than 99 % of lives with as many; "
              "best 12 (Edu 8+), worst 12 (Edu 8+)");
}

}  // namespace
}  // namespace korvane
