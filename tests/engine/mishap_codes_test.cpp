// What each code of a mishap does, in the order in which the codes are carried out.

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>
#include <utility>

#include "engine/codes/chains.h"
#include "engine/hazards.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Die;
using test::Drawn;
using test::Rolled;
using Lines = std::vector<std::string>;
using Texts = std::vector<std::string_view>;
using Given = std::vector<std::pair<std::string, int>>;
using Numbers = CharacterNumbers;

// A question put to the player, and the answer.
using Question = std::function<void(test::ScriptedPlayer&)>;
using Questions = std::vector<Question>;

// clang-format off
Question Pick(const std::string& title, const std::string& options, int pick) { return [=](auto& player) { player.ExpectChoice(title, options, pick); }; }
Question Mark(const std::string& prompt, const std::string& items, int mark) { return [=](auto& player) { player.ExpectList(prompt, items, {mark}); }; }
Question MarkOne(const std::string& prompt, int mark) { return [=](auto& player) { player.ExpectListLimits(prompt, 1, 1, {mark}); }; }
Question Answer(bool yes, const std::string& text) { return [=](auto& player) { player.ExpectAsk(text, yes); }; }
Question Care(bool taken, const std::string& loss) { return Answer(taken, "Stat " + loss + " medical debt to avoid?"); }

Die D2(int result) { return Rolled(1, 2, result); }
Die D6(int result) { return Rolled(1, 6, result); }
Die TwoD6(int result) { return Rolled(2, 6, result); }

const std::vector<std::pair<std::string_view, Field>> kNumbers = {
    {"Leave", &Numbers::LeaveCareer},    {"Rolls", &Numbers::MusterRolls},                {"CareerTerms", &Numbers::TermsInCareer},
    {"Terms", &Numbers::TermsTotal},     {"Benefits", &Numbers::BenefitRollsModifier},    {"Parole", &Numbers::ParoleThreshold},
    {"Allies", &Numbers::Allies},        {"QualificationDM", &Numbers::QualificationDM},  {"Bonus", &Numbers::MusterBonusCount},
    {"Enemies", &Numbers::Enemies},      {"AdvancementDM", &Numbers::AdvancementDM},      {"CashRolls", &Numbers::CashRollsUsed},
    {"Contacts", &Numbers::Contacts},    {"CommissionDM", &Numbers::CommissionDM},        {"Commissioned", &Numbers::Commissioned},
    {"Rivals", &Numbers::Rivals},        {"SurvivalDM", &Numbers::SurvivalDM},            {"Graduated", &Numbers::Graduated},
    {"Rank", &Numbers::Rank},            {"Count", &Numbers::CharacteristicCount},        {"Age", &Numbers::Age}};
const Texts kSlots = {"", "Str", "Dex", "End", "Int", "Edu", "Soc", "[7]", "[8]", "[9]", "[10]"};
// clang-format on

// Every number and skill that differs, as "Leave+1 Rolls-1 Enemies+1 [Admin-1]"; "out" stands for the first two, which
// is what a mishap does if its codes don't say otherwise.
std::string Changes(const CharacterRecord& before, const CharacterRecord& after) {
    std::string text;
    const auto compare = [&](std::string_view name, std::int64_t was, std::int64_t is) {
        if (was != is)
            AppendAll(text, name, is > was ? "+" : "", is - was, " ");
    };
    for (const auto& [name, field] : kNumbers)
        compare(name, before.*field, after.*field);
    if (const std::string_view out = "Leave+1 Rolls-1 "; text.starts_with(out))
        text.replace(0, out.size(), "out ");
    for (int i = 0; i <= kMostCharacteristics; ++i) {
        const auto name = kSlots.at(static_cast<std::size_t>(i));
        compare(name, before.Characteristic[i], after.Characteristic[i]);
        compare(Concat(name, "DM"), before.CharacteristicDM[i], after.CharacteristicDM[i]);
    }
    compare("Cash", before.Cash, after.Cash);
    compare("Pension", before.Pension, after.Pension);
    compare("Debt", std::lround(before.MedicalDebt), std::lround(after.MedicalDebt));
    for (std::size_t i = 1; i < after.Skills.size(); ++i)
        if (const auto& [name, level] = after.Skills.at(i);
            name != before.Skills.at(i).Name || level != before.Skills.at(i).Level)
            AppendAll(text, "[", name, "-", level, "] ");
    return std::string(Trim(text));
}

class MishapCodes : public test::World {
  protected:
    MishapCodes() {
        Give({{"Rolls", 3},
              {"Benefits", 2},
              {"Parole", 5},
              {"QualificationDM", 1},
              {"Terms", 2},
              {"CareerTerms", 1},
              {"Enemies", 4}});
        session.career.medicalCover = {0, 100, 100, 100};
        session.career.serviceTable = {"", "Admin", "Steward or Broker", "Gambler", "Explosives", "Recon", "Medic"};
    }
    // Numbers, characteristics and skills, and "auto" for automatic mode.
    void Give(const Given& given) {
        for (const auto& [name, value] : given) {
            const auto number = std::ranges::find(kNumbers, name, &std::pair<std::string_view, Field>::first);
            const auto slot = std::ranges::find(kSlots, name);
            if (name == "auto")
                Tick(Option::AutomaticGeneration);
            else if (number != kNumbers.end())
                character().*number->second = value;
            else if (slot != kSlots.end())
                SetCharacteristic(static_cast<int>(slot - kSlots.begin()), value);
            else
                Hold(name, value);
        }
    }
    // Plays the entry and tells what it changed; the session is then as it was before.
    std::string Mishap(std::string_view entry, const std::vector<Die>& rolls = {}, const Questions& asked = {},
                       const Given& given = {}) {
        const auto kept = std::tuple(character(), session.career, session.selection, session.options);
        Give(given);
        const auto before = character();
        session.career.mishapTable[1] = entry;
        dice.Expect({D6(1)});
        dice.Expect(rolls);
        for (const auto& question : asked)
            question(player);
        RollMishap(session);
        ExpectScriptsDone();
        auto changes = Changes(before, character());
        lines = History();
        serviceRow = session.career.serviceTable[2];
        std::tie(character(), session.career, session.selection, session.options) = kept;
        return changes;
    }

    Lines lines;             // what the last mishap wrote
    std::string serviceRow;  // and what it left in the service's second row
};

// clang-format off
struct Case { std::string_view codes; Given given; std::vector<Die> dice; Questions asked; Lines lines; std::string_view changes; };

const std::string kHurt = "Injured; Purple Heart if appropriate";
const std::string kJail = "You have been imprisoned. Terms will be served until you make your parole roll or die of old age";
const std::string kPaid = " 7 reduced by 1, service pays for full recovery";
const std::string kHitch = "Hitch-hiked across the stars";
const Question kEndHurt = [](auto& player) { player.ExpectChoice("Lose 1 from which stat?", "Str/Dex/End", 3); Care(false, "End currently 7 reduced by 1. Take Cr5000")(player); };
const Questions kPrison = {[](auto& player) { player.ExpectTell(kJail).ExpectMuster(MusterButton::Done); }, Answer(true, "You still have 3 rolls unused! Abandon them?")};
const auto kBlackOps = [](bool yes) { return Answer(yes, "Ordered on Black Ops against conscience. Accept?"); };
const auto kSabotage = [](bool yes) { return Answer(yes, "Work Sabotaged. Salvage some and leave or start over?"); };
const auto kSevere   = [](int pick) { return Pick("Severe Injury - Select Option", "Injury 2/Worst of Two Rolls", pick); };
const auto kDeal     = [](int pick) { return Pick("Criminal Offers Deal", "Accept deal from Criminal/Refuse", pick); };
const auto kAssault  = [](int pick) { return Pick("Assaulted by Prison Gang", "Fight Back/Don't Fight Back", pick); };
const auto kBlamed   = [](int pick) { return Pick("Blamed for accident that caused deaths", "Responsible/Not your fault", pick); };
const auto kFlee     = [](int pick) { return Pick("Forced to Flee", "Deception=1/Pilot (Small Craft)=1/Pilot (Spacecraft)=1/Athletics (Dexterity)=1/Gunner=1", pick); };
const auto kScience  = Pick("Select Specialty for Science", "*", 2);

const std::vector<Case> kCases = {
    // codes, given, dice, asked, lines, changes
    {"SINJ", {}, {D6(6), D6(5)}, {kSevere(2), kEndHurt}, {kHurt, "End reduced by 1 to 6"}, "out End-1"},
    {"SINJ", {{"auto", 1}}, {Drawn(2, 0), Drawn(3, 1), D6(4), TwoD6(7)}, {},
        {"Severely Injured; Purple Heart if appropriate", "Dex 7 reduced by 4, service pays for full recovery"}, "out"},
    {"INJR", {}, {D6(6)}, {}, {"Lightly Injured"}, "out"},
    {"NOEJEC", {}, {}, {}, {}, ""},
    {"MINUS1SOC", {{"Soc", 9}}, {}, {}, {}, "out Soc-1 SocDM-1"},
    {"MINUS1SOC", {{"Soc", 0}}, {}, {}, {}, "out Soc+1 SocDM+1"},
    {"MINUS1END", {{"End", 3}}, {}, {}, {}, "out End-1 EndDM-1"},
    {"MINUS1END", {{"End", 1}}, {}, {}, {}, "out"},
    {"IMPRISON", {}, {D6(4)}, kPrison, {"Imprisoned; parole threshold 8"}, "Leave+1 CareerTerms-1 Benefits-2 Parole+3"},
    {"BETRAY", {{"Contacts", 1}, {"Allies", 1}}, {}, {}, {"Contact betrays you, becomes a Rival"}, "out Contacts-1 Rivals+1"},
    {"BETRAY", {{"Allies", 1}}, {}, {}, {"Ally betrays you, becomes an Enemy"}, "out Allies-1 Enemies+1"},
    {"BETRAY", {}, {D2(1)}, {}, {"Enemy from nowhere"}, "out Enemies+1"},
    {"BETRAY", {}, {D2(2)}, {}, {"Rival from nowhere"}, "out Rivals+1"},
    {"AGTDEAL", {{"auto", 1}}, {Drawn(2, 0)}, {}, {}, "Leave+1 Rolls-2"},
    {"AGTDEAL", {}, {D6(5), D6(6)}, {kDeal(2), kEndHurt, MarkOne("Select Any Skill", 2)}, {kHurt, "End reduced by 1 to 6", "Enemy: Criminal", "Advocate-1"}, "out Enemies+1 End-1 [Advocate-1]"},
    {"AGTDEAL", {{"auto", 1}}, {Drawn(2, 1), D6(6), D6(6), Drawn(38, 20)}, {}, {"Lightly Injured", "Enemy: Criminal", "Admin-1"}, "out Enemies+1 [Admin-1]"},
    {"AGTWRNG", {{"Advocate", 1}}, {TwoD6(7)}, {}, {}, "out"},
    {"AGTWRNG", {{"Advocate", 1}}, {TwoD6(6)}, {}, {}, "Leave+1 Rolls-2"},
    {"AGTWRNG", {}, {TwoD6(6)}, {}, {}, "Leave+1 Rolls-2"},
    {"AGTWRNG", {}, {TwoD6(5), D6(1)}, kPrison, {"Imprisoned; parole threshold 5"}, "Leave+1 CareerTerms-1 Benefits-2"},
    {"AGTKNOW", {}, {}, {}, {"Enemy: Know too much", "Deception-1"}, "out Enemies+1 [Deception-1]"},
    {"ARMSLAU", {}, {}, {}, {"Enemy: Commander who got your unit slaughtered"}, "out Enemies+1"},
    {"ARMUNPL", {}, {}, {Mark("Unpleasant Region Rebels", "Recon-1/Survival-1", 2)}, {"Enemy: Rebel from unpleasant region", "Survival-1"}, "out Enemies+1 [Survival-1]"},
    {"ARMUNPL", {{"Recon", 1}}, {}, {MarkOne("Unpleasant Region Rebels", 1)}, {"Enemy: Rebel from unpleasant region", "Recon-2"}, "out Enemies+1 [Recon-2]"},
    {"ARMCOIL", {}, {}, {Pick("Commander Involved in Illegality", "Join the Ring/Co-Operate with Military Police", 1)}, {"Ally: Commander involved in illegality and protected"}, "out Allies+1"},
    {"ARMCOIL", {{"auto", 1}, {"Benefits", 3}}, {Drawn(2, 1)}, {}, {}, "out Benefits-2"},
    {"ARMQUAR", {}, {}, {}, {"Enemy: Officer who drove you out of the service"}, "out Enemies+1"},
    {"PRIPAR2", {}, {}, {}, {}, "out Parole+2"},
    {"PRIASSAULT", {{"auto", 1}, {"Terms", 3}}, {Drawn(2, 0)}, {}, {"Didn't fight back"}, "out Benefits-3"},
    {"PRIASSAULT", {{"Melee (Unarmed)", 3}}, {TwoD6(9), D6(6), D6(5)}, {kAssault(2), kEndHurt}, {"Fought back but failed", kHurt, "End reduced by 1 to 6"}, "out End-1"},
    {"PRIASSAULT", {}, {TwoD6(8)}, {kAssault(2)}, {"Fought back and won", "Enemy: Prison Gang Member"}, "out Parole+1 Enemies+1"},
    {"PRIGUARD", {}, {}, {}, {"Enemy: Prison Guard"}, "out Parole+1 Enemies+1"},
    {"LAWGANGENEMY", {}, {}, {}, {"Enemy: Criminal Gang"}, "out Enemies+1"},
    {"LAWPRACTICEBUST", {}, {}, {Pick("Law Practice Goes Bust", "Co-Operate with Investigation/Don't Co-Operate", 1)}, {}, "out"},
    {"LAWPRACTICEBUST", {{"auto", 1}}, {Drawn(2, 1)}, {}, {"Ally: Law Practice Colleague"}, "out Allies+1"},
    {"LAWCOR1SKILL", {{"Medic", 1}, {"Broker", 0}}, {TwoD6(8)}, {Mark("Select a Held Skill to improve", "Broker=1/Medic=2", 2)}, {"Medic-2"}, "out [Medic-2]"},
    {"LAWCOR1SKILL", {{"Streetwise", 3}}, {TwoD6(9)}, {}, {}, "out"},
    {"CITBUSBUST", {}, {}, {Pick("Business Goes Bust", "Co-Operate with Investigation/Don't Co-Operate", 2)}, {"Ally: Ex-Colleague"}, "out Allies+1"},
    {"CITBUSBUST", {{"auto", 1}}, {Drawn(2, 0)}, {}, {}, "out"},
    {"DRIGANGENEMY", {}, {}, {}, {"Enemy: Criminal Gang, Corrupt Bureacrat etc"}, "out Enemies+1"},
    {"ENTSTRAND", {}, {}, {Pick("Stranded Far from Home", "Survival=1/Pilot=1/Persuade=1/Streetwise=1", 3)}, {"Persuade-1"}, "out [Persuade-1]"},
    {"ENTFORCE", {}, {}, {}, {}, "out QualificationDM+2"},
    {"MARMISTREATED", {}, {TwoD6(7)}, {Care(false, "Str currently 7 reduced by 1. Take Cr5000"), Care(true, "Dex currently 7 reduced by 1. Take Cr5000")},
        {"Enemy: Enemy Jailer", "Str reduced by 1 to 6", "Dex" + kPaid}, "out Enemies+1 Str-1"},
    {"MARSTRANDED", {{"Survival", 1}}, {}, {Pick("Stranded behind enemy lines", "Stealth/Survival", 2)}, {"Survival-2"}, "out [Survival-2]"},
    {"MARBLACK", {}, {}, {kBlackOps(true)}, {"Enemy: Lone survivor of Black Ops Mission"}, "Rolls-1 Enemies+1"},
    {"MARBLACK", {}, {}, {kBlackOps(false)}, {}, "out"},
    {"MARBLACK", {{"auto", 1}}, {}, {}, {"Enemy: Lone survivor of Black Ops Mission"}, "Rolls-1 Enemies+1"},
    {"MARQUARREL", {}, {}, {}, {"Rival: Quarreled-with Officer or Fellow Marine"}, "out Rivals+1"},
    {"MERRIVAL", {}, {}, {}, {"Rival: Merchant who bankrupted you"}, "Leave+1 Rolls-3 Benefits-2 Rivals+1"},
    {"MERCRIM", {}, {}, {}, {"Enemy: Criminals who destroyed starport or ship"}, "out Enemies+1"},
    {"MERBANK", {}, {}, {}, {}, "out Benefits+1"},
    {"NAVFROZ", {{"Dex", 9}, {"End", 6}}, {}, {Pick("Frozen Watch revive problem. Choose a stat to reduce by 1", "Str 7/Dex 9/End 6", 2),
        Care(false, "Dex currently 9 reduced by 1. Take Cr5000")}, {"Dex reduced by 1 to 8"}, "Rolls-1 Dex-1 DexDM-1"},
    {"NAVFROZ", {{"auto", 1}}, {Drawn(3, 2), TwoD6(7)}, {}, {"End" + kPaid}, "Rolls-1"},
    {"NAVBATTLE", {}, {}, {}, {}, "out"},  // the infantry fights no such battle
    {"NAVBLAMED", {{"auto", 1}}, {Drawn(2, 0), D6(4)}, {}, {"Explosives-1"}, "out [Explosives-1]"},
    {"NAVBLAMED", {}, {}, {kBlamed(2)}, {"Enemy: Officer who blamed you for accident"}, "out Benefits+1 Enemies+1"},
    {"NAVQUARREL", {}, {}, {}, {"Rival: Quarreled-with Officer or Fellow Crewman"}, "out Rivals+1"},
    {"NOBWAR", {{"Stealth", 0}, {"Deception", 2}}, {TwoD6(6)}, {}, {"Escape unhurt"}, "out"},
    {"NOBWAR", {{"Stealth", 1}}, {TwoD6(7)}, {}, {"Escape unhurt"}, "out"},
    {"NOBWAR", {{"Stealth", 1}}, {TwoD6(6), D6(6)}, {}, {"Lightly Injured"}, "out"},
    {"NOBPOLITICAL", {}, {}, {Pick("Political Manouvreings", "Diplomat/Advocate", 2)}, {"Advocate-1", "Rival: Political Manouvreings"}, "out Rivals+1 [Advocate-1]"},
    {"NOBASS", {{"Soc", 9}, {"End", 3}}, {TwoD6(7)}, {}, {"Assassin escaped"}, "out"},
    {"NOBASS", {{"Soc", 9}, {"End", 12}}, {TwoD6(6), D6(6)}, {}, {"Lightly Injured"}, "out"},
    {"ROGBETRAY", {{"Contacts", 1}, {"Allies", 1}}, {D2(1), TwoD6(12)}, {},
        {"Contact betrays you, becomes a Rival", "Enemy: Betrayed", "Betrayed by Ally"}, "out Allies-1 Enemies+1 Contacts-1 Rivals+1"},
    {"ROGBETRAY", {{"Contacts", 2}}, {D2(2), TwoD6(3)}, {}, {"Contact betrays you, becomes a Rival", "Rival: Betrayed", "Betrayed by Contact"}, "out Contacts-2 Rivals+2"},
    {"ROGBETRAY", {}, {D2(2), D2(1), TwoD6(2), D6(6)}, kPrison,
        {"Rival from nowhere", "Enemy: Betrayed", "Imprisoned; parole threshold 10"}, "Leave+1 CareerTerms-1 Benefits-2 Parole+5 Enemies+1 Rivals+1"},
    {"ROGFLEE", {}, {}, {kFlee(4)}, {"Athletics (Dexterity)-1"}, "out [Athletics (Dexterity)-1]"},
    {"ROGCOP", {}, {}, {kFlee(1)}, {"Enemy: Cop or Ciminal hunting you down"}, "out Enemies+1"},
    {"SCHDISASTER", {}, {D6(5), D6(6)}, {}, {"Lightly Injured", "Rival: Survivor of your disaster"}, "out Rivals+1"},
    {"SCHDISASTER", {}, {D6(6), D6(1)}, {}, {"Lightly Injured", "Rival: Survivor of your disaster"}, "out Rivals+1"},
    {"SCHINTERFERE", {}, {}, {kScience}, {"Science (Astronomy)-1"}, "out Soc-2 [Science (Astronomy)-1]"},
    {"SCHINTERFERE", {{"Soc", 2}}, {}, {kScience}, {"Science (Astronomy)-1"}, "out Soc-1 [Science (Astronomy)-1]"},
    {"SCIEXPEDITION", {}, {}, {Pick("Stranded in the Wilderness", "Survival=1/Athletics (Dexterity)=1/Athletics (Endurance)=1", 3)}, {"Athletics (Endurance)-1"}, "out [Athletics (Endurance)-1]"},
    {"SCISABOTAGE", {}, {}, {kSabotage(true)}, {}, "out Benefits+1"},
    {"SCISABOTAGE", {}, {}, {kSabotage(false)}, {}, "Rolls-1"},
    {"SCISABOTAGE", {{"auto", 1}}, {}, {}, {}, "out Benefits+1"},
    {"SCIBLACK", {}, {}, {}, {"Rival: Rival researcher blackened your name"}, "out Rivals+1"},
    {"SCODAMAGE", {{"Soc", 1}}, {}, {Pick("Psychological Damage", "INT -1/Soc -1", 2)}, {}, "out Soc-1 SocDM-1"},
    {"SCODAMAGE", {{"auto", 1}, {"Edu", 0}}, {Drawn(2, 0)}, {}, {}, "out Edu-1 EduDM+3"},
    {"SCOHITCH", {}, {Rolled(1, 3, 2), D6(1)}, {}, {"Enemy: " + kHitch, "Enemy: " + kHitch, "Contact: " + kHitch}, "out Enemies+2 Contacts+1"},
    {"SCOCONFLICT", {}, {}, {}, {"Diplomat-1", "Rival: Inadvertent conflict caused"}, "out Rivals+1 [Diplomat-1]"},
};

const Texts kOrder = {
    "SINJ", "INJR", "NOEJEC", "MINUS1SOC", "MINUS1END", "IMPRISON", "BETRAY", "AGTDEAL", "AGTWRNG", "AGTKNOW", "ARMSLAU", "ARMUNPL", "ARMCOIL", "ARMQUAR", "PRIPAR2",
    "PRIASSAULT", "PRIGUARD", "LAWGANGENEMY", "LAWPRACTICEBUST", "LAWCOR1SKILL", "CITBUSBUST", "DRIGANGENEMY", "ENTSTRAND", "ENTFORCE", "MARMISTREATED",
    "MARSTRANDED", "MARBLACK", "MARQUARREL", "MERRIVAL", "MERCRIM", "MERBANK", "NAVFROZ", "NAVBATTLE", "NAVBLAMED", "NAVQUARREL", "NOBWAR", "NOBPOLITICAL", "NOBASS",
    "ROGBETRAY", "ROGFLEE", "ROGCOP", "SCHDISASTER", "SCHINTERFERE", "SCIEXPEDITION", "SCISABOTAGE", "SCIBLACK", "SCODAMAGE", "SCOHITCH", "SCOCONFLICT"};
// clang-format on

TEST_F(MishapCodes, EachCodeDoesWhatItSaysAndNothingElse) {
    for (const auto& each : kCases) {
        SCOPED_TRACE(Concat(each.codes, ": ", each.changes));
        EXPECT_EQ(Mishap(Concat("Told/", each.codes), each.dice, each.asked, each.given), each.changes);
        EXPECT_EQ(Lines(lines.begin() + 1, lines.end()), each.lines);
    }
}

TEST_F(MishapCodes, TheChainHoldsAllCodesInTheirOrderAndEachIsTried) {
    Texts chain, tried;
    for (const auto& row : MishapChain().rows())
        chain.push_back(row.code);
    EXPECT_EQ(chain, kOrder);
    for (const auto& each : kCases)
        if (tried.empty() || tried.back() != each.codes)
            tried.push_back(each.codes);
    EXPECT_EQ(tried, kOrder);
}

TEST_F(MishapCodes, SeveralCodesOfAnEntryAreCarriedOutOnceEachInTheOrderOfTheChain) {
    EXPECT_EQ(Mishap("x/SCIBLACK,PRIGUARD SCIBLACK INJR", {D6(6)}), "out Parole+1 Enemies+1 Rivals+1");
    EXPECT_EQ(lines,
              (Lines{"x", "Lightly Injured", "Enemy: Prison Guard", "Rival: Rival researcher blackened your name"}));
    EXPECT_EQ(Mishap("Both/SINJR", {D6(6), D6(5), D6(6)}, {kSevere(2), kEndHurt}), "out End-1");
    EXPECT_EQ(lines, (Lines{"Both", kHurt, "End reduced by 1 to 6", "Lightly Injured"}));
}

TEST_F(MishapCodes, OnlyTheCodeStringHoldsCodesAndWithoutASlashItIsTheWholeText) {
    EXPECT_EQ(Mishap("Worse than NOEJEC and MERBANK/PRIPAR2"), "out Parole+2");
    EXPECT_EQ(Mishap("MERBANK, but NOEJEC"), "Benefits+1");
    EXPECT_EQ(lines, Lines{"MERBANK, but NOEJEC"});
    EXPECT_EQ(Mishap("One/two/xMERBANKx Armslau PRIPAR"), "out Benefits+1");
}

TEST_F(MishapCodes, LaterCodesOverrideWhetherTheCareerEnds) {
    EXPECT_EQ(Mishap("x/NOEJEC IMPRISON", {D6(1)}, kPrison), "Leave+1 CareerTerms-1 Benefits-2");
    EXPECT_EQ(Mishap("x/NOEJEC AGTDEAL", {}, {kDeal(1)}), "out");
    EXPECT_EQ(Mishap("x/NOEJEC AGTWRNG", {TwoD6(11)}), "Leave+1");
    EXPECT_EQ(Mishap("x/MARBLACK AGTWRNG", {TwoD6(11)}, {kBlackOps(true)}), "Rolls-1 Enemies+1") << "the last decides";
    EXPECT_EQ(Mishap("x/NOEJEC MARBLACK", {}, {kBlackOps(false)}), "");
    EXPECT_EQ(player.lastAsk.icon, Icon::Question);
    EXPECT_EQ(player.lastAsk.title, "") << "the program's own";
    EXPECT_EQ(Mishap("x/NOEJEC SCISABOTAGE", {}, {kSabotage(true)}), "Benefits+1");
    EXPECT_EQ(player.lastAsk.title, "Message Box Maker v 1.5");
    EXPECT_EQ(Mishap("x/NOEJEC MERRIVAL"), "Rolls-3 Benefits-2 Rivals+1");
}

TEST_F(MishapCodes, TheServiceRowKeepsTheSideThatWasChosen) {
    Mishap("x/NAVBLAMED", {D6(2)}, {kBlamed(1), Pick("Select a Skill", "Steward/Broker", 2)});
    EXPECT_EQ(serviceRow, "Broker");
}

TEST_F(MishapCodes, BattleStationsUseTheBestOfTheSkillsOfTheAssignmentOfThatVeryName) {
    const std::vector<std::pair<std::string, Texts>> stations = {
        {"Crew",
         {"Electronics (Sensors)", "Gunner (Turret)", "Gunner (Ortillery)", "Gunner (Screen)", "Gunner (Capital)"}},
        {"Engineer Gunner", {"Mechanic", "Vacc Suit"}},
        {"Flight", {"Pilot (Small Craft)", "Pilot (Spacecraft)", "Tactics (Naval)"}}};
    for (const auto& [station, skills] : stations) {
        session.selection.assignment = station;
        EXPECT_EQ(Mishap("x/NAVBATTLE", {TwoD6(2)}), "out");
        EXPECT_EQ(lines.back(), "Court-Martialled");
        EXPECT_EQ(Mishap("x/NAVBATTLE", {TwoD6(3)}), "out Benefits+1");
        EXPECT_EQ(lines.back(), "Honourable discharge");
        for (const auto skill : skills) {
            EXPECT_EQ(Mishap("x/NAVBATTLE", {TwoD6(2)}, {}, {{std::string(skill), 1}}), "out Benefits+1") << skill;
            EXPECT_EQ(session.choice.PickText, skill);
        }
    }
    session.selection.assignment = "Line Crew";
    EXPECT_EQ(Mishap("x/NAVBATTLE"), "out");
}

}  // namespace
}  // namespace korvane
