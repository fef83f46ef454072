// What the codes of mishaps and events do: each kind of effect once, the odd ones, and what codes do to each other. The
// rows themselves are held by the handbook, docs/codes.md, which a test of the command line compares, and by the pinned
// signature on data that holds every code.

#include "data/record_files.h"
#include "engine/codes/apply.h"
#include "engine/codes/chains.h"
#include "engine/codes/fields.h"
#include "engine/codes/odd_codes.h"
#include "engine/hazards.h"
#include "support/world.h"

namespace korvane {
namespace {

using namespace codes;
using test::Drawn;
using test::Rolled;
using Lines = std::vector<std::string>;

template <void (*Odd)(Session&)>
void Twice(Session& session) {
    Odd(session);
    Odd(session);
}

class Codes : public test::World {
  protected:
    Codes() {
        session.race.specialities.clear();
        for (const auto field : {kMusterRolls, kBenefitRolls, kParole, kEnemies})
            character().*field = 5;
    }
    // The history that comes of effects alone.
    Lines LinesOf(const Effects& effects) {
        character().History.Clear();
        ApplyAll(session, effects);
        ExpectScriptsDone();
        return History();
    }
    Lines Mishap(std::string_view entry) {
        character().History.Clear();
        session.career.mishapTable[3] = entry;
        dice.Expect({Rolled(1, 6, 3)});
        // The dice of the codes were expected before; the first is the table's.
        RollMishap(session);
        return History();
    }
};

TEST_F(Codes, NumbersAreSetAddedToRaisedAlteredAndLowered) {
    LinesOf({Set{kParole, 2}, Add{kBenefitRolls, -7}, AtLeast{kEnemies, 9}, AtLeast{kMusterRolls, 1}, Alter{kEdu, -9},
             Lower{kSoc, 9}});
    EXPECT_EQ(Concat(character().ParoleThreshold, " ", character().BenefitRollsModifier, " ", character().Enemies, " ",
                     character().MusterRolls),
              "2 -2 9 5");
    EXPECT_EQ(Concat(character().Characteristic[kEdu], " ", character().Characteristic[kSoc]), "-2 1");
}

TEST_F(Codes, SkillsAreGrantedPickedChosenAndImproved) {
    player.ExpectList("Take", "Admin=1/Recon=2", {2})
        .ExpectChoice("One", "Medic=1/Art=1", 2)
        .ExpectChoice("Vain", "A/B", 1)
        .ExpectListLimits("Select Any Skill", 1, 1, {3})
        .ExpectList("Select a Held Skill to improve", "Animals=2/Art=2/Drive=2/Recon=3", {4});
    EXPECT_EQ(LinesOf({Line{"said"}, Grant{"Drive"}, Pick{"Take", {"Recon=2", "Admin=1"}},
                       Choose{"One", {"Medic=1", "Art=1"}, "between"}, ChooseInVain{"Vain", {"A", "B"}}, AnySkill{},
                       Improve{}}),
              (Lines{"said", "Drive-1", "Recon-2", "between", "Art-1", "Animals-1", "Recon-3"}));
    Tick(Option::AutomaticGeneration);
    dice.Expect({Drawn(38, 7)});
    player.ExpectListLimits("Select Any Skill", 1, 1, {});
    EXPECT_EQ(LinesOf({AnySkill{}, AnySkillAsked{}}), Lines{"Admin-1"}) << "the second asks all the same";
}

TEST_F(Codes, PeopleInjuriesPrisonAndMishaps) {
    session.career.mishapTable[2] = "again/NOEJEC";
    dice.Expect({Rolled(1, 6, 5), Rolled(1, 6, 6), Rolled(1, 6, 6), Rolled(1, 6, 5), Rolled(1, 6, 2), Rolled(1, 6, 1)});
    // The worst of 5 and 6 asks, the better of 6 and 5 doesn't.
    player.ExpectChoice("Lose 1 from which stat?", "Str/Dex/End", 1)
        .ExpectAsk("Stat Str currently 7 reduced by 1. Take Cr5000 medical debt to avoid?", false)
        .ExpectAsk("Stat Dex currently 7 reduced by 2. Take Cr10000 medical debt to avoid?", false);
    player
        .ExpectTell("You have been imprisoned. Terms will be served until you make your parole roll or die of old age")
        .ExpectMuster(MusterButton::Done);
    character().TermsInCareer = 0;
    character().BenefitRollsModifier = 0;
    EXPECT_EQ(LinesOf({Enemy{"e"}, Contact{"c"}, Rival{"r"}, Ally{"a"}, Hurt{InjuryDice::WorstOfTwo},
                       Hurt{InjuryDice::BetterOfTwo}, Reduce{kDex, 2}, SufferMishap{}, GoToPrison{}}),
              (Lines{"Enemy: e", "Contact: c", "Rival: r", "Ally: a", "Injured; Purple Heart if appropriate",
                     "Str reduced by 1 to 6", "Lightly Injured", "Dex reduced by 2 to 5", "again",
                     "Imprisoned; parole threshold 5"}));
}

TEST_F(Codes, BranchesFollowAnswersAndDice) {
    const Effects yes = {Line{"yes"}};
    const Effects no = {Line{"no"}};
    player.ExpectChoice("Which", "A/B", 2).ExpectAsk("Sure?", false);
    EXPECT_EQ(LinesOf({Either{"Which", {{"A", yes}, {"B", no}}}, Ask{"Sure?", yes, no}}), (Lines{"no", "no"}));
    SetCharacteristic(kSoc, 9);
    Hold("Recon", 1);
    // A check adds the modifier of its slot; a roll for a skill of at most the target succeeds, the best counts; the
    // best modifier counts towards the target.
    dice.Expect({Rolled(2, 6, 7), Rolled(2, 6, 6), Rolled(2, 6, 9), Rolled(2, 6, 8), Rolled(2, 6, 9), Rolled(2, 6, 7),
                 Rolled(2, 6, 6), Rolled(1, 6, 3), Rolled(1, 6, 6), Rolled(1, 3, 2)});
    EXPECT_EQ(LinesOf({Check{"Edu 8+", yes, no}, Check{"Edu 8+", yes, no}, SkillTest{{"Melee", "Stealth"}, 8, yes, no},
                       SkillTest{{"Melee"}, 8, yes, no}, BestTest{{"Admin", "Recon"}, 8, yes, no},
                       BestTest{{"Recon"}, 8, yes, no}, OnRoll{1, 6, {{2, no}, {4, yes}}},
                       OnRoll{1, 6, {{2, no}, {4, yes}}}, Repeat{3, yes}}),
              (Lines{"yes", "no", "yes", "no", "yes", "no", "yes", "yes", "yes"}));
}

TEST_F(Codes, MishapsLoseTheCareerAndARollUnlessACodeSaysThatTheyDoNot) {
    const auto left = [&](std::string_view entry) {
        character().MusterRolls = 3;
        const auto lines = Mishap(entry);
        return Concat(lines.front(), ": ", character().LeaveCareer, character().MusterRolls);
    };
    EXPECT_EQ(left("Dismissed"), "Dismissed: 12");
    EXPECT_EQ(left("Kept/NOEJEC PRO2"), "Kept: 03");
    EXPECT_EQ(left("NOEJEC/"), "NOEJEC: 12") << "the description doesn't count";
    EXPECT_EQ(left("NOEJEC alone"), "NOEJEC alone: 03") << "without a slash all is both";
    EXPECT_EQ(left("Case/noejec"), "Case: 12");
}

TEST_F(Codes, StandInTheirOrderAndMayHoldEachOther) {
    character().Contacts = 1;
    character().Allies = 1;
    dice.Expect({Rolled(1, 6, 3), Rolled(1, 2, 1), Rolled(2, 6, 3)});
    session.career.mishapTable[3] = "Sold/ROGBETRAY NOEJEC";
    RollMishap(session);
    EXPECT_EQ(History(),
              (Lines{"Sold", "Contact betrays you, becomes a Rival", "Enemy: Betrayed", "Betrayed by Ally"}));
    session.career.eventTable[7] = "Ordered/PRO2 PROA PRIWARDEN";
    dice.Expect({Rolled(2, 6, 7)});
    RollCareerEvent(session);
    EXPECT_EQ(character().AdvancementDM, kAutomaticSuccess) << "PROA comes after PRO2";
    EXPECT_EQ(character().ParoleThreshold, 3) << "PRIWARDEN stands twice in the chain";
}

TEST_F(Codes, ADisasterIsAMishapThatCostsNeitherCareerNorRoll) {
    session.career.mishapTable[2] = "Worn/MINUS1END";
    session.career.eventTable[7] = "A Disaster! All is lost/PRO2";
    dice.Expect({Rolled(2, 6, 7), Rolled(1, 6, 2)});
    RollCareerEvent(session);
    EXPECT_EQ(History(), (Lines{"A Disaster! All is lost", "Worn"}));
    EXPECT_EQ(Concat(character().Characteristic[kEnd], character().MusterRolls, character().LeaveCareer), "650");
}

TEST_F(Codes, AnEntryOutlivesTheCareerThatItStandsIn) {
    session.career = {};
    ReplaceCareer(session.career, ReadCareer(std::make_shared<const TextFile>("own.ecf", [] {
                      std::string text;
                      for (int line = 1; line <= 71; ++line)
                          AppendAll(text, line == 51 ? "A long text that is no short string/IMPRISON PRIGUARD" : "1",
                                    "\n");
                      return text;
                  }())));
    player
        .ExpectTell("You have been imprisoned. Terms will be served until you make your parole roll or die of old age")
        .ExpectMuster(MusterButton::Done);
    character().BenefitRollsModifier = 0;
    dice.Expect({Rolled(1, 6, 3), Rolled(1, 6, 1)});
    RollMishap(session);
    EXPECT_EQ(session.selection.career, "Prisoner");
    EXPECT_EQ(History().back(), "Enemy: Prison Guard") << "the codes after the change of career";
}

TEST_F(Codes, OddOnesOfMishaps) {
    const auto after = [&](void (*odd)(Session&)) {
        character().History.Clear();
        odd(session);
        ExpectScriptsDone();
        return History().empty() ? std::string() : History().back();
    };
    character().Contacts = character().Allies = 1;
    EXPECT_EQ(after(BetrayContactOrAlly), "Contact betrays you, becomes a Rival");
    EXPECT_EQ(after(BetrayContactOrAlly), "Ally betrays you, becomes an Enemy");
    dice.Expect({Rolled(1, 2, 2)});
    EXPECT_EQ(after(BetrayContactOrAlly), "Rival from nowhere");
    EXPECT_EQ(Concat(character().Contacts, character().Allies, character().Enemies, character().Rivals), "0062");

    Hold("Advocate", 1);
    for (const auto& [roll, rolls] : {std::pair(7, 5), std::pair(6, 4)}) {
        dice.Expect({Rolled(2, 6, roll)});
        after(AnswerAccusation);
        EXPECT_EQ(character().MusterRolls, rolls) << roll;
    }
    character().TermsTotal = 3;
    after(LoseRollForEachTerm);
    EXPECT_EQ(character().BenefitRollsModifier, 2);

    player.ExpectChoice("Frozen Watch revive problem. Choose a stat to reduce by 1", "Str 7/Dex 7/End 7", 3)
        .ExpectAsk("Stat End currently 7 reduced by 1. Take Cr5000 medical debt to avoid?", false);
    EXPECT_EQ(after(ReviveFrozen), "End reduced by 1 to 6");
    EXPECT_EQ(after(FaceCourtMartial), "") << "no battle station";
    for (const auto& [assignment, skill] :
         {std::pair("Crew", "Gunner (Turret)"), std::pair("Engineer Gunner", "Mechanic")}) {
        session.selection.assignment = assignment;
        dice.Expect({Rolled(2, 6, 2)});
        EXPECT_EQ(after(FaceCourtMartial), "Court-Martialled") << assignment;
        Hold(skill, 0);
        dice.Expect({Rolled(2, 6, 2)});
        EXPECT_EQ(after(FaceCourtMartial), "Honourable discharge") << assignment;
    }
    session.career.serviceTable[2] = "Medic or Recon";
    dice.Expect({Rolled(1, 6, 2)});
    player.ExpectChoice("Select a Skill", "Medic/Recon", 2);
    EXPECT_EQ(after(GrantServiceRow), "Recon-1");
    EXPECT_EQ(session.career.serviceTable[2], "Recon") << "narrowed until the file is loaded again";
}

TEST_F(Codes, OddOnesOfEvents) {
    const auto after = [&](void (*odd)(Session&)) {
        character().History.Clear();
        odd(session);
        ExpectScriptsDone();
        return History().empty() ? std::string() : History().back();
    };
    const std::string sides = "Advocate=1/Persuade=1/Explosives=1/Streetwise=1";
    player.ExpectChoice("Political Upheaval", sides, 2).ExpectChoice("Political Upheaval", sides, 2);
    dice.Expect({Rolled(2, 6, 8), Rolled(2, 6, 9)});
    EXPECT_EQ(after(Twice<TakeSidesInUpheaval>), "On the losing side");
    EXPECT_EQ(Concat(LevelOf("Persuade"), character().AdvancementDM, character().SurvivalDM), "12-2");

    character().TermsTotal = 2;
    character().Rank = 2;
    const std::string stakes = "1 benefits/2 benefits/3 benefits/Do not gamble";
    const std::string deal = "Chance to risk on a possible deal";
    player.ExpectChoice(deal, stakes, 4).ExpectChoice(deal, stakes, 3).ExpectTell("Success! Gain 2 benefit rolls");
    Hold("Broker", 1);
    dice.Expect({Rolled(2, 6, 7)});
    EXPECT_EQ(after(Twice<RiskDeal>), "Success! Gain 2 benefit rolls");
    player.ExpectChoice("Gambling Ring - Wager Benefit Rolls", stakes, 1).ExpectTell("Failed! Lose 1 benefit rolls");
    dice.Expect({Rolled(2, 6, 9)});
    EXPECT_EQ(after(GambleAmongRogues), "Failed! Lose 1 benefit rolls");
    EXPECT_EQ(character().BenefitRollsModifier, 6);

    player.ExpectChoice("Select a Science skill",
                        "Archaeology/Astronomy/Biology/Chemistry/Cosmology/Cybernetics/Economics/Genetics/History/"
                        "Linguistics/Philosophy/Physics/Planetology/Psionicology/Psychology/Robotics/Sophontology/"
                        "Xenology",
                        18);
    EXPECT_EQ(after(ChooseScience), "Science (Xenology)-1");
}

}  // namespace
}  // namespace korvane
