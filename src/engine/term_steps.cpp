#include "engine/term_steps.h"

#include "character/checks.h"
#include "character/summary.h"
#include "data/known_names.h"
#include "data/rule_row.h"
#include "engine/prison.h"
#include "engine/transfer.h"
#include "skills/grant.h"

namespace korvane {

namespace {

constexpr int kTopEnlistedRank = 6;
constexpr int kFirstOfficerRank = 7;
constexpr int kTopRank = 12;

void FaceParole(Session& session, int total) {
    auto& character = session.character;
    if (total <= character.ParoleThreshold) {
        TellUnlessAutomatic(session, "Parole roll failed. You remain in prison");
        return;
    }
    TellUnlessAutomatic(session, "Released from prison");
    AddHistory(session, kReleased);
    character.ParoleThreshold = 0;
    TransferCareer(session);
}

bool CanRise(const CharacterRecord& character) {
    return character.Rank != kTopRank && !(character.Rank == kTopEnlistedRank && character.Commissioned == 0);
}

void Promote(Session& session) {
    auto& character = session.character;
    character.Rank += 1;
    const auto rank = static_cast<std::size_t>(character.Rank);
    AddHistory(session, "Promoted to ", session.assignment.rankTitle.at(rank));
    auto& bonus = session.assignment.rankBonus.at(rank);
    if (bonus != "-" && !bonus.empty())
        CarryOutRow(session.assignment.source, bonus, [&] { GrantSkillOf(session, bonus); });
    ShowSummary(session);
}

}  // namespace

bool Survives(Session& session) {
    auto& modifier = session.character.SurvivalDM;
    const auto& assignment = session.assignment;
    const int effect = CarryOutRow(assignment.source, assignment.survival,
                                   [&] { return RollCheck(session, assignment.survival, 0); }) +
                       modifier;
    modifier = 0;
    return effect >= 0;
}

void SeekCommission(Session& session) {
    constexpr int kCommonSoc = 8;
    auto& character = session.character;
    bool eligible = false;
    Count modifier = 0;
    if (character.Characteristic[kSoc] > kCommonSoc) {
        eligible = true;
        modifier = -character.TermsInCareer;
    }
    if (character.TermsTotal == 1)  // the first term of service is number 2: never here
        eligible = true;
    if (session.career.commission == kNoCommission)
        eligible = false;
    if (!eligible)
        return;
    modifier += character.CommissionDM;
    character.CommissionDM = 0;
    const auto& career = session.career;
    if (CarryOutRow(career.source, career.commission, [&] { return RollCheck(session, career.commission, modifier); }) <
        0)
        return;
    GrantCommission(session);
}

void GrantCommission(Session& session) {
    AddHistory(session, "Commissioned");
    session.character.Commissioned = 1;
    session.character.Rank = kFirstOfficerRank;
    ShowSummary(session);
}

void SeekAdvancement(Session& session) {
    // "Force Promote" is known to do nothing here: the bonus that it stands for goes into no roll.
    auto& character = session.character;
    const auto check = session.assignment.advancement;
    const int effect = CarryOutRow(session.assignment.source, check,
                                   [&] { return RollCheck(session, check, character.AdvancementDM); });
    if (character.ParoleThreshold > 0) {
        FaceParole(session, effect + CheckTarget(check));
        return;
    }
    character.AdvancementDM = 0;
    if (effect >= 0 && CanRise(character))
        Promote(session);
}

}  // namespace korvane
