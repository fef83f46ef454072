// Whole short lives, and the rolls that a term makes itself.

#include "engine/term_loop.h"

#include "engine/term_steps.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;
using Lines = std::vector<std::string>;
using Rolls = std::vector<test::Die>;
using End = EndOfTermChoice;

// The rolls of a life: qualification; a term's gain, survival, the mishap of a failure, event and advancement.
constexpr test::Die kQualify{2, 6, 5}, kReject{2, 6, 4}, kGain{1, 6, 1}, kSurvive{2, 6, 6}, kFail{2, 6, 5};
constexpr test::Die kAccident{1, 6, 1}, kScare{1, 6, 2}, kQuiet{2, 6, 7}, kTrouble{2, 6, 8}, kStay{2, 6, 6};
const Rolls kShortLife = {kQualify, kGain, kSurvive, kQuiet, kStay};

// Plain tables and no benefits to spend. "Trouble" ends the career, as the codes of an event may.
class Life : public test::World, public Display {
  protected:
    Life() {
        session.seams.display = this;
        session.race.preCareerOptions = {"", "University", " ", "Sea School"};
        session.career.personalTable = {"", "Admin", "Medic", "Recon", "Stealth", "Carouse", "Broker"};
        session.career.mishapTable = {"", "Accident/", "Scare/NOEJEC"};
        session.career.eventTable = {"", "", "", "", "", "", "", "Quiet", "Trouble"};
        session.assignment.rankTitle = {"R0", "R1", "R2", "R3", "R4", "R5", "R6", "R7"};
        session.assignment.rankBonus.fill("-");
        character().BenefitRollsModifier = -20;
        start = character();
    }
    void SummaryChanged() override {
        if (!character().History.empty() && character().History.lines().back() == "Trouble")
            character().LeaveCareer = 1;
    }
    void ControlsLocked(bool locked) noexcept override { locks.push_back(locked); }

    test::ScriptedPlayer& Start(const Rolls& rolls) {
        dice.Expect(rolls);
        return player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Sea School", 1);
    }
    Lines Run(LifeEnd end, int count = 1) {
        EXPECT_EQ(RunLife(session), end);
        ExpectScriptsDone();
        const auto lines = History();
        return {lines.end() - count, lines.end()};
    }
    // A life of one term, scrapped at the dialog after the notice of an ejection, else after the rolls.
    Lines Eject(const std::string& by, const Rolls& rolls, int threshold = 0) {
        character() = start;
        character().ParoleThreshold = threshold;
        Start({kQualify, kGain}).ExpectTable(1);
        dice.Expect(rolls);
        if (!by.empty())
            player.ExpectTell("You have been ejected from this career following a " + by);
        player.ExpectScrap();
        return Run(LifeEnd::Scrapped, 2);
    }

    CharacterRecord start;
    std::vector<bool> locks;
};

TEST_F(Life, TermsAreCountedFromTheOpeningTermAndRollsFromTheFirstOfService) {
    Tick(Option::CapSkillsAt4);
    character().SurvivalDM = 1;  // serves one roll
    Start({kQualify, kGain, kFail, kQuiet, Rolled(2, 6, 7), kGain, kFail, kScare, kQuiet, kStay}).ExpectTable(1);
    player.ExpectEndOfTerm(End::ReEnlist).ExpectTable(1).ExpectEndOfTerm(End::Scrap);
    EXPECT_EQ(Run(LifeEnd::Scrapped, 16),
              (Lines{"-- Term 1 --", "Enlist Army Infantry", "Admin-0", "Medic-0", "Recon-0", "Stealth-0", "Carouse-0",
                     "Broker-0", "------ Term 2 ------", "Admin-1", "Quiet", "Promoted to R1", "------ Term 3 ------",
                     "Admin-2", "Scare", "Quiet"}));
    EXPECT_EQ(Concat(character().TermsInCareer, " ", character().MusterRolls, " ", character().Age), "3 2 12");
    EXPECT_TRUE(session.options[Option::CapSkillsAt4]) << "the end of the term shows the boxes as they stand";
}

TEST_F(Life, BasicTrainingIsThatOfTheCareerEnteredWithItsLevelAppendedToTheRow) {
    Start({kReject, Rolled(1, 6, 4)}).ExpectScrap();  // at the skill tables
    Run(LifeEnd::Scrapped);
    EXPECT_EQ(LevelOf(std::string(session.career.personalTable[1])) + LevelOf("Medic"), -1);
    EXPECT_EQ(character().CareersServed.lines().front(), "Merchant");
    character() = start;
    session.career.personalTable = {"", "Admin or Art", "Recon or Art", "Art/Medic", "Str +1", "Foo +1", "Admin=1"};
    Start({kQualify}).ExpectChoice("Select a Skill", "Admin/Art-0", 1).ExpectChoice("Select a Skill", "Recon/Art-0", 2);
    player.ExpectChoice("Select a Skill", "Art/Medic-0", 2).ExpectTell("Stat Foonot found");
    EXPECT_THROW(RunLife(session), RuleError) << "the level \"1-0\" is no number";
    EXPECT_EQ(Concat(History().at(2), " ", History().at(4), " ", History().back()), "Admin-1 Medic-0 Foo +1-0");
}

TEST_F(Life, HazardsEjectUnlessTheBoxOrAnAimlessLifeForbidsIt) {
    EXPECT_EQ(Eject("Mishap", {kFail, kAccident}), (Lines{"Accident", "Ejected from career following Mishap"}));
    EXPECT_EQ(Eject("Career Event", {kSurvive, kTrouble}), (Lines{"Trouble", "Ejected from career following Event"}));
    EXPECT_EQ(player.lastNoticeIcon, Icon::Exclamation);
    EXPECT_EQ(Eject("", {kFail, kScare, kQuiet, kStay}), (Lines{"Scare", "Quiet"}));
    for (const int threshold : {12, -10}) {
        EXPECT_EQ(Eject("", {kFail, kAccident, kQuiet, kStay}, threshold), (Lines{"Accident", "Quiet"}));
        Eject("Career Event", {kFail, kAccident, kTrouble}, threshold);
    }
    for (const bool box : {true, false}) {
        session.options.Set(Option::ForceNoEjectionOnMishap, box);
        session.selection.career = box ? "Army" : "Drifter";
        Eject("", {kFail, kAccident, kTrouble, kStay});
    }
    session.selection.career = "Army";
    character() = start;
    character().ParoleThreshold = 12;
    Start({kQualify, kGain, kSurvive, kTrouble}).ExpectTable(1);
    player.ExpectTell("You have been ejected from this career following a Career Event");
    player.ExpectTransfer("Navy", "Flight").ExpectScrap();
    EXPECT_EQ(Run(LifeEnd::Scrapped, 2), (Lines{"Transfer to Navy Flight", "------ Term 3 ------"}));
    EXPECT_EQ(Concat(character().ParoleThreshold, " ", character().Age), "12 8") << "still in prison";
}

TEST_F(Life, AutomaticLivesAreEjectedWithoutAMessage) {
    Tick(Option::AutomaticGeneration);
    dice.Expect({test::Drawn(3, 2), kQualify, Rolled(1, 6, 1), kGain, kFail, kAccident});
    player.ExpectEndCareer().ExpectMuster(MusterButton::Done);
    Run(LifeEnd::MusteredOut);
    EXPECT_EQ(character().Age, 4) << "a career that ended has no aging";
}

TEST_F(Life, CommissionsAreForTheGentleAndSpendTheirModifier) {
    const auto seek = [this](std::string_view check, int soc, const Rolls& rolls) {
        session.career.commission = check;
        SetCharacteristic(kSoc, soc);
        character().CommissionDM = 1;
        character().TermsInCareer = 2;
        character().Rank = 9;
        dice.Expect(rolls);
        SeekCommission(session);
        return Concat("rank ", character().Rank, ", modifier ", character().CommissionDM);
    };
    EXPECT_EQ(seek("Soc 7+", 8, {}), "rank 9, modifier 1");
    EXPECT_EQ(seek("Soc 7+", 9, {Rolled(2, 6, 6)}), "rank 9, modifier 0");
    EXPECT_EQ(seek("Soc 7+", 9, {Rolled(2, 6, 7)}), "rank 7, modifier 0") << "7, 1 for Soc and 1 more, less 2 terms";
    EXPECT_EQ(seek("No", 12, {}), "rank 9, modifier 1");
    EXPECT_EQ(seek("no", 12, {Rolled(2, 6, 2)}), "rank 7, modifier 0") << "only \"No\" is none";
    character().TermsTotal = 1;
    EXPECT_EQ(seek("Soc 7+", 8, {Rolled(2, 6, 6)}), "rank 7, modifier 0") << "in the first term anyone may";
    EXPECT_EQ(Concat(History().size(), " ", History().back(), " ", character().Commissioned), "3 Commissioned 1");
}

TEST_F(Life, AdvancementRaisesTheRankAsFarAsItGoes) {
    Tick(Option::ForcePromote);  // which forces nothing
    session.assignment.rankBonus = {"", "Medic", "-", "", "Recon or Stealth", "", "", "Medic", "", "", "", "", "Medic"};
    const auto seek = [this](int rank, int commissioned, int roll) {
        character().Rank = rank;
        character().Commissioned = commissioned;
        character().AdvancementDM = 1;
        dice.Expect({Rolled(2, 6, roll)});
        SeekAdvancement(session);
        EXPECT_EQ(character().AdvancementDM, 0);
        return character().Rank - rank;
    };
    EXPECT_EQ(seek(0, 0, 5) + seek(6, 0, 12) + seek(12, 1, 12), 0);
    EXPECT_EQ(seek(0, 0, 6) + seek(1, 0, 12) + seek(2, 0, 12), 3);
    EXPECT_EQ(seek(6, 1, 12), 1) << "an officer who moved to another career rises on";
    EXPECT_EQ(Concat(History().at(1), " ", History().at(4), " ", History().back()), "Medic-1 Promoted to R7 Medic-2");
    player.ExpectChoice("Select a Skill", "Recon/Stealth", 2);
    EXPECT_EQ(seek(3, 0, 12) + seek(3, 0, 12), 2);
    EXPECT_EQ(LevelOf("Stealth"), 2) << "the choice stays until the file is loaded again";
}

TEST_F(Life, ParoleTakesARollAboveTheThreshold) {
    character().ParoleThreshold = 13;
    character().AdvancementDM = 6;
    Start({kQualify, kGain, kSurvive, kQuiet, Rolled(2, 6, 7), kGain, kSurvive, kQuiet, Rolled(2, 6, 8)});
    player.ExpectTable(1).ExpectTell("Parole roll failed. You remain in prison").ExpectTable(1);
    player.ExpectTell("Released from prison")
        .ExpectEndCareer()
        .ExpectMuster(MusterButton::Done)
        .ExpectEndOfTerm(End::Scrap);
    EXPECT_EQ(Run(LifeEnd::Scrapped, 2), (Lines{"Quiet", "Released!"}));
    EXPECT_EQ(Concat(character().Age, " ", character().ParoleThreshold, " ", character().AdvancementDM), "12 0 6");
    Tick(Option::AutomaticGeneration);
    character().ParoleThreshold = 13;
    dice.Expect({Rolled(2, 6, 7), Rolled(2, 6, 8)});
    player.ExpectTransfer("Navy", "Flight");
    SeekAdvancement(session);
    SeekAdvancement(session);
}

TEST_F(Life, TheTenthTermIsTheLastButALaterOneIsNot) {
    character().TermsTotal = 8;
    Start(kShortLife).ExpectTable(1).ExpectMuster(MusterButton::Done);
    EXPECT_EQ(Run(LifeEnd::MusteredOut), (Lines{"Korvane Term Limit is 10"}));
    character().TermsTotal = 9;
    Start(kShortLife).ExpectTable(1).ExpectEndOfTerm(End::Transfer).ExpectTransfer("Navy", "Flight").ExpectScrap();
    EXPECT_EQ(Run(LifeEnd::Scrapped, 2), (Lines{"Transfer to Navy Flight", "------ Term 12 ------"}));
}

TEST_F(Life, TheBoxesOfTheEndOfATermHoldAtOnce) {
    Options random;
    random.Set(Option::RandomSkills);
    auto automatic = random;
    automatic.Set(Option::AutomaticGeneration);
    character().BenefitRollsModifier = 0;
    Start(kShortLife).ExpectTable(1).ExpectEndOfTerm(End::ReEnlist, random).ExpectEndOfTerm(End::Transfer, automatic);
    dice.Expect({Rolled(1, 6, 1), kGain, kSurvive, kQuiet, kStay});
    player.ExpectEndCareer().ExpectMuster(MusterButton::Done);  // once, and without a question
    Run(LifeEnd::MusteredOut);
}

TEST_F(Life, ACareerLocksTheControlsAndHandsOverWhoMusteredOut) {
    const Rolls characteristics(12, Rolled(1, 6, 4));
    const auto expect_new_character = [&] {
        dice.Expect(characteristics);
        dice.Expect(test::HomeWorldRolls());
    };
    int handed = 0;
    const auto live = [&] { handed += RunLife(session) == LifeEnd::MusteredOut ? int{character().TermsTotal} : 0; };
    Start(kShortLife).ExpectTable(1).ExpectEndOfTerm(End::MusterOut).ExpectMuster(MusterButton::Done);
    expect_new_character();
    RunCareer(session, live);
    EXPECT_EQ(character().Age + character().Characteristic[kStr], 18 + 8);
    Start({kQualify}).ExpectScrap();
    expect_new_character();
    RunCareer(session, live);
    session.career.qualification = "Str        5+";
    Start({kQualify});
    EXPECT_THROW(RunCareer(session, live), RuleError);
    EXPECT_EQ(History(), (Lines{"-- Term 1 --", "Enlist Army Infantry"})) << "what was generated stays";
    EXPECT_EQ(handed, 2) << "once, and before the record was reset";
    EXPECT_EQ(locks, (std::vector<bool>{true, false, true, false, true, false}));
}

}  // namespace
}  // namespace korvane
