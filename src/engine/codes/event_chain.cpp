#include "engine/codes/chains.h"
#include "engine/codes/fields.h"
#include "engine/codes/odd_codes.h"
#include "engine/enlistment.h"
#include "engine/life_events.h"
#include "engine/prison.h"

namespace korvane::codes {

namespace {

// clang-format off

std::vector<Row> GenericEvents() {
    return {
        {"LIFE",     {Call{RollLifeEvent, "a life event"}}},
        {"PRO2",     {Set{kAdvancement, 2}}},
        {"PROA",     {Set{kAdvancement, kAutomaticSuccess}}},
        {"COMA",     {Set{kCommission, kAutomaticSuccess}}},
        {"PROMA",    {Set{kAdvancement, kAutomaticSuccess}}},
        {"ADVT",     {Improve{}}},
        {"IMPRISON", {GoToPrison{}}},
    };
}

std::vector<Row> AgentEvents() {
    return {
        {"AGTTURN",  {BestTest{{"Investigate", "Streetwise"}, 8, {Pick{"Select a Skill", {"Deception", "Jack of all Trades", "Persuade", "Tactics"}}},
                                                            {SufferMishap{}}}}},
        {"AGTREWD",  {Line{"+1 to Benefit roll Once"}, Add{kMusterBonus, 1}}},
        {"AGTD3CO",  {Repeat{3, {Contact{"Network of contacts"}}}}},
        {"AGTDFPG",  {Pick{"Specialist Vehicle Training", {"Drive=1", "Flyer=1", "Pilot=1", "Gunner=1"}}}},
        {"AGTBEFA",  {Either{"Befriended by senior agent", {GainOf("Investigate-1"), {"+4 to Promotion", {Set{kAdvancement, 4}}}}}}},
        {"AGTUNDER", {SkillTest{{"Deception"}, 8,
                                {Pick{"Under Cover Operation", {"Stealth-1", "Electronics-1", "Recon-1", "Streetwise-1", "Deception-1", "Athletics-1"}}},
                                {Line{"--- add rogue mishap ---"}}}}},
    };
}

std::vector<Row> ArmyEvents() {
    return {
        {"ARMHOST",       {Pick{"Hostile or Wild Environment", {"Vacc Suit=1", "Engineer=1", "Animals (Riding)=1", "Animals (Training)=1", "Recon-1"}}}},
        {"ARMURBWAR",     {Pick{"Urban War", {"Stealth=1", "Streetwise=1", "Persuade=1", "Recon=1"}}}},
        {"ARMBRUWAR",     {Check{"Edu 8+", {Pick{"Brutal War", {"Gun Combat=1", "Leadership=1"}}}, {Hurt{}}}}},
        {"ARMPEACE",      {Pick{"Peacekeeping Role", {"Admin=1", "Investigate=1", "Deception=1", "Recon=1"}}}},
        {"ARMCOINTEREST", {Either{"Commander Takes an Interest", {GainOf("Tactics (Military)"), {"DM+4 to next Promotion", {Add{kAdvancement, 4}}}}}}},
        {"ARMHERO",       {Either{"Heroism in Battle", {{"Automatic Commission", {Set{kCommission, kAutomaticSuccess}}},
                                                        {"Automatic Promotion",  {Set{kAdvancement, kAutomaticSuccess}}}}}}},
    };
}

std::vector<Row> CitizenEvents() {
    return {
        {"LAWREV",     {Call{TakeSidesInUpheaval, R"(choose Advocate=1, Persuade=1, Explosives=1 or Streetwise=1 ("Political Upheaval"), then 2D6: at most 8 ("On the winning side" is written; next advancement +2), else ("On the losing side" is written; next survival -2))"}}},
        {"CITVEHICLE", {Choose{"Spend Time Working with Vehicles", {"Mechanic", "Drive", "Electronics", "Flyer", "Engineer"}}}},
        {"CITEXPAND",  {Add{kMusterBonus, 1}, AnySkillAsked{}}},
        {"LAWLEARN",   {Either{"You Learn Something You Shouldn't",
                               {{"Profit from the Secret", {Either{"Profit from the Secret", {GainOf("Streetwise=1"), GainOf("Deception=1"),
                                                                                              {"Criminal Contact=1", {Contact{"Criminal via the Secret"}}}}},
                                                            Add{kMusterBonus, 1}}},
                                {"Don't", {}}}}}},
        {"CITELECENG", {Choose{"Computer Operator or Surveyor", {"Electronics", "Engineer"}}}},
        {"LAWSUPER",   {Ally{"Business Superior"}, Either{"Befriend a Superior", {GainOf("Diplomat=1"), {"Advancement +4", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> PrisonEvents() {
    return {
        {"PRIESCAPE", {Call{OfferEscape, "\"You have the opportunity to escape the prison. Do you try?\" is told, and tried whatever the answer"}, Line{"You attempt an escape"},
                       BestTest{{"Deception", "Stealth"}, 10, {Set{kParole, -10}, Line{kEscaped}}, {Add{kParole, 2}}}}},
        {"PRIHARD",   {Check{"End 8+", {Add{kParole, -1}, Choose{"Hard Labour", {"Athletics=1", "Mechanic=1", "Melee (Unarmed)=1"}, "You thrive on it"}},
                                       {Add{kParole, 1}, Line{"Failed, unfit"}}}}},
        {"PRIGANG",   {SkillTest{{"Persuade", "Melee (Unarmed)"}, 8,
                                 {Choose{"Prison Gang", {"Deception=1", "Persuade=1", "Stealth=1", "Melee (Unarmed)=1"}, "You join the prison gang"}, Add{kSurvival, 1}},
                                 {Enemy{"Fail to join the gang"}}}}},
        {"PRIVOC",    {Check{"Edu 8+", {AnySkill{}}, {}}}},
        {"PRIEVENT",  {OnRoll{1, 6, {{1, {OnRoll{1, 6, {{2, {Line{"Riot! Injured"}, Hurt{}}},
                                                        {4, {Line{"Riot!"}}},
                                                        {6, {Line{"Riot! You loot something good"}, Add{kBenefitRolls, 1}}}}}}},
                                     {2, {Contact{"Fellow inmate"}}},
                                     {3, {Rival{"Fellow inmate or guard"}}},
                                     {4, {Line{"Transferred to another prison"}, Call{RollParoleThreshold, "parole threshold set to 1D6 + 4"}}},
                                     {5, {Line{"Good Behaviour"}, Add{kParole, -2}}},
                                     {6, {Line{"Attacked by another prisoner"}, SkillTest{{"Melee (Unarmed)"}, 8, {}, {Hurt{}}}}}}}}},
        {"PRIHEAR",   {Add{kParole, -1}}},
        {"PRILAWYER", {Call{HireLawyer, "a lawyer of grade 1 to 3 for Cr5,000 a grade, as the cash allows (\"Chance to hire a lawyer\"): 2D6 and the grade, 8 or more (parole threshold -1)"}}},
        {"PRISPEC",   {Choose{"Special Duties", {"Admin", "Advocate", "Electronics (Computers)", "Steward"}}}},
        {"PRIWARDEN", {Add{kParole, -1}}},
        {"PRIHERO",   {OnRoll{2, 6, {{7, {Hurt{}}}}}, Ally{"Save a Guard or Prison Officer"}}},
        {"PRIWARDEN", {Add{kParole, -1}}},  // stands twice, so it counts twice
    };
}

std::vector<Row> DrifterEvents() {
    return {
        {"DRIJOB",       {Add{kQualification, 4}}},
        {"DRIFEWSKILLS", {Choose{"Pick up a few skills", {"Jack of all Trades", "Survival", "Streetwise", "Melee"}}}},
        {"DRISCAV",      {Add{kMusterBonus, 1}}},
        {"DRIATTACK",    {AtLeast{kEnemies, 1}, SkillTest{{"Melee (Unarmed)", "Gun Combat (Slug)", "Stealth"}, 8, {}, {Hurt{}}}}},
        {"DRIRISKY",     {Ask{"Offered a risky adventure. Accept?",
                              {OnRoll{1, 6, {{2, {Either{"Risky Adventure Went Wrong", {{"Injured",                 {Hurt{}}},
                                                                                       {"Arrested and Imprisoned", {GoToPrison{}}}}}}},
                                             {4, {}},
                                             {6, {Add{kBenefitRolls, 4}, Line{"Success!"}}}}}},
                              {}}}},
        {"DRIDRAFT",     {Call{Draft, "the draft"}}},
    };
}

std::vector<Row> EntertainerEvents() {
    return {
        {"ENTEVENT",  {SkillTest{{"Art", "Investigate"}, 8, {Alter{kSoc, 1}, Line{"Soc +1"}}, {Reduce{kSoc, 1}}}}},
        {"ENTCIRCLE", {Either{"Celebrity Circle", {GainOf("Carouse=1"), GainOf("Persudade=1"), GainOf("Steward=1"),
                                                   {"Contact", {Contact{"Celebrity Circle Member"}}}}}}},
        {"ENTPOP",    {Add{kMusterBonus, 1}}},
        {"ENTPATRON", {Add{kAdvancement, 2}}},
        {"ENTPOLIT",  {Ask{"Chance to bring down or criticize a questionable political leader - do it?",
                           {Enemy{"Opposed political leader"}, BestTest{{"Persuade"}, 8, {AnySkill{}}, {SufferMishap{}}}},
                           {}}}},
        {"ENTTOUR",   {Repeat{3, {Contact{"Sector Tour"}}}}},
        // The answer brings nothing.
        {"ENTSTOLEN", {ChooseInVain{"Investigate Stolen Art", {"Streetwise=1", "Investigate=1", "Recon=1", "Stealth=1"}}}},
    };
}

std::vector<Row> MarineEvents() {
    return {
        {"MARTRAPPED",    {Choose{"Stranded Behind Enemy Lines", {"Survival=1", "Stealth=1", "Deception=1", "Streetwise=1"}}}},
        {"MARSTATION",    {Choose{"Space Station Security Staff", {"Vacc Suit", "Athletics (Dexterity)"}}}},
        {"MARASSAULT",    {BestTest{{"Melee (Unarmed)", "Melee (Bludgeon)", "Melee (Blade)", "Gun Combat (Slug)", "Gun Combat (Energy)", "Gun Combat (Archaic)"}, 8,
                                    {Choose{"Select Skill", {"Tactics (Military)", "Leadership"}}},
                                    {Either{"Injured; select stat", {{"Strength",  {Reduce{kStr, 1}}},
                                                                     {"Dexterity", {Reduce{kDex, 1}}},
                                                                     {"Endurance", {Reduce{kEnd, 1}}}}}}}}},
        {"MAROCC",        {Choose{"Planetary Occupation", {"Recon=1", "Gun Combat=1", "Leadership=1", "Electronics (Comms)=1"}}}},
        {"MARCOMERROR",   {Ask{"Mission disaster due to CO error/incompetence; report them?",
                               {Add{kAdvancement, 2}, Enemy{"Reported incompetent officer"}},
                               {Ally{"Protected incompetent officer"}}}}},
        {"MARBLACK",      {Add{kAdvancement, 2}}},
        {"MARCOINTEREST", {Either{"Commander Takes an Interest", {GainOf("Tactics (Military)"), {"DM+4 to next Promotion", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> MerchantEvents() {
    return {
        {"MERSMUG",    {Ask{"Smuggle illegal items onto a planet?",
                            {BestTest{{"Deception", "Persuade"}, 8, {Grant{"Streetwise"}, Add{kBenefitRolls, 1}}, {Enemy{"Criminal Smuggler"}}}},
                            {}}}},
        {"MERSUPPLY",  {Choose{"Dealing with Suppliers", {"Profession=1", "Electronics=1", "Engineer=1", "Animals=1", "Science=1"}}}},
        {"MERRISK",    {Call{RiskDeal, "benefit rolls may be staked (\"Chance to risk on a possible deal\"): 2D6 and the best of Gambler and Broker, 8 or more (half of them won, rounded up), else (they are lost)"}}},
        {"MERCONTACT", {Contact{"Unexpected connection"}}},
        {"MERLEGAL",   {Choose{"Embroiled in Legal Trouble", {"Advocate=1", "Admin=1", "Diplomat=1", "Investigate=1"}}, OnRoll{1, 6, {{1, {GoToPrison{}}}}}}},
        {"MERHIGH",    {Add{kMusterBonus, 1}}},
        // The alternative says +4 and gives 1.
        {"MERALLY",    {Ally{"Useful ally in another sphere"}, Either{"Ally Benefit", {GainOf("Carouse"), {"DM +4 to next Advancement", {Add{kAdvancement, 1}}}}}}},
    };
}

std::vector<Row> NavyEvents() {
    return {
        {"NAVGAMB",       {Choose{"Select a Skill", {"Gambler=1", "Deception=1"}},
                           Either{"Gambling Ring", {{"Gamble this term", {SkillTest{{"Gambler"}, 8, {Line{"You win!"}, Add{kBenefitRolls, 1}},
                                                                                                    {Line{"You lose!"}, Add{kBenefitRolls, -1}}}}},
                                                    {"Don't Gamble",     {}}}}}},
        {"NAVBEN",        {Add{kMusterBonus, 1}}},
        {"NAVENGAGE",     {Choose{"Ship in Notable Engagement", {"Electronics=1", "Engineer=1", "Gunner=1", "Pilot=1"}}}},
        {"NAVDIPLO",      {Either{"Ship on Diplomatic Mission", {GainOf("Recon=1"), GainOf("Diplomat=1"), GainOf("Steward=1"),
                                                                 {"Contact", {Contact{"Diplomatic Mission"}}}}}}},
        {"NAVCRIME",      {Add{kAdvancement, 2}, Enemy{"Foiled Criminal"}}},
        {"NAVABUSE",      {Ask{"Abuse your position for profit?",
                               {Add{kBenefitRolls, 1}, Line{"Position abused for profit"}},
                               {Add{kAdvancement, 2}, Line{"Position not abused for profit"}}}}},
        // Military tactics are offered, naval ones granted.
        {"NAVCOINTEREST", {Either{"Commander Takes an Interest", {{"Tactics (Military)",     {Grant{"Tactics (Naval)"}}},
                                                                  {"DM+4 to next Promotion", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> NobleEvents() {
    return {
        {"NOBDUEL",   {Ask{"Challenged to a Duel - do you accept?",
                           {SkillTest{{"Melee (Blade)"}, 8,
                                      {Alter{kSoc, 1}, Line{"Won"}, Choose{"Fought a Duel", {"Melee (Blade)", "Leadership", "Tactics", "Deception"}}},
                                      {Alter{kSoc, -1}, Line{"Lost"}}}},
                           {Line{"Refused"}, Alter{kSoc, -1}}}}},
        {"NOBRANGE",  {Choose{"Wide Experiences", {"Animals (Riding)=1", "Art=1", "Carouse=1", "Streetwise=1"}}}},
        {"NOBGIFT",   {Add{kMusterBonus, 1}}},
        {"NOBPLAYER", {Choose{"Political Player", {"Advocate", "Admin", "Diplomacy", "Persuade"}}, Rival{"Political Player"}}},
        {"NOBCONSP",  {Ask{"Noble Conspiracy tries to recruit you - do you accept?",
                           {BestTest{{"Deception", "Persuade"}, 8,
                                     {Line{"It succeeds"}, Choose{"Successful Conspirator", {"Deception", "Persuade", "Tactics", "Carouse"}}},
                                     {Line{"It fails"}, SufferMishap{}}}},
                           {Enemy{"Rejected Noble Conspiracy"}}}}},
        {"NOBREIGN",  {Add{kAdvancement, 1}, Enemy{"Jealous relative or unhappy subject"}}},
        {"NOBCHARM",  {Choose{"Charming Manipulator", {"Carouse", "Diplomat", "Persuade", "Steward"}},
                       OnRoll{1, 2, {{1, {Rival{"From manipulation"}}}, {2, {Enemy{"From manipulation"}}}}}}},
        {"NOBALLY",   {Ally{"Allied Noble"}, Either{"Ally Benefit", {GainOf("Leadership"), {"DM +4 to next Advancement", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> RogueEvents() {
    return {
        {"ROGARREST",   {Ask{"Arrested - Defend yourself or hire a lawyer?",
                             {SkillTest{{"Advocate"}, 8, {Line{"Charges dropped"}}, {Enemy{"Defended yourself"}, GoToPrison{}}}},
                             {Contact{"Lawyer who defended you"}, Add{kBenefitRolls, -1}}}}},
        {"ROGHEIST",    {Choose{"Impressive Heist", {"Electronics=1", "Mechanic=1"}}}},
        {"ROGCRIME",    {Add{kMusterBonus, 2}, Enemy{"Victim of your crime"}}},
        {"ROGBACKSTAB", {Ask{"Chance to backstab a fellow for gain - do it?", {Add{kAdvancement, 4}}, {Ally{"Rogue you declined to backstab"}}}}},
        {"ROGUNDER",    {Choose{"Months in the Underworld",
                                {"Streetwise=1", "Stealth=1", "Melee=1", "Gun Combat (Archaic)=1", "Gun Combat (Slug)=1", "Gun Combat (Energy)=1"}}}},
        {"ROGFEUD",     {BestTest{{"Stealth", "Gun Combat (Slug)", "Gun Combat (Energy)", "Gun Combat (Archaic)"}, 8,
                                  {Add{kBenefitRolls, 1}, Line{"Feud resolved, violently"}},
                                  {Hurt{}, Line{"Feud lost, violently"}}}}},
        {"ROGGAMB",     {Call{GambleAmongRogues, "benefit rolls may be staked (\"Gambling Ring - Wager Benefit Rolls\"): 2D6, at most 8 (half of them won, rounded up), else (they are lost)"}}},
        {"ROGPROTEGE",  {Either{"Crime Lord's Protégé", {GainOf("Tactics (Military)"), {"DM +4 to next Advancement", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> ScholarEvents() {
    return {
        // Yes refuses and No takes part: the answers are inverted against the question.
        {"SCHRESEARCH", {Ask{"Perform research against your conscience?",
                             {Line{"You refuse"}},
                             {Add{kBenefitRolls, 1}, Call{ChooseScience, "a level of a Science of the player's choice (\"Select a Science skill\")"}, Call{ChooseScience, "a level of a Science of the player's choice (\"Select a Science skill\")"}, Repeat{3, {Enemy{"Research against conscience"}}}}}}},
        // The empty fifth alternative is kept.
        {"SCHSECRET",   {Choose{"Secret Project", {"Medic=1", "Science=1", "Engineer=1", "Electronics=1", "", "Investigate=1"}}}},
        {"SCHPRIZE",    {Add{kMusterBonus, 1}}},
        {"SCHCHEAT",    {Ask{"You have a chance to cheat a fellow scholar - do it?",
                             {BestTest{{"Deception", "Admin"}, 8, {Add{kMusterBonus, 1}, Improve{}, Enemy{"Cheated fellow scholar"}},
                                                             {Enemy{"Unsuccessfully cheated fellow scholar"}, Add{kBenefitRolls, -1}}}},
                             {}}}},
        {"SCHLEGAL",    {Choose{"Bureaucratic or Legal Morass", {"Admin=1", "Advocate=1", "Persuade=1", "Diplomat=1"}}}},
        {"SCHMENTOR",   {Either{"Eccentric Mentor", {GainOf("Science"), {"DM +4 to next Advancement", {Add{kAdvancement, 4}}}}}}},
    };
}

std::vector<Row> ScoutEvents() {
    const Effects escape = {Line{"You escape"}, Grant{"Electronics (Sensors)"}};
    return {
        {"SCOAMBUSH",  {Ask{"Ambushed by hostile ships. Run instead of treating with them?",
                            {SkillTest{{"Pilot"}, 8, escape, {Line{"Ship destroyed"}}}},
                            {SkillTest{{"Persuade"}, 10, escape, {Line{"Ship destroyed"}}}}},
                        Enemy{"Ships that ambushed you"}}},
        {"SCOSURVEY",  {Choose{"Survey an Alien World", {"Animals (Riding)=1", "Animals (Training)=1", "Survival=1", "Recon=1", "Science=1"}}}},
        {"SCOEXEMP",   {Add{kMusterBonus, 1}}},
        {"SCOYEARS",   {Choose{"Years Jumping in Scout Ship", {"Astrogation=1", "Electronics=1", "Navigation=1", "Pilot (Small Craft)=1", "Mechanic=1"}}}},
        {"SCOALIEN",   {BestTest{{"Electronics", "Deception"}, 8, {Ally{"In the Imperium"}, Add{kAdvancement, 1}},
                                                             {SufferMishap{}, Set{kLeave, 0}}}}},
        {"SCORESCUE",  {BestTest{{"Medic", "Engineer (M-Drive)", "Engineer (J-Drive)", "Engineer (Life Support)", "Engineer (Power)"}, 8,
                                 {Contact{"From first to rescue mission"}, Add{kAdvancement, 2}},
                                 {Enemy{"From first to rescue"}}}}},
        {"SCOFRINGES", {BestTest{{"Survival", "Pilot (Small Craft)", "Pilot (Spacecraft)", "Pilot (Capital)"}, 8,
                                 {Contact{"From alien race"}, AnySkill{}},
                                 {SufferMishap{}, Set{kLeave, 0}}}}},
        {"SCOCOURIER", {Either{"Courier for Important Message", {GainOf("Diplomat"), {"DM +4 to next Advancement", {Add{kAdvancement, 4}}}}}}},
    };
}

// clang-format on

}  // namespace

const Chain& EventChain() {
    static const Chain chain(
        "event", Joined({GenericEvents(), AgentEvents(), ArmyEvents(), CitizenEvents(), PrisonEvents(), DrifterEvents(),
                         EntertainerEvents(), MarineEvents(), MerchantEvents(), NavyEvents(), NobleEvents(),
                         RogueEvents(), ScholarEvents(), ScoutEvents()}));
    return chain;
}

}  // namespace korvane::codes
