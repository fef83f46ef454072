#include "character/summary.h"
#include "engine/codes/chains.h"
#include "engine/codes/fields.h"
#include "engine/codes/odd_codes.h"
#include "engine/life_events.h"

namespace korvane::codes {

namespace {

// clang-format off

std::vector<Row> GenericMishaps() {
    return {
        {"SINJ",      {Either{"Severe Injury - Select Option", {{"Injury 2",           {Hurt{InjuryDice::Row2}}},
                                                                {"Worst of Two Rolls", {Hurt{InjuryDice::WorstOfTwo}}}}}}},
        {"INJR",      {Hurt{}}},
        // A mishap ends the career and costs the term's benefit roll, unless this code says that it doesn't. Later codes may
        // decide otherwise.
        {"NOEJEC",    {Set{kLeave, 0}},
                      {Set{kLeave, 1}, Add{kMusterRolls, -1}}},
        {"MINUS1SOC", {Lower{kSoc, 1}}},
        {"MINUS1END", {Lower{kEnd, 1}}},
        {"IMPRISON",  {Set{kLeave, 1}, GoToPrison{}}},
        {"BETRAY",    {Call{BetrayContactOrAlly, "a contact becomes a rival; without contacts an ally becomes an enemy; with neither an enemy or a rival appears"}}},
    };
}

std::vector<Row> AgentMishaps() {
    return {
        {"AGTDEAL", {Either{"Criminal Offers Deal", {{"Accept deal from Criminal", {Set{kLeave, 1}, Add{kMusterRolls, -1}}},
                                                     {"Refuse",                    {Hurt{InjuryDice::WorstOfTwo}, Enemy{"Criminal"}, AnySkill{}}}}}}},
        {"AGTWRNG", {Call{AnswerAccusation, "2D6 and Advocate: 8 or more (the character leaves the career), else (the benefit roll of the term is lost too), at most 2 (and prison)"}}},
        {"AGTKNOW", {Enemy{"Know too much"}, Grant{"Deception=1"}}},
    };
}

std::vector<Row> ArmyMishaps() {
    return {
        {"ARMSLAU", {Enemy{"Commander who got your unit slaughtered"}}},
        {"ARMUNPL", {Enemy{"Rebel from unpleasant region"}, Pick{"Unpleasant Region Rebels", {"Recon-1", "Survival-1"}}}},
        // The modifier is set here, not added to.
        {"ARMCOIL", {Either{"Commander Involved in Illegality", {{"Join the Ring",                   {Ally{"Commander involved in illegality and protected"}}},
                                                                 {"Co-Operate with Military Police", {Set{kBenefitRolls, 1}}}}}}},
        {"ARMQUAR", {Enemy{"Officer who drove you out of the service"}}},
    };
}

std::vector<Row> PrisonMishaps() {
    return {
        {"PRIPAR2",    {Add{kParole, 2}}},
        // The two answers are crossed, and so are their texts: the rule is known so.
        {"PRIASSAULT", {Either{"Assaulted by Prison Gang", {{"Fight Back",       {Line{"Didn't fight back"}, Call{LoseRollForEachTerm, "benefit rolls minus the terms served"}}},
                                                            {"Don't Fight Back", {SkillTest{{"Melee (Unarmed)"}, 8,
                                                                                     {Line{"Fought back and won"}, Enemy{"Prison Gang Member"}, Add{kParole, 1}},
                                                                                     {Line{"Fought back but failed"}, Hurt{InjuryDice::WorstOfTwo}}}}}}}}},
        {"PRIGUARD",   {Add{kParole, 1}, Enemy{"Prison Guard"}}},
    };
}

std::vector<Row> CitizenMishaps() {
    return {
        {"LAWGANGENEMY",    {Enemy{"Criminal Gang"}}},
        // Co-operation brings nothing that lasts.
        {"LAWPRACTICEBUST", {Either{"Law Practice Goes Bust", {{"Co-Operate with Investigation", {}},
                                                               {"Don't Co-Operate",              {Ally{"Law Practice Colleague"}}}}}}},
        {"LAWCOR1SKILL",    {SkillTest{{"Streetwise"}, 8, {Improve{}}, {}}}},
        {"CITBUSBUST",      {Either{"Business Goes Bust",     {{"Co-Operate with Investigation", {}},
                                                               {"Don't Co-Operate",              {Ally{"Ex-Colleague"}}}}}}},
    };
}

std::vector<Row> DrifterAndEntertainerMishaps() {
    return {
        {"DRIGANGENEMY", {Enemy{"Criminal Gang, Corrupt Bureacrat etc"}}},
        {"ENTSTRAND",    {Choose{"Stranded Far from Home", {"Survival=1", "Pilot=1", "Persuade=1", "Streetwise=1"}}}},
        {"ENTFORCE",     {Add{kQualification, 2}}},
    };
}

std::vector<Row> MarineMishaps() {
    return {
        {"MARMISTREATED", {Enemy{"Enemy Jailer"}, Reduce{kStr, 1}, Reduce{kDex, 1}}},
        {"MARSTRANDED",   {Choose{"Stranded behind enemy lines", {"Stealth", "Survival"}}}},
        {"MARBLACK",      {Ask{"Ordered on Black Ops against conscience. Accept?",
                               {Enemy{"Lone survivor of Black Ops Mission"}, Set{kLeave, 0}},
                               {}}}},
        {"MARQUARREL",    {Rival{"Quarreled-with Officer or Fellow Marine"}}},
    };
}

std::vector<Row> MerchantMishaps() {
    return {
        {"MERRIVAL", {Set{kMusterRolls, 0}, Set{kBenefitRolls, 0}, Rival{"Merchant who bankrupted you"}}},
        {"MERCRIM",  {Enemy{"Criminals who destroyed starport or ship"}}},
        {"MERBANK",  {Add{kBenefitRolls, 1}}},
    };
}

std::vector<Row> NavyMishaps() {
    return {
        {"NAVFROZ",    {Call{ReviveFrozen, R"(choose Str, Dex or End ("Frozen Watch revive problem. Choose a stat to reduce by 1"): -1 or care as a debt)"}, Set{kLeave, 0}}},
        {"NAVBATTLE",  {Call{FaceCourtMartial, R"(for the assignments Crew, Engineer Gunner and Flight 2D6 and the best of their skills: below 0 ("Court-Martialled" is written), else ("Honourable discharge" is written; benefit rolls +1))"}}},
        {"NAVBLAMED",  {Either{"Blamed for accident that caused deaths", {{"Responsible",    {Call{GrantServiceRow, "a row of the career's service table, by a die"}}},
                                                                          {"Not your fault", {Enemy{"Officer who blamed you for accident"}, Add{kBenefitRolls, 1}}}}}}},
        {"NAVQUARREL", {Rival{"Quarreled-with Officer or Fellow Crewman"}}},
    };
}

std::vector<Row> NobleMishaps() {
    return {
        {"NOBWAR",       {BestTest{{"Stealth", "Deception"}, 8, {Line{"Escape unhurt"}}, {Hurt{}}}}},
        {"NOBPOLITICAL", {Choose{"Political Manouvreings", {"Diplomat", "Advocate"}}, Rival{"Political Manouvreings"}}},
        {"NOBASS",       {Check{"End 8+", {Line{"Assassin escaped"}}, {Hurt{}}}}},
    };
}

std::vector<Row> RogueMishaps() {
    const Texts kFlight = {"Deception=1", "Pilot (Small Craft)=1", "Pilot (Spacecraft)=1", "Athletics (Dexterity)=1", "Gunner=1"};
    return {
        // The code holds BETRAY, which is carried out too, before this.
        {"ROGBETRAY", {OnRoll{1, 2, {{1, {Enemy{"Betrayed"}}}, {2, {Rival{"Betrayed"}}}}}, Call{LoseAllyOrContact, "an ally or else a contact is lost"},
                       OnRoll{2, 6, {{2, {GoToPrison{}}}}}}},
        {"ROGFLEE",   {Choose{"Forced to Flee", kFlight}}},
        // The same question, but here the answer brings nothing.
        {"ROGCOP",    {ChooseInVain{"Forced to Flee", kFlight}, Enemy{"Cop or Ciminal hunting you down"}}},
    };
}

std::vector<Row> ScholarMishaps() {
    return {
        {"SCHDISASTER",   {Hurt{InjuryDice::BetterOfTwo}, Rival{"Survivor of your disaster"}}},
        {"SCHINTERFERE",  {Grant{"Science"}, Lower{kSoc, 2}}},
        {"SCIEXPEDITION", {Choose{"Stranded in the Wilderness", {"Survival=1", "Athletics (Dexterity)=1", "Athletics (Endurance)=1"}}}},
        {"SCISABOTAGE",   {Ask{"Work Sabotaged. Salvage some and leave or start over?",
                               {Add{kBenefitRolls, 1}},
                               {Set{kLeave, 0}},
                               "Message Box Maker v 1.5"}}},
        {"SCIBLACK",      {Rival{"Rival researcher blackened your name"}}},
    };
}

std::vector<Row> ScoutMishaps() {
    return {
        // What the button calls "INT -1" lowers Edu.
        {"SCODAMAGE",   {Either{"Psychological Damage", {{"INT -1", {Alter{kEdu, -1}}},
                                                         {"Soc -1", {Alter{kSoc, -1}}}}},
                         Call{ShowSummary, ""}}},
        {"SCOHITCH",    {Repeat{3, {Enemy{"Hitch-hiked across the stars"}}}, Repeat{6, {Contact{"Hitch-hiked across the stars"}}}}},
        {"SCOCONFLICT", {Grant{"Diplomat"}, Rival{"Inadvertent conflict caused"}}},
    };
}

// clang-format on

}  // namespace

const Chain& MishapChain() {
    static const Chain chain("mishap",
                             Joined({GenericMishaps(), AgentMishaps(), ArmyMishaps(), PrisonMishaps(), CitizenMishaps(),
                                     DrifterAndEntertainerMishaps(), MarineMishaps(), MerchantMishaps(), NavyMishaps(),
                                     NobleMishaps(), RogueMishaps(), ScholarMishaps(), ScoutMishaps()}));
    return chain;
}

}  // namespace korvane::codes
