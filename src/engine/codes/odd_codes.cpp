#include "engine/codes/odd_codes.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "character/checks.h"
#include "engine/codes/effects.h"
#include "engine/injury.h"
#include "engine/prison.h"
#include "engine/skill_roll.h"
#include "skills/choice.h"
#include "skills/grant.h"
#include "skills/modifiers.h"

namespace korvane::codes {

namespace {

// Asks how many benefit rolls the player stakes; 0 for none.
int ChooseStake(Session& session, std::string_view title) {
    constexpr int kMostStake = 23;
    const auto& character = session.character;
    const int most = std::clamp(character.TermsTotal + character.Rank / 2, 1, kMostStake);
    std::vector<std::string> stakes;
    for (int stake = 1; stake <= most; ++stake)
        stakes.push_back(Concat(stake, " benefits"));
    stakes.emplace_back("Do not gamble");
    const int place = korvane::Choose(session, title, Texts(stakes.begin(), stakes.end())).place;
    return place > most ? 0 : place;
}

void SettleStake(Session& session, int stake, bool wins) {
    const int rolls = wins ? (stake + 1) / 2 : stake;
    const auto outcome = Concat(wins ? "Success! Gain " : "Failed! Lose ", rolls, " benefit rolls");
    AddHistory(session, outcome);
    Tell(session, outcome);
    session.character.BenefitRollsModifier += wins ? rolls : -rolls;
}

// The skills with which the navy's battle stations are manned; none for other assignments.
const Texts& BattleSkills(std::string_view assignment) {
    static const Texts crew = {"Electronics (Sensors)", "Gunner (Turret)", "Gunner (Ortillery)", "Gunner (Screen)",
                               "Gunner (Capital)"};
    static const Texts engineers = {"Mechanic", "Vacc Suit"};
    static const Texts pilots = {"Pilot (Small Craft)", "Pilot (Spacecraft)", "Tactics (Naval)"};
    static const Texts none;
    return assignment == "Crew"              ? crew
           : assignment == "Engineer Gunner" ? engineers
           : assignment == "Flight"          ? pilots
                                             : none;
}

}  // namespace

void BetrayContactOrAlly(Session& session) {
    auto& character = session.character;
    // Contacts come first here, and the associate is converted; a new foe appears only where there is nobody to betray.
    if (character.Contacts >= 1) {
        character.Contacts -= 1;
        character.Rivals += 1;
        AddHistory(session, "Contact betrays you, becomes a Rival");
    } else if (character.Allies >= 1) {
        character.Allies -= 1;
        character.Enemies += 1;
        AddHistory(session, "Ally betrays you, becomes an Enemy");
    } else if (Roll(session, 1, 2) == 1) {
        character.Enemies += 1;
        AddHistory(session, "Enemy from nowhere");
    } else {
        character.Rivals += 1;
        AddHistory(session, "Rival from nowhere");
    }
}

void AnswerAccusation(Session& session) {
    auto& character = session.character;
    constexpr int kCleared = 8;
    constexpr int kConvicted = 2;
    const int effect = RollAgainst(session, "Advocate", SkillModifier(character, "Advocate"), kCleared);
    character.LeaveCareer = 1;
    if (effect >= 0)
        return;
    character.MusterRolls -= 1;
    if (effect + kCleared <= kConvicted)
        Imprison(session);
}

void LoseRollForEachTerm(Session& session) {
    session.character.BenefitRollsModifier -= session.character.TermsTotal;
}

void ReviveFrozen(Session& session) {
    const auto& value = session.character.Characteristic;
    const std::array values = {Concat("Str ", value[kStr]), Concat("Dex ", value[kDex]), Concat("End ", value[kEnd])};
    const auto choice = korvane::Choose(session, "Frozen Watch revive problem. Choose a stat to reduce by 1",
                                        Texts(values.begin(), values.end()));
    ReduceCharacteristic(session, choice.place, 1);
}

void FaceCourtMartial(Session& session) {
    const auto& skills = BattleSkills(session.selection.assignment);
    if (skills.empty())
        return;
    if (RollBest(session, skills, 0) < 0) {
        AddHistory(session, "Court-Martialled");
        return;
    }
    AddHistory(session, "Honourable discharge");
    session.character.BenefitRollsModifier += 1;
}

void GrantServiceRow(Session& session) {
    const auto row = static_cast<std::size_t>(Roll(session, 1, 6));
    GrantSkillOf(session, session.career.serviceTable.at(row));
}

void TakeSidesInUpheaval(Session& session) {
    constexpr std::array<std::string_view, 4> kSkills = {"Advocate=1", "Persuade=1", "Explosives=1", "Streetwise=1"};
    auto& character = session.character;
    const auto skill = korvane::Choose(session, "Political Upheaval", kSkills).text;
    GrantSkill(session, skill);
    if (SkillRoll(session, SplitFirst(skill, "=").first, 8) >= 0) {
        AddHistory(session, "On the winning side");
        character.AdvancementDM += 2;
    } else {
        AddHistory(session, "On the losing side");
        character.SurvivalDM -= 2;
    }
}

void RiskDeal(Session& session) {
    const int stake = ChooseStake(session, "Chance to risk on a possible deal");
    if (stake > 0)
        SettleStake(session, stake, RollBest(session, Texts{"Gambler", "Broker"}, 8) >= 0);
}

void GambleAmongRogues(Session& session) {
    const int stake = ChooseStake(session, "Gambling Ring - Wager Benefit Rolls");
    if (stake > 0)
        SettleStake(session, stake, SkillRoll(session, "Gambler", 8) >= 0);
}

void ChooseScience(Session& session) {
    constexpr std::array<std::string_view, 18> kFields = {
        "Archaeology", "Astronomy",    "Biology",    "Chemistry",   "Cosmology",    "Cybernetics",
        "Economics",   "Genetics",     "History",    "Linguistics", "Philosophy",   "Physics",
        "Planetology", "Psionicology", "Psychology", "Robotics",    "Sophontology", "Xenology"};
    const auto field = korvane::Choose(session, "Select a Science skill", kFields).text;
    GrantSkill(session, Concat("Science (", field, ")"));
}

}  // namespace korvane::codes
