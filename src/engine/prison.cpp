#include "engine/prison.h"

#include "base/text.h"
#include "engine/mustering_out.h"
#include "engine/selection.h"
#include "skills/choice.h"

namespace korvane {

namespace {

constexpr int kBestLawyer = 3;

int FeeFor(int grade) {
    constexpr int kFeeForEachGrade = 5000;
    return grade * kFeeForEachGrade;
}

void Plead(Session& session, int grade) {
    auto& character = session.character;
    const int fee = FeeFor(grade);
    const bool heard = Roll(session, 2, 6) + grade > 7;
    if (heard)
        character.ParoleThreshold -= 1;
    AddHistory(session, heard ? "Sentence reduced; fee " : "Sentence not reduced; fee ", FormatThousands(fee));
    character.Cash -= fee;
}

}  // namespace

void Imprison(Session& session) {
    Tell(session, "You have been imprisoned. Terms will be served until you make your parole roll or die of old age");
    MusterOut(session);
    SelectCareer(session, "Prisoner");
    SelectAssignment(session, "Inmate");
    session.character.TermsInCareer = 0;
    RollParoleThreshold(session);
    AddHistory(session, "Imprisoned; parole threshold ", session.character.ParoleThreshold);
}

void OfferEscape(Session& session) {
    // The box has a question's icon, but no other button than OK: the attempt is always made.
    if (!session.Automatic())
        session.seams.player->Tell({"You have the opportunity to escape the prison. Do you try?", Icon::Question});
}

void RollParoleThreshold(Session& session) {
    session.character.ParoleThreshold = Roll(session, 1, 6) + 4;
}

void HireLawyer(Session& session) {
    ScratchText options;
    int grades = 0;
    while (grades < kBestLawyer && session.character.Cash >= FeeFor(grades + 1)) {
        ++grades;
        options.Append("Advocate-", grades, " costs Cr", FormatThousands(FeeFor(grades)), "/");
    }
    options.Append("Don't hire one");
    const int place = ChoosePlace(session, "Chance to hire a lawyer", options);
    if (place > grades)
        AddHistory(session, "You don't");
    else
        Plead(session, place);
}

}  // namespace korvane
