#include "base/text.h"
#include "character/checks.h"
#include "engine/associates.h"
#include "engine/courses.h"
#include "engine/life_events.h"
#include "engine/prison.h"
#include "engine/skill_roll.h"
#include "skills/any_skill.h"
#include "skills/grant.h"

namespace korvane {

namespace {

void FindPsi(Session& session, int strength) {
    auto& character = session.character;
    character.Characteristic[kPsi] = strength;
    character.CharacteristicName[kPsi] = "PSI";
    character.CharacteristicCount = kPsi;  // also where the race has more: its later ones are lost
    const auto found = Concat("Approached by illegal psionic group, tested and PSI ", strength, " discovered");
    AddHistory(session, found);
    Tell(session, Concat(found, ". You may transfer to Psion at the end of any subsequent term"));
}

void MeetPsionicGroup(Session& session) {
    if (!AskYesNo(session, {"Approached by illegal psionic group. Accept Testing?"})) {
        AddHistory(session, "Approached by illegal psionic group, turned them down");
        return;
    }
    const int strength = Roll(session, 2, 6) - session.character.TermsTotal;
    if (strength > 0)
        FindPsi(session, strength);
    else
        AddHistory(session, "Approached by illegal psionic group, test shows no latent PSI power");
}

void PlayPrank(Session& session) {
    AddHistory(session, "A supposedly harmless prank goes wrong and someone gets hurt, physically or emotionally.");
    constexpr int kForgiven = 8;
    const int total = RollAgainst(session, "Soc", session.character.CharacteristicDM[kSoc], kForgiven) + kForgiven;
    if (total >= kForgiven) {
        AddRival(session, "Academic Prank");
        return;
    }
    AddEnemy(session, "Academic Prank");
    if (total == 2)
        Imprison(session);
}

void JoinClique(Session& session) {
    AddHistory(session,
               "You become involved in a tightly knit clique or group and make a pact to remain friends forever, "
               "wherever in the galaxy you may end. Gain D3 Allies.");
    const int friends = Roll(session, 1, 3);
    for (int i = 0; i < friends; ++i)
        AddAlly(session, "Academic friend");
}

void JoinMovement(Session& session) {
    if (RollCheck(session, "Soc 8+", 0) < 0) {
        AddHistory(session, "You join a political movement.");
        return;
    }
    AddHistory(session, "You join a political movement, and become a leading figure.");
    AddAlly(session, "Political Movement");
    AddEnemy(session, "Outside of Political Movement");
}

void OpposeTutor(Session& session) {
    const auto& subject = session.character.UniversitySubject;
    if (SkillRoll(session, SplitFirst(subject, "-").first, 9) < 0) {
        AddHistory(session,
                   "A newly arrived tutor rubs you up the wrong way and you work hard to overturn their conclusions. "
                   "But fail.");
        return;
    }
    AddHistory(session,
               "A newly arrived tutor rubs you up the wrong way and you work hard to overturn their conclusions, and "
               "succeed. Gain a Rival");
    AddRival(session, "Tutor proved wrong");
    if (!subject.empty())
        GrantSkill(session, subject);
}

void FaceWar(Session& session, int& completion) {
    if (RollCheck(session, "Soc 9+", 0) >= 0) {
        AddHistory(session, "War breaks out but you pull some strings and are not drafted");
        return;
    }
    const int service = Roll(session, 1, 6);
    AddHistory(session, service <= 3   ? "War comes, drafted to Army"
                        : service <= 5 ? "War comes, drafted to Marine"
                                       : "War comes, drafted to Navy");
    completion = 0;
}

void CrashOut(Session& session, int& completion) {
    AddHistory(
        session,
        "Your time in education is not a happy one and you suffer a deep tragedy; perhaps you become hopelessly "
        "addicted to drink or drugs, a failed romance leaves you in tatters, or a fatal accident involving a close "
        "friend shakes your confidence. You crash and fail to graduate.");
    completion = 0;
}

// The text of an event whose whole effect is a gain.
void Gain(Session& session, std::string_view text, std::string_view skill) {
    AddHistory(session, text);
    GrantSkill(session, skill);
}

void TakeUpHobby(Session& session) {
    // The list does offer what the text rules out.
    AddHistory(
        session,
        "You develop a healthy interest in a hobby or other area of study. Gain any skill of your choice, with the "
        "exception of Jack-of-all-Trades, at level 0.");
    SelectAnySkillAtZero(session);
}

}  // namespace

void RollEducationEvent(Session& session, int& completion) {
    switch (Roll(session, 2, 6)) {
        case 2:
            return MeetPsionicGroup(session);
        case 3:
            return CrashOut(session, completion);
        case 4:
            return PlayPrank(session);
        case 5:
            return Gain(session, "Taking advantage of youth, you party as much as you study. Gain Carouse 1.",
                        "Carouse=1");
        case 6:
            return JoinClique(session);
        case 7:
            return RollLifeEvent(session);
        case 8:
            return JoinMovement(session);
        case 9:
            return TakeUpHobby(session);
        case 10:
            return OpposeTutor(session);
        case 11:
            return FaceWar(session, completion);
        default:
            return Gain(
                session,
                "You gain wide-ranging recognition of your initiative and innovative approach to study. Increase "
                "your SOC by +1.",
                "Soc +1");
    }
}

}  // namespace korvane
