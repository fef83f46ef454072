#include "engine/prison.h"

#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "character/checks.h"
#include "data/known_names.h"
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
    const bool heard = RollAgainst(session, "Advocate", grade, 8) >= 0;
    if (heard)
        character.ParoleThreshold -= 1;
    AddHistory(session, heard ? "Sentence reduced; fee " : "Sentence not reduced; fee ", FormatThousands(fee));
    character.Cash -= fee;
}

}  // namespace

void Imprison(Session& session) {
    Tell(session, "You have been imprisoned. Terms will be served until you make your parole roll or die of old age");
    MusterOut(session);
    SelectCareer(session, kPrisoner);
    SelectAssignment(session, kInmate);
    session.character.TermsInCareer = 0;
    RollParoleThreshold(session);
    AddHistory(session, kImprisoned, "parole threshold ", session.character.ParoleThreshold);
}

void OfferEscape(Session& session) {
    // The box has a question's icon, but no other button than OK: the attempt is always made.
    TellUnlessAutomatic(session, "You have the opportunity to escape the prison. Do you try?", Icon::Question);
}

void RollParoleThreshold(Session& session) {
    session.character.ParoleThreshold = Roll(session, 1, 6) + 4;
}

void HireLawyer(Session& session) {
    std::array<std::string, kBestLawyer + 1> texts;
    std::size_t grades = 0;
    for (int grade = 1; grade <= kBestLawyer && session.character.Cash >= FeeFor(grade); ++grade)
        texts.at(grades++) = Concat("Advocate-", grade, " costs Cr", FormatThousands(FeeFor(grade)));
    texts.at(grades) = "Don't hire one";
    const std::vector<std::string_view> options(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(grades) + 1);
    const int place = Choose(session, "Chance to hire a lawyer", options).place;
    if (place > static_cast<int>(grades))
        AddHistory(session, "You don't");
    else
        Plead(session, place);
}

}  // namespace korvane
