#include "engine/mustering_out.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "character/summary.h"
#include "data/rule_row.h"
#include "engine/benefits.h"

namespace korvane {

namespace {

constexpr int kLastRow = 7;

void GrantPension(Session& session) {
    const int pension = PensionFor(session.character.TermsInCareer);
    if (pension == 0)
        return;
    session.character.Pension += pension;
    AddHistory(session, "Pension Cr", FormatThousands(pension), "/year");
}

void CountRolls(CharacterRecord& character) {
    character.CashRollsUsed = 0;
    character.MusterRolls = character.TermsInCareer;
    if (character.Rank == -1)  // no rank is: the line never acts
        character.MusterRolls += 1;
}

bool KnowsGambling(const CharacterRecord& character) {
    const auto* const gambler = character.Skills.Find("Gambler");
    return gambler != nullptr && gambler->Level >= 1;
}

MusterQuestion QuestionFor(const Session& session) {
    const auto& character = session.character;
    const bool has_rolls = character.MusterRolls > 0;
    MusterQuestion question;
    question.career = session.selection.career;
    question.rolls = character.MusterRolls;
    question.bonuses = character.MusterBonusCount;
    question.cashEnabled = has_rolls && character.CashRollsUsed < kMostCashRolls;
    question.materialEnabled = has_rolls;
    question.threeCashEnabled = character.MusterRolls > kMostCashRolls && character.CashRollsUsed == 0;
    question.gamblerEnabled = !session.Automatic() && KnowsGambling(character);
    question.cash = session.musterResults.cash.lines();
    question.benefits = session.musterResults.benefits.lines();
    return question;
}

// One die for a column, with a bonus if there is one and the player spends it.
int RollRow(Session& session, int extra) {
    int roll = Roll(session, 1, 6) + extra;
    auto& bonuses = session.character.MusterBonusCount;
    if (bonuses > 0 &&
        AskYesNo(session, {Concat("You have ", bonuses, " bonuses of +1 for muster rolls. Add +1 to this roll?")})) {
        bonuses -= 1;
        roll += 1;
    }
    return std::min(roll, kLastRow);
}

void RollThreeCashRestMaterial(Session& session, bool useGambler) {
    for (int i = 0; i < kMostCashRolls; ++i)
        RollCashBenefit(session, useGambler);
    while (session.character.MusterRolls > 0)
        RollMaterialBenefit(session);
}

// Whether the dialog may close: unused rolls are abandoned only knowingly.
bool MayClose(Session& session) {
    const int rolls = session.character.MusterRolls;
    if (rolls <= 0)
        return true;
    return AskYesNo(session,
                    {Concat("You still have ", rolls, " rolls unused! Abandon them?"), {}, Icon::Warning, false});
}

// Carries out a press of the dialog. Returns whether the dialog goes on.
bool Press(Session& session, const MusterPress& press) {
    const bool gambler = press.gambler && !session.Automatic();
    switch (press.button) {
        case MusterButton::Cash:
            RollCashBenefit(session, gambler);
            return true;
        case MusterButton::Material:
            RollMaterialBenefit(session);
            return true;
        case MusterButton::ThreeCashRestMaterial:
            RollThreeCashRestMaterial(session, gambler);
            return true;
        case MusterButton::Done:
            return !MayClose(session);
    }
    return false;
}

}  // namespace

int PensionFor(int termsInCareer) {
    constexpr int kFirstTerms = 5;
    constexpr int kFirstPension = 10000;
    constexpr int kRisePerTerm = 2000;
    return termsInCareer < kFirstTerms ? 0 : kFirstPension + (termsInCareer - kFirstTerms) * kRisePerTerm;
}

void MusterOut(Session& session) {
    auto& character = session.character;
    session.musterResults.historyBefore = session.character.History.size();
    session.musterResults.cash.Clear();
    session.musterResults.benefits.Clear();
    CountRolls(character);
    GrantPension(session);
    character.MusterRolls += character.BenefitRollsModifier;
    character.BenefitRollsModifier = 0;
    while (Press(session, session.seams.player->Muster(QuestionFor(session)))) {
    }
}

void RollCashBenefit(Session& session, bool useGambler) {
    auto& character = session.character;
    const int row = RollRow(session, useGambler ? 1 : 0);
    if (character.MusterRolls >= 1) {
        character.MusterRolls -= 1;
        character.CashRollsUsed += 1;
    }
    const auto amount = std::llrint(static_cast<double>(session.career.cashBenefit.at(static_cast<std::size_t>(row))));
    CarryOutRow(session.career.source, session.career.cashLine.at(static_cast<std::size_t>(row)),
                [&] { character.Cash += amount; });
    session.musterResults.cash.Add(Concat("Cr", FormatThousands(amount)));
    ShowSummary(session);
}

void RollMaterialBenefit(Session& session) {
    const int row = RollRow(session, 0);
    if (session.character.MusterRolls >= 1)
        session.character.MusterRolls -= 1;
    const auto benefit = session.career.otherBenefit.at(static_cast<std::size_t>(row));
    CarryOutRow(session.career.source, benefit, [&] { TakeBenefit(session, benefit); });
    ShowSummary(session);
}

}  // namespace korvane
