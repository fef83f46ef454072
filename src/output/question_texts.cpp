#include "output/question_texts.h"

#include "base/text.h"
#include "character/player_texts.h"
#include "engine/mustering_out.h"
#include "output/summary_texts.h"

namespace korvane {

std::string MusterTitle(std::string_view career, int rolls) {
    return Concat("Muster Out for ", career, " ", rolls, " rolls remaining");
}

std::string BenefitModifiersText(const CharacterRecord& character, const MusterQuestion& question) {
    std::string told = "A roll is one die.";
    if (question.bonuses == 1)
        told += " +1 to either column once, where you want it.";
    else if (question.bonuses > 1)
        AppendAll(told, " +1 to either column ", question.bonuses, " times, where you want it.");
    if (question.gamblerEnabled)
        told += " Gambler: +1 to cash.";
    if (question.bonuses == 0 && !question.gamblerEnabled)
        told += " No modifier applies, so 7 can't be reached.";
    AppendAll(told, " Cash rolls: ", character.CashRollsUsed, " of ", kMostCashRolls, " used.");
    return told;
}

std::string ForfeitText(int rolls) {
    if (rolls == 0)
        return {};
    return Concat("Leaving now forfeits ", rolls, rolls == 1 ? " benefit roll." : " benefit rolls.");
}

std::string CostOfLeavingText(const Session& session) {
    const auto& character = session.character;
    const auto rank = Trim(RankTitle(session.assignment, character.Rank));
    return Concat("Moving on costs your rank", rank.empty() ? std::string() : Concat(" (", rank, ")"),
                  " and the benefit rolls of this career (", character.TermsInCareer,  // what events added goes along
                  "); \"", kEndCareer, "\" musters you out with them.");
}

}  // namespace korvane
