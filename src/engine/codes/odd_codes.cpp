#include "engine/codes/odd_codes.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "engine/injury.h"
#include "engine/prison.h"
#include "engine/skill_roll.h"
#include "skills/choice.h"
#include "skills/grant.h"
#include "skills/modifiers.h"

namespace korvane {

namespace {

// Asks how many benefit rolls the player stakes; 0 for none.
int ChooseStake(Session& session, std::string_view title) {
    constexpr int kMostStake = 23;
    const auto& character = session.character;
    const int most = std::clamp(character.TermsTotal + character.Rank / 2, 1, kMostStake);
    ScratchText options;
    for (int stake = 1; stake <= most; ++stake)
        options.Append(stake, " benefits/");
    options.Append("Do not gamble");
    const int place = ChoosePlace(session, title, options);
    return place > most ? 0 : place;
}

void SettleStake(Session& session, int stake, bool wins) {
    const int rolls = wins ? (stake + 1) / 2 : stake;
    const ScratchText outcome(wins ? "Success! Gain " : "Failed! Lose ", rolls, " benefit rolls");
    AddHistory(session, outcome);
    Tell(session, outcome);
    session.character.BenefitRollsModifier += wins ? rolls : -rolls;
}

// The skills with which the navy's battle stations are manned; empty for other assignments.
std::string_view BattleSkills(std::string_view assignment) {
    if (assignment == "Crew")
        return "Electronics (Sensors)/Gunner (Turret)/Gunner (Ortillery)/Gunner (Screen)/Gunner (Capital)";
    if (assignment == "Engineer Gunner")
        return "Mechanic/Vacc Suit";
    if (assignment == "Flight")
        return "Pilot (Small Craft)/Pilot (Spacecraft)/Tactics (Naval)";
    return {};
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
    const int total = Roll(session, 2, 6) + SkillModifier(character, "Advocate");
    character.LeaveCareer = 1;
    if (total >= 8)
        return;
    character.MusterRolls -= 1;
    if (total <= 2)
        Imprison(session);
}

void LoseRollForEachTerm(Session& session) {
    session.character.BenefitRollsModifier -= session.character.TermsTotal;
}

void ReviveFrozen(Session& session) {
    const auto& value = session.character.Characteristic;
    const ScratchText options("Str ", value[kStr], "/Dex ", value[kDex], "/End ", value[kEnd]);
    const int slot = ChoosePlace(session, "Frozen Watch revive problem. Choose a stat to reduce by 1", options);
    ReduceCharacteristic(session, slot, 1);
}

void FaceCourtMartial(Session& session) {
    const auto skills = BattleSkills(session.selection.assignment);
    if (skills.empty())
        return;
    if (Roll(session, 2, 6) + BestSkillModifier(session, skills) < 0) {
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
    constexpr std::string_view kSkills = "Advocate=1/Persuade=1/Explosives=1/Streetwise=1";
    auto& character = session.character;
    const auto skill = AlternativeAt(kSkills, ChoosePlace(session, "Political Upheaval", kSkills));
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
        SettleStake(session, stake, Roll(session, 2, 6) + BestSkillModifier(session, "Gambler/Broker") > 7);
}

void GambleAmongRogues(Session& session) {
    const int stake = ChooseStake(session, "Gambling Ring - Wager Benefit Rolls");
    if (stake > 0)
        SettleStake(session, stake, SkillRoll(session, "Gambler", 8) >= 0);
}

void ChooseScience(Session& session) {
    constexpr std::string_view kFields =
        "Archaeology/Astronomy/Biology/Chemistry/Cosmology/Cybernetics/Economics/Genetics/History/Linguistics/"
        "Philosophy/Physics/Planetology/Psionicology/Psychology/Robotics/Sophontology/Xenology";
    const auto field = AlternativeAt(kFields, ChoosePlace(session, "Select a Science skill", kFields));
    GrantSkill(session, ScratchText("Science (", field, ")"));
}

}  // namespace korvane
