// What the codes of events do, and the order in which they are carried out.

#include "engine/code_cases.h"
#include "engine/codes/chains.h"

namespace korvane {
namespace {

using test::kAnswer;
using test::Question;
using test::Rolled;

// The codes stand in an entry of the career's event table.
class EventCodes : public test::Cases {
  protected:
    EventCodes() { firstLine = "Told"; }
    void Begin(const std::string& codes) override {
        entry = "Told/" + codes;
        session.career.eventTable[7] = entry;
        Cases::Begin("7");
    }
    void Act() override { RollCareerEvent(session); }
    static std::string Stakes(int most) {
        std::string options;
        for (int stake = 1; stake <= most; ++stake)
            AppendAll(options, stake, " benefits/");
        return options + "Do not gamble";
    }
    std::string entry;
};

// clang-format off

TEST_F(EventCodes, DoWhatTheirRowsSay) {
    const std::string jailed = "CareerTerms=0 Benefits=0 Rolls=-8 ";
    const auto crime = Of("Accused of a Crime; Choose Option", "Lose 1 Benefit roll/Serve a term in Prison");
    const auto vehicle = Listed("Specialist Vehicle Training", "Drive=1/Flyer=1/Gunner=1/Pilot=1"), upheaval = Each("Political Upheaval", "Advocate=1/Persuade=1/Explosives=1/Streetwise=1");
    const auto agent = Of("Befriended by senior agent", "Investigate-1/+4 to Promotion"), interest = Of("Commander Takes an Interest", "Tactics (Military)/DM+4 to next Promotion");
    const auto hero = Of("Heroism in Battle", "Automatic Commission/Automatic Promotion"), superior = Of("Befriend a Superior", "Diplomat=1/Advancement +4");
    const auto learn = Of("You Learn Something You Shouldn't", "Profit from the Secret/Don't"), profit = Of("Profit from the Secret", "Streetwise=1/Deception=1/Criminal Contact=1");
    const Question chance = {Question::NoticeWhenAsked, "You have the opportunity to escape the prison. Do you try?"};
    const auto gang = Each("Prison Gang", "Deception=1/Persuade=1/Stealth=1/Melee (Unarmed)=1");
    const std::string grade1 = "Advocate-1 costs Cr5,000/", grade2 = grade1 + "Advocate-2 costs Cr10,000/", grade3 = grade2 + "Advocate-3 costs Cr15,000/";
    const auto lawyer = [](const std::string& grades, int pick) { return One("Chance to hire a lawyer", grades + "Don't hire one", pick); };
    const auto risk = Yes("Offered a risky adventure. Accept?"), leader = Yes("Chance to bring down or criticize a questionable political leader - do it?");
    const auto wrong = Of("Risky Adventure Went Wrong", "Injured/Arrested and Imprisoned"), hit = Of("Injured; select stat", "Strength/Dexterity/Endurance");
    const auto circle = "Carouse=1/Persudade=1/Steward=1/Contact", diplomacy = "Recon=1/Diplomat=1/Steward=1/Contact";
    const auto assault = Each("Select Skill", "Tactics (Military)/Leadership"), legal = Each("Embroiled in Legal Trouble", "Advocate=1/Admin=1/Diplomat=1/Investigate=1");
    const auto report = Yes("Mission disaster due to CO error/incompetence; report them?"), smuggle = Yes("Smuggle illegal items onto a planet?");
    const auto deal = [](int most, int pick) { return One("Chance to risk on a possible deal", Stakes(most), pick); };
    const auto ring = [](int most, int pick) { return One("Gambling Ring - Wager Benefit Rolls", Stakes(most), pick); };
    const auto ally = Of("Ally Benefit", "Carouse/DM +4 to next Advancement"), noble = Of("Ally Benefit", "Leadership/DM +4 to next Advancement");
    const auto table = Each("Select a Skill", "Gambler=1/Deception=1"), charm = Each("Charming Manipulator", "Carouse/Diplomat/Persuade/Steward");
    const auto gamble = Of("Gambling Ring", "Gamble this term/Don't Gamble"), lord = Of("Crime Lord's Protégé", "Tactics (Military)/DM +4 to next Advancement");
    const auto abuse = Yes("Abuse your position for profit?"), duel = Yes("Challenged to a Duel - do you accept?");
    const auto plot = Yes("Noble Conspiracy tries to recruit you - do you accept?"), arrest = Yes("Arrested - Defend yourself or hire a lawyer?");
    const auto plotter = Each("Successful Conspirator", "Deception/Persuade/Tactics/Carouse");
    const auto backstab = Yes("Chance to backstab a fellow for gain - do it?"), research = Yes("Perform research against your conscience?");
    const auto field = Of("Select a Science skill", "Archaeology/Astronomy/Biology/Chemistry/Cosmology/Cybernetics/Economics/Genetics/History/Linguistics/Philosophy/"
                                                    "Physics/Planetology/Psionicology/Psychology/Robotics/Sophontology/Xenology");
    const auto cheat = Yes("You have a chance to cheat a fellow scholar - do it?"), run = Yes("Ambushed by hostile ships. Run instead of treating with them?");
    const auto mentor = Of("Eccentric Mentor", "Science/DM +4 to next Advancement"), courier = Of("Courier for Important Message", "Diplomat/DM +4 to next Advancement");
    Play({
        {"LIFE",      "", {}, {TwoD6(9)}, "Life", "Qualification+1"},
        {"LIFE",      "", {crime(1)}, {TwoD6(11), kAnswer}, "You commit or are the victim (or are accused) of a crime; lose 1 benefit roll", "Rolls-1"},
        {"LIFE",      "", {crime(2), prison}, {TwoD6(11), kAnswer, D6(3)},
                      "You commit or are the victim (or are accused) of a crime and are sent to prison | Imprisoned; parole threshold 7",
                      jailed + "Parole=7", "Prisoner Inmate"},
        {"PRO2",      "", {}, {}, "", "Advancement=2"},
        {"PROA",      "", {}, {}, "", "Advancement=50"},
        {"PROA PRO2", "", {}, {}, "", "Advancement=50"},
        {"PRO2 PROA", "", {}, {}, "", "Advancement=50"},
        {"COMA",      "", {}, {}, "", "Commission=50"},
        {"PROMA",     "", {}, {}, "", "Advancement=50"},
        {"ADVT",      "Recon=0, Admin=2", {Listed("Select a Held Skill to improve", "Admin=3/Recon=1")}, {}, "*"},
        {"ADVT"},
        {"IMPRISON",  "", {prison}, {D6(1)}, "Imprisoned; parole threshold 5", jailed + "Parole=5", "Prisoner Inmate"},
        {"AGTTURN",  "Investigate=0, Streetwise=2", {Listed("Select a Skill", "Deception/Jack of all Trades/Persuade/Tactics")}, {TwoD6(6), kAnswer}, "*"},
        {"AGTTURN",  "Investigate=1", {}, {TwoD6(6), D6(1)}, "Mishap", "Leave=1 Rolls-1"},
        {"AGTREWD",  "", {}, {}, "+1 to Benefit roll Once", "Bonus+1"},
        {"AGTD3CO",  "", {}, {Rolled(1, 3, 2)}, "Contact: Network of contacts | Contact: Network of contacts", "Contacts+2"},
        {"AGTDFPG",  "", {vehicle}, {}, "*"},
        {"AGTBEFA",  "", {agent(1)}, {}, "Investigate-1"},
        {"AGTBEFA",  "", {agent(2)}, {}, "", "Advancement=4"},
        {"AGTUNDER", "", {Listed("Under Cover Operation", "Athletics-1/Deception-1/Electronics-1/Recon-1/Stealth-1/Streetwise-1")}, {TwoD6(8), kAnswer}, "*"},
        {"AGTUNDER", "Deception=4", {}, {TwoD6(9)}, "--- add rogue mishap ---"},
        {"ARMHOST",       "", {Listed("Hostile or Wild Environment", "Animals (Riding)=1/Animals (Training)=1/Engineer=1/Recon-1/Vacc Suit=1")}, {}, "*"},
        {"ARMURBWAR",     "", {Listed("Urban War", "Persuade=1/Recon=1/Stealth=1/Streetwise=1")}, {}, "*"},
        {"ARMBRUWAR",     "Soc=9", {Listed("Brutal War", "Gun Combat=1/Leadership=1")}, {TwoD6(7), kAnswer}, "*"},
        {"ARMBRUWAR",     "Edu=15", {}, {TwoD6(7), D6(6)}, "Lightly Injured"},
        {"ARMPEACE",      "", {Listed("Peacekeeping Role", "Admin=1/Deception=1/Investigate=1/Recon=1")}, {}, "*"},
        {"ARMCOINTEREST", "", {interest(1)}, {}, "Tactics (Military)-1"},
        {"ARMCOINTEREST", "", {interest(2)}, {}, "", "Advancement+4"},
        {"ARMHERO",       "", {hero(1)}, {}, "", "Commission=50"},
        {"ARMHERO",       "", {hero(2)}, {}, "", "Advancement=50"},
        {"LAWREV",     "", {upheaval}, {kAnswer, TwoD6(8)}, "* | On the winning side", "Advancement+2"},
        {"LAWREV",     "", {upheaval}, {kAnswer, TwoD6(9)}, "* | On the losing side", "Survival-2"},
        {"CITVEHICLE", "", {Each("Spend Time Working with Vehicles", "Mechanic/Drive/Electronics/Flyer/Engineer")}, {}, "*"},
        {"CITEXPAND",  "", {anySkillAlways}, {}, "*", "Bonus+1"},
        {"LAWLEARN",   "", {learn(1), profit(1)}, {}, "Streetwise-1", "Bonus+1"},
        {"LAWLEARN",   "", {learn(1), profit(2)}, {}, "Deception-1", "Bonus+1"},
        {"LAWLEARN",   "", {learn(1), profit(3)}, {}, "Contact: Criminal via the Secret", "Bonus+1 Contacts+1"},
        {"LAWLEARN",   "", {learn(2)}},
        {"CITELECENG", "", {Each("Computer Operator or Surveyor", "Electronics/Engineer")}, {}, "*"},
        {"LAWSUPER",   "", {superior(1)}, {}, "Ally: Business Superior | Diplomat-1", "Allies+1"},
        {"LAWSUPER",   "", {superior(2)}, {}, "Ally: Business Superior", "Allies+1 Advancement+4"},
        {"PRIESCAPE", "Deception=0, Stealth=2", {chance}, {TwoD6(8)}, "You attempt an escape | You escape!", "Parole=-10"},
        {"PRIESCAPE", "Deception=1", {chance}, {TwoD6(8)}, "You attempt an escape", "Parole+2"},
        {"PRIHARD",   "Soc=9", {Each("Hard Labour", "Athletics=1/Mechanic=1/Melee (Unarmed)=1")}, {TwoD6(7), kAnswer}, "You thrive on it | *", "Parole-1"},
        {"PRIHARD",   "End=15", {}, {TwoD6(7)}, "Failed, unfit", "Parole+1"},
        {"PRIGANG",   "", {gang}, {TwoD6(9), TwoD6(8), kAnswer}, "You join the prison gang | *", "Survival+1"},
        {"PRIGANG",   "", {gang}, {TwoD6(2), TwoD6(12), kAnswer}, "You join the prison gang | *", "Survival+1"},
        {"PRIGANG",   "Persuade=3", {}, {TwoD6(9), TwoD6(9)}, "Enemy: Fail to join the gang", "Enemies+1"},
        {"PRIVOC",    "", {anySkill}, {TwoD6(8), kAnswer}, "*"},
        {"PRIVOC",    "", {}, {TwoD6(7)}},
        {"PRIEVENT",  "", {}, {D6(1), D6(2), D6(6)}, "Riot! Injured | Lightly Injured"},
        {"PRIEVENT",  "", {}, {D6(1), D6(3)}, "Riot!"},
        {"PRIEVENT",  "", {}, {D6(1), D6(4)}, "Riot!"},
        {"PRIEVENT",  "", {}, {D6(1), D6(5)}, "Riot! You loot something good", "Benefits+1"},
        {"PRIEVENT",  "", {}, {D6(2)}, "Contact: Fellow inmate", "Contacts+1"},
        {"PRIEVENT",  "", {}, {D6(3)}, "Rival: Fellow inmate or guard", "Rivals+1"},
        {"PRIEVENT",  "", {}, {D6(4), D6(2)}, "Transferred to another prison", "Parole=6"},
        {"PRIEVENT",  "", {}, {D6(5)}, "Good Behaviour", "Parole-2"},
        {"PRIEVENT",  "", {}, {D6(6), TwoD6(8)}, "Attacked by another prisoner"},
        {"PRIEVENT",  "", {}, {D6(6), TwoD6(9), D6(6)}, "Attacked by another prisoner | Lightly Injured"},
        {"PRIHEAR",   "", {}, {}, "", "Parole-1"},
        {"PRILAWYER", "Cash=4999", {lawyer("", 1)}, {}, "You don't"},
        {"PRILAWYER", "Cash=5000", {lawyer(grade1, 1)}, {kAnswer, TwoD6(7)}, "Sentence reduced; fee 5,000", "Cash-5000 Parole-1"},
        {"PRILAWYER", "Cash=14999", {lawyer(grade2, 2)}, {kAnswer, TwoD6(6)}, "Sentence reduced; fee 10,000", "Cash-10000 Parole-1"},
        {"PRILAWYER", "Cash=15000", {lawyer(grade3, 3)}, {kAnswer, TwoD6(4)}, "Sentence not reduced; fee 15,000", "Cash-15000"},
        {"PRILAWYER", "Cash=90000", {lawyer(grade3, 4)}, {}, "You don't"},
        {"PRISPEC",   "", {Each("Special Duties", "Admin/Advocate/Electronics (Computers)/Steward")}, {}, "*"},
        {"PRIWARDEN", "", {}, {}, "", "Parole-2"},
        {"PRIHERO",   "", {}, {TwoD6(7), D6(6)}, "Lightly Injured | Ally: Save a Guard or Prison Officer", "Allies+1"},
        {"PRIHERO",   "", {}, {TwoD6(8)}, "Ally: Save a Guard or Prison Officer", "Allies+1"},
        {"DRIJOB",       "", {}, {}, "", "Qualification+4"},
        {"DRIFEWSKILLS", "", {Each("Pick up a few skills", "Jack of all Trades/Survival/Streetwise/Melee")}, {}, "*"},
        {"DRISCAV",      "", {}, {}, "", "Bonus+1"},
        {"DRIATTACK",    "Enemies=0", {}, {TwoD6(9), TwoD6(12), TwoD6(8)}, "", "Enemies=1"},
        {"DRIATTACK",    "Stealth=4", {}, {TwoD6(9), TwoD6(9), TwoD6(9), D6(6)}, "Lightly Injured"},
        {"DRIRISKY",     "", {risk, wrong(1)}, {D6(1), kAnswer, D6(6)}, "Lightly Injured"},
        {"DRIRISKY",     "", {risk, wrong(2), prison}, {D6(2), kAnswer, D6(5)}, "Imprisoned; parole threshold 9", jailed + "Parole=9", "Prisoner Inmate"},
        {"DRIRISKY",     "", {risk}, {D6(4)}},
        {"DRIRISKY",     "", {risk}, {D6(5)}, "Success!", "Benefits+4"},
        {"DRIRISKY",     "", {No(risk.text)}},
        {"DRIDRAFT",     "Rank=3", {}, {D6(4)}, "Rejected; Draft | Drafted to Merchant/Merchant Marine", "", "Merchant Merchant Marine"},
        {"ENTEVENT",  "", {No(Care("Soc currently 7"))}, {TwoD6(9), TwoD6(9)}, "Soc reduced by 1 to 6", "Soc-1"},
        {"ENTEVENT",  "Art=4", {Yes(Care("Soc currently 7"))}, {TwoD6(9), TwoD6(9), TwoD6(7)}, "Cr 5000 medical debt incurred", "Debt+5000"},
        {"ENTEVENT",  "Soc=8", {}, {TwoD6(12), TwoD6(8)}, "Soc +1", "Soc+1 SocDM+1"},
        {"ENTCIRCLE", "", {Each("Celebrity Circle", circle, 1)}, {}, "*"},
        {"ENTCIRCLE", "", {One("Celebrity Circle", circle, 4)}, {}, "Contact: Celebrity Circle Member", "Contacts+1"},
        {"ENTPOP",    "", {}, {}, "", "Bonus+1"},
        {"ENTPATRON", "", {}, {}, "", "Advancement+2"},
        {"ENTPOLIT",  "Persuade=1", {leader, anySkill}, {TwoD6(7), kAnswer}, "Enemy: Opposed political leader | *", "Enemies+1"},
        {"ENTPOLIT",  "Persuade=1", {leader}, {TwoD6(6), D6(1)}, "Enemy: Opposed political leader | Mishap", "Enemies+1 Leave=1 Rolls-1"},
        {"ENTPOLIT",  "", {No(leader.text)}},
        {"ENTTOUR",   "", {}, {Rolled(1, 3, 3)}, "Contact: Sector Tour | Contact: Sector Tour | Contact: Sector Tour", "Contacts+3"},
        {"ENTSTOLEN", "", {Each("Investigate Stolen Art", "Streetwise=1/Investigate=1/Recon=1/Stealth=1")}},
        {"MARTRAPPED",    "", {Each("Stranded Behind Enemy Lines", "Survival=1/Stealth=1/Deception=1/Streetwise=1")}, {}, "*"},
        {"MARSTATION",    "", {Each("Space Station Security Staff", "Vacc Suit/Athletics (Dexterity)")}, {}, "*"},
        {"MARASSAULT",    "Melee (Bludgeon)=1, Gun Combat (Archaic)=2", {assault}, {TwoD6(6), kAnswer}, "*"},
        {"MARASSAULT",    "Melee (Unarmed)=0, Melee (Blade)=1", {assault}, {TwoD6(7), kAnswer}, "*"},
        {"MARASSAULT",    "Gun Combat (Energy)=1", {hit(1), No(Care("Str currently 7"))}, {TwoD6(6), kAnswer}, "Str reduced by 1 to 6", "Str-1"},
        {"MARASSAULT",    "Gun Combat (Slug)=1", {hit(2), No(Care("Dex currently 7"))}, {TwoD6(6), kAnswer}, "Dex reduced by 1 to 6", "Dex-1"},
        {"MARASSAULT",    "", {hit(3), Yes(Care("End currently 7"))}, {TwoD6(10), kAnswer, TwoD6(7)}, "Cr 5000 medical debt incurred", "Debt+5000"},
        {"MAROCC",        "", {Each("Planetary Occupation", "Recon=1/Gun Combat=1/Leadership=1/Electronics (Comms)=1")}, {}, "*"},
        {"MARCOMERROR",   "", {report}, {}, "Enemy: Reported incompetent officer", "Advancement+2 Enemies+1"},
        {"MARCOMERROR",   "", {No(report.text)}, {}, "Ally: Protected incompetent officer", "Allies+1"},
        {"MARBLACK",      "", {}, {}, "", "Advancement+2"},
        {"MARCOINTEREST", "", {interest(1)}, {}, "Tactics (Military)-1"},
        {"MARCOINTEREST", "", {interest(2)}, {}, "", "Advancement+4"},
        {"MERSMUG",    "Deception=0, Persuade=2", {smuggle}, {TwoD6(6)}, "Streetwise-1", "Benefits+1"},
        {"MERSMUG",    "Deception=1", {smuggle}, {TwoD6(6)}, "Enemy: Criminal Smuggler", "Enemies+1"},
        {"MERSMUG",    "", {No(smuggle.text)}},
        {"MERSUPPLY",  "", {Each("Dealing with Suppliers", "Profession=1/Electronics=1/Engineer=1/Animals=1/Science=1")}, {}, "*"},
        {"MERRISK",    "Broker=1", {deal(3, 3), Notice("Success! Gain 2 benefit rolls")}, {kAnswer, TwoD6(7)}, "Success! Gain 2 benefit rolls", "Benefits+2"},
        {"MERRISK",    "Broker=1, Rank=3", {deal(4, 4), Notice("Failed! Lose 4 benefit rolls")}, {kAnswer, TwoD6(6)}, "Failed! Lose 4 benefit rolls", "Benefits-4"},
        {"MERRISK",    "Terms=0, Gambler=2", {deal(1, 1), Notice("Success! Gain 1 benefit rolls")}, {kAnswer, TwoD6(6)}, "Success! Gain 1 benefit rolls", "Benefits+1"},
        {"MERRISK",    "Terms=20, Rank=12", {deal(23, 23), Notice("Success! Gain 12 benefit rolls")}, {kAnswer, TwoD6(11)}, "Success! Gain 12 benefit rolls", "Benefits+12"},
        {"MERRISK",    "", {deal(3, 4)}},
        {"MERCONTACT", "", {}, {}, "Contact: Unexpected connection", "Contacts+1"},
        {"MERLEGAL",   "", {legal}, {kAnswer, D6(2)}, "*"},
        {"MERLEGAL",   "", {legal, prison}, {kAnswer, D6(1), D6(1)}, "* | Imprisoned; parole threshold 5", jailed + "Parole=5", "Prisoner Inmate"},
        {"MERHIGH",    "", {}, {}, "", "Bonus+1"},
        {"MERALLY",    "", {ally(1)}, {}, "Ally: Useful ally in another sphere | Carouse-1", "Allies+1"},
        {"MERALLY",    "", {ally(2)}, {}, "Ally: Useful ally in another sphere", "Allies+1 Advancement+1"},
        {"NAVGAMB",       "", {table, gamble(1)}, {kAnswer, kAnswer, TwoD6(8)}, "* | You win!", "Benefits+1"},
        {"NAVGAMB",       "Gambler=4", {One("Select a Skill", "Gambler=1/Deception=1", 2), gamble(1)}, {kAnswer, kAnswer, TwoD6(9)}, "Deception-1 | You lose!", "Benefits-1"},
        {"NAVGAMB",       "", {table, gamble(2)}, {}, "*"},
        {"NAVBEN",        "", {}, {}, "", "Bonus+1"},
        {"NAVENGAGE",     "", {Each("Ship in Notable Engagement", "Electronics=1/Engineer=1/Gunner=1/Pilot=1")}, {}, "*"},
        {"NAVDIPLO",      "", {Each("Ship on Diplomatic Mission", diplomacy, 1)}, {}, "*"},
        {"NAVDIPLO",      "", {One("Ship on Diplomatic Mission", diplomacy, 4)}, {}, "Contact: Diplomatic Mission", "Contacts+1"},
        {"NAVCRIME",      "", {}, {}, "Enemy: Foiled Criminal", "Advancement+2 Enemies+1"},
        {"NAVABUSE",      "", {abuse}, {}, "Position abused for profit", "Benefits+1"},
        {"NAVABUSE",      "", {No(abuse.text)}, {}, "Position not abused for profit", "Advancement+2"},
        {"NAVCOINTEREST", "", {interest(1)}, {}, "Tactics (Naval)-1"},
        {"NAVCOINTEREST", "", {interest(2)}, {}, "", "Advancement+4"},
        {"NOBDUEL",   "Melee (Blade)=4", {duel}, {TwoD6(9)}, "Lost", "Soc-1"},
        {"NOBDUEL",   "Soc=8", {duel, Each("Fought a Duel", "Melee (Blade)/Leadership/Tactics/Deception")}, {TwoD6(8), kAnswer}, "Won | *", "Soc+1 SocDM+1"},
        {"NOBDUEL",   "Soc=0", {No(duel.text)}, {}, "Refused", "Soc-1 SocDM=0"},
        {"NOBRANGE",  "", {Each("Wide Experiences", "Animals (Riding)=1/Art=1/Carouse=1/Streetwise=1")}, {}, "*"},
        {"NOBGIFT",   "", {}, {}, "", "Bonus+1"},
        {"NOBPLAYER", "", {Each("Political Player", "Advocate/Admin/Diplomacy/Persuade")}, {}, "* | Rival: Political Player", "Rivals+1"},
        {"NOBCONSP",  "", {plot, plotter}, {TwoD6(11), kAnswer}, "It succeeds | *"},
        {"NOBCONSP",  "Deception=0, Persuade=2", {plot, One("Successful Conspirator", "Deception/Persuade/Tactics/Carouse", 1)}, {TwoD6(6), kAnswer}, "It succeeds | Deception-1"},
        {"NOBCONSP",  "Deception=1", {plot}, {TwoD6(6), D6(1)}, "It fails | Mishap", "Leave=1 Rolls-1"},
        {"NOBCONSP",  "", {No(plot.text)}, {}, "Enemy: Rejected Noble Conspiracy", "Enemies+1"},
        {"NOBREIGN",  "", {}, {}, "Enemy: Jealous relative or unhappy subject", "Advancement+1 Enemies+1"},
        {"NOBCHARM",  "", {charm}, {kAnswer, Rolled(1, 2, 1)}, "* | Rival: From manipulation", "Rivals+1"},
        {"NOBCHARM",  "", {charm}, {kAnswer, Rolled(1, 2, 2)}, "* | Enemy: From manipulation", "Enemies+1"},
        {"NOBALLY",   "", {noble(1)}, {}, "Ally: Allied Noble | Leadership-1", "Allies+1"},
        {"NOBALLY",   "", {noble(2)}, {}, "Ally: Allied Noble", "Allies+1 Advancement+4"},
        {"ROGARREST",   "Advocate=4", {arrest, prison}, {TwoD6(9), D6(4)}, "Enemy: Defended yourself | Imprisoned; parole threshold 8",
                        jailed + "Enemies+1 Parole=8", "Prisoner Inmate"},
        {"ROGARREST",   "", {arrest}, {TwoD6(8)}, "Charges dropped"},
        {"ROGARREST",   "", {No(arrest.text)}, {}, "Contact: Lawyer who defended you", "Contacts+1 Benefits-1"},
        {"ROGHEIST",    "", {Each("Impressive Heist", "Electronics=1/Mechanic=1")}, {}, "*"},
        {"ROGCRIME",    "", {}, {}, "Enemy: Victim of your crime", "Bonus+2 Enemies+1"},
        {"ROGBACKSTAB", "", {backstab}, {}, "", "Advancement+4"},
        {"ROGBACKSTAB", "", {No(backstab.text)}, {}, "Ally: Rogue you declined to backstab", "Allies+1"},
        {"ROGUNDER",    "", {Each("Months in the Underworld", "Streetwise=1/Stealth=1/Melee=1/Gun Combat (Archaic)=1/Gun Combat (Slug)=1/Gun Combat (Energy)=1")}, {}, "*"},
        {"ROGFEUD",     "Stealth=0, Gun Combat (Archaic)=2", {}, {TwoD6(6)}, "Feud resolved, violently", "Benefits+1"},
        {"ROGFEUD",     "Gun Combat (Energy)=1", {}, {TwoD6(6), D6(6)}, "Lightly Injured | Feud lost, violently"},
        {"ROGGAMB",     "", {ring(3, 2), Notice("Success! Gain 1 benefit rolls")}, {kAnswer, TwoD6(8)}, "Success! Gain 1 benefit rolls", "Benefits+1"},
        {"ROGGAMB",     "Gambler=4, Rank=5", {ring(5, 5), Notice("Failed! Lose 5 benefit rolls")}, {kAnswer, TwoD6(9)}, "Failed! Lose 5 benefit rolls", "Benefits-5"},
        {"ROGGAMB",     "", {ring(3, 4)}},
        {"ROGPROTEGE",  "", {lord(1)}, {}, "Tactics (Military)-1"},
        {"ROGPROTEGE",  "", {lord(2)}, {}, "", "Advancement+4"},
        {"SCHRESEARCH", "", {research}, {}, "You refuse"},
        {"SCHRESEARCH", "", {No(research.text), field(1), field(18)}, {Rolled(1, 3, 2)},
                        "Science (Archaeology)-1 | Science (Xenology)-1 | Enemy: Research against conscience | Enemy: Research against conscience", "Benefits+1 Enemies+2"},
        {"SCHSECRET",   "", {Each("Secret Project", "Medic=1/Science=1/Engineer=1/Electronics=1//Investigate=1")}, {}, "*"},
        {"SCHPRIZE",    "", {}, {}, "", "Bonus+1"},
        {"SCHCHEAT",    "Admin=2, Recon=0", {cheat, Listed("Select a Held Skill to improve", "Admin=3/Recon=1")}, {TwoD6(6), kAnswer},
                        "* | Enemy: Cheated fellow scholar", "Bonus+1 Enemies+1"},
        {"SCHCHEAT",    "Admin=2", {cheat}, {TwoD6(5)}, "Enemy: Unsuccessfully cheated fellow scholar", "Benefits-1 Enemies+1"},
        {"SCHCHEAT",    "", {No(cheat.text)}},
        {"SCHLEGAL",    "", {Each("Bureaucratic or Legal Morass", "Admin=1/Advocate=1/Persuade=1/Diplomat=1")}, {}, "*"},
        {"SCHMENTOR",   "", {mentor(1)}, {}, "Science-1"},
        {"SCHMENTOR",   "", {mentor(2)}, {}, "", "Advancement+4"},
        {"SCOAMBUSH",  "", {run}, {TwoD6(8)}, "You escape | Electronics (Sensors)-1 | Enemy: Ships that ambushed you", "Enemies+1"},
        {"SCOAMBUSH",  "Pilot=4", {run}, {TwoD6(9)}, "Ship destroyed | Enemy: Ships that ambushed you", "Enemies+1"},
        {"SCOAMBUSH",  "", {No(run.text)}, {TwoD6(10)}, "You escape | Electronics (Sensors)-1 | Enemy: Ships that ambushed you", "Enemies+1"},
        {"SCOAMBUSH",  "", {No(run.text)}, {TwoD6(11)}, "Ship destroyed | Enemy: Ships that ambushed you", "Enemies+1"},
        {"SCOSURVEY",  "", {Each("Survey an Alien World", "Animals (Riding)=1/Animals (Training)=1/Survival=1/Recon=1/Science=1")}, {}, "*"},
        {"SCOEXEMP",   "", {}, {}, "", "Bonus+1"},
        {"SCOYEARS",   "", {Each("Years Jumping in Scout Ship", "Astrogation=1/Electronics=1/Navigation=1/Pilot (Small Craft)=1/Mechanic=1")}, {}, "*"},
        {"SCOALIEN",   "Electronics=0, Deception=2", {}, {TwoD6(6)}, "Ally: In the Imperium", "Allies+1 Advancement+1"},
        {"SCOALIEN",   "Electronics=1", {}, {TwoD6(6), D6(1)}, "Mishap", "Rolls-1"},
        {"SCORESCUE",  "Medic=0, Engineer (Power)=1", {}, {TwoD6(7)}, "Contact: From first to rescue mission", "Contacts+1 Advancement+2"},
        {"SCORESCUE",  "Engineer (Life Support)=1", {}, {TwoD6(6)}, "Enemy: From first to rescue", "Enemies+1"},
        {"SCOFRINGES", "Survival=0, Pilot (Capital)=1", {anySkill}, {TwoD6(7), kAnswer}, "Contact: From alien race | *", "Contacts+1"},
        {"SCOFRINGES", "Pilot (Small Craft)=1", {}, {TwoD6(6), D6(1)}, "Mishap", "Rolls-1"},
        {"SCOCOURIER", "", {courier(1)}, {}, "Diplomat-1"},
        {"SCOCOURIER", "", {courier(2)}, {}, "", "Advancement+4"},
    });
}

TEST_F(EventCodes, OfOneEntryAreAllCarriedOutInTheirOwnOrder) {
    Play({
        {"SCOALIEN NAVCRIME PRO2", "Deception=0", {}, {TwoD6(8)}, "Enemy: Foiled Criminal | Ally: In the Imperium", "Advancement=5 Enemies+1 Allies+1"},
        {"xAGTREWDx,ROGCRIME/LIFE", "", {}, {TwoD6(9)}, "Life | +1 to Benefit roll Once | Enemy: Victim of your crime", "Qualification+1 Bonus+3 Enemies+1"},
        {"SCOFRINGES ENTPOLIT", "", {Yes("Chance to bring down or criticize a questionable political leader - do it?")}, {TwoD6(2), D6(1), TwoD6(2), D6(1)},
                                "Enemy: Opposed political leader | Mishap | Mishap", "Rolls-2 Enemies+1"},
        {"PRIHEAR PRIWARDEN PRIWARDEN", "", {}, {}, "", "Parole-3"},
        {"DRIJO BPRIHEA Rentpop Life PRO 2"},
    });
}

TEST_F(EventCodes, StandInTheOrderInWhichTheyAreCarriedOut) {
    std::string codes;
    for (const auto& row : EventChain().rows())
        AppendAll(codes, row.code, " ");
    EXPECT_EQ(codes,
        "LIFE PRO2 PROA COMA PROMA ADVT IMPRISON AGTTURN AGTREWD AGTD3CO AGTDFPG AGTBEFA AGTUNDER ARMHOST ARMURBWAR ARMBRUWAR ARMPEACE ARMCOINTEREST "
        "ARMHERO LAWREV CITVEHICLE CITEXPAND LAWLEARN CITELECENG LAWSUPER PRIESCAPE PRIHARD PRIGANG PRIVOC PRIEVENT PRIHEAR PRILAWYER PRISPEC PRIWARDEN "
        "PRIHERO PRIWARDEN DRIJOB DRIFEWSKILLS DRISCAV DRIATTACK DRIRISKY DRIDRAFT ENTEVENT ENTCIRCLE ENTPOP ENTPATRON ENTPOLIT ENTTOUR ENTSTOLEN "
        "MARTRAPPED MARSTATION MARASSAULT MAROCC MARCOMERROR MARBLACK MARCOINTEREST MERSMUG MERSUPPLY MERRISK MERCONTACT MERLEGAL MERHIGH MERALLY "
        "NAVGAMB NAVBEN NAVENGAGE NAVDIPLO NAVCRIME NAVABUSE NAVCOINTEREST NOBDUEL NOBRANGE NOBGIFT NOBPLAYER NOBCONSP NOBREIGN NOBCHARM NOBALLY "
        "ROGARREST ROGHEIST ROGCRIME ROGBACKSTAB ROGUNDER ROGFEUD ROGGAMB ROGPROTEGE SCHRESEARCH SCHSECRET SCHPRIZE SCHCHEAT SCHLEGAL SCHMENTOR "
        "SCOAMBUSH SCOSURVEY SCOEXEMP SCOYEARS SCOALIEN SCORESCUE SCOFRINGES SCOCOURIER ");
}

// clang-format on

}  // namespace
}  // namespace korvane
