#include "engine/term_loop.h"

#include <string_view>
#include <vector>

#include "character/characteristics.h"
#include "character/summary.h"
#include "data/known_names.h"
#include "data/rule_row.h"
#include "engine/aging.h"
#include "engine/education.h"
#include "engine/enlistment.h"
#include "engine/hazards.h"
#include "engine/mustering_out.h"
#include "engine/skill_packages.h"
#include "engine/term_steps.h"
#include "engine/transfer.h"
#include "skills/choice.h"
#include "skills/grant.h"
#include "skills/skill_tables.h"

namespace korvane {

namespace {

enum class TermEnd { NextTerm, MusteredOut, Scrapped };

void CountTerm(Session& session) {
    auto& character = session.character;
    character.TermsTotal += 1;
    character.TermsInCareer += 1;
    character.TermStarts.push_back({character.Characteristic, session.selection.career, session.selection.assignment,
                                    character.Rank, character.History.size()});
}

void ChoosePreCareer(Session& session) {
    std::vector<std::string_view> options = {"Enlist Immediately"};
    for (const auto option : session.race.preCareerOptions)
        if (!IsBlank(option))
            for (const auto part : SplitAll(option, '/'))
                options.push_back(part);
    session.choice.automaticOnce = session.Automatic();  // as the persistent mode says anyway
    const auto picked = CarryOutRow(session.race.source, session.race.preCareerOptions[1],
                                    [&] { return Choose(session, "Select Pre-Career Education", options).text; });
    if (picked == kUniversity)
        AttendUniversity(session);
    else if (picked == kMilitaryAcademy)
        AttendMilitaryAcademy(session);
}

// Who comes from the academy of the service begins there as an officer.
void TakeUpCommission(Session& session) {
    if (session.selection.career == session.character.AcademyService && session.career.commission != kNoCommission)
        GrantCommission(session);
}

// Each skill of the career's first table at level 0.
void TrainBasics(Session& session) {
    for (const auto row : std::span(session.career.personalTable).subspan(1))
        CarryOutRow(session.career.source, row, [&] { GrantSkill(session, Concat(row, "-0")); });
}

void ServeOpeningTerm(Session& session) {
    CountTerm(session);
    AddHistory(session, "-- Term 1 --");
    GrantBackgroundSkills(session);
    ChoosePreCareer(session);
    Qualify(session);
    TakeUpCommission(session);
    TrainBasics(session);
    RecordCareerServed(session, session.selection.career);
    AgeCharacter(session);
}

// What the term's hazards leave: on in the career, out of it into another, or out of all.
enum class Standing { InCareer, Moved, MusteredOut };

Standing Eject(Session& session, std::string_view line, std::string_view notice) {
    AddHistory(session, line);
    TellUnlessAutomatic(session, notice, Icon::Exclamation);
    return TransferCareer(session) == TransferOutcome::Muster ? Standing::MusteredOut : Standing::Moved;
}

bool LosesCareer(const Session& session) {
    return !session.options[Option::ForceNoEjectionOnMishap] && session.character.LeaveCareer == 1 &&
           session.selection.career != kDrifter;
}

// The mishap of a failed survival roll, if it failed, and the event of everyone who is still in the career.
Standing FaceHazards(Session& session) {
    if (!Survives(session)) {
        RollMishap(session);
        if (session.character.ParoleThreshold == 0 && LosesCareer(session))
            return Eject(session, "Ejected from career following Mishap",
                         "You have been ejected from this career following a Mishap");
    }
    RollCareerEvent(session);
    // Prison is no protection here.
    if (LosesCareer(session))
        return Eject(session, "Ejected from career following Event",
                     "You have been ejected from this career following a Career Event");
    return Standing::InCareer;
}

EndOfTermChoice ChooseEndOfTerm(Session& session) {
    if (session.character.TermsTotal == kTermLimit) {
        AddHistory(session, "Korvane Term Limit is ", kTermLimit);
        return EndOfTermChoice::MusterOut;
    }
    const auto answer = session.seams.player->EndOfTerm({session.character.TermsTotal, session.options});
    // The boxes hold at once, for the mustering out or the transfer that follows too.
    session.options = answer.options;
    session.seams.display->OptionsChanged();
    return answer.choice;
}

TermEnd EndTerm(Session& session) {
    switch (ChooseEndOfTerm(session)) {
        case EndOfTermChoice::ReEnlist:
            return TermEnd::NextTerm;
        case EndOfTermChoice::Transfer:
            return TransferCareer(session) == TransferOutcome::Muster ? TermEnd::MusteredOut : TermEnd::NextTerm;
        case EndOfTermChoice::MusterOut:
            MusterOut(session);
            return TermEnd::MusteredOut;
        case EndOfTermChoice::Scrap:
            break;
    }
    return TermEnd::Scrapped;
}

TermEnd ServeTerm(Session& session) {
    auto& character = session.character;
    CountTerm(session);
    character.MusterRolls += 1;
    // The opening term counted too, so the first term of service is number 2.
    AddHistory(session, "------ Term ", character.TermsTotal, " ------");
    ShowSummary(session);
    ChooseSkillTable(session);
    const auto standing = FaceHazards(session);
    if (standing == Standing::MusteredOut)
        return TermEnd::MusteredOut;
    if (standing == Standing::InCareer) {
        SeekCommission(session);
        SeekAdvancement(session);
    }
    AgeCharacter(session);
    ShowSummary(session);
    if (character.ParoleThreshold > 0)
        return TermEnd::NextTerm;
    return EndTerm(session);
}

LifeEnd Live(Session& session) {
    ServeOpeningTerm(session);
    auto end = TermEnd::NextTerm;
    while (end == TermEnd::NextTerm)
        end = ServeTerm(session);
    if (end == TermEnd::Scrapped)
        return LifeEnd::Scrapped;
    GrantConnections(session);
    GrantSkillPackage(session);
    return LifeEnd::MusteredOut;
}

// Locks the controls as long as it lives.
class ControlsLock {
  public:
    explicit ControlsLock(Display& display) : display_(display) { display_.ControlsLocked(true); }
    ~ControlsLock() { display_.ControlsLocked(false); }
    ControlsLock(const ControlsLock&) = delete;
    ControlsLock& operator=(const ControlsLock&) = delete;

  private:
    Display& display_;
};

}  // namespace

LifeEnd RunLife(Session& session) {
    try {
        return Live(session);
    } catch (const CharacterScrapped&) {
        return LifeEnd::Scrapped;
    }
}

void RunCareer(Session& session, const std::function<void()>& life) {
    {
        const ControlsLock lock(*session.seams.display);
        life();
    }
    StartNewCharacter(session);
}

}  // namespace korvane
