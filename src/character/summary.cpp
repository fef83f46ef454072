#include "character/summary.h"

#include "base/text.h"

namespace korvane {

void ShowSummary(Session& session) {
    RecomputeCharacteristicDMs(session.character);
    session.seams.display->SummaryChanged();
}

std::vector<std::string> CharacteristicLines(const CharacterRecord& character) {
    std::vector<std::string> lines;
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        lines.push_back(Concat(character.CharacteristicName[i], " ", character.Characteristic[i], "  (",
                               SignedNumber(character.CharacteristicDM[i]), ")"));
    return lines;
}

std::string AgeLabel(const CharacterRecord& character) {
    return Concat("Age: ", character.Age, " ", character.TermsTotal, " terms total");
}

std::string RankLabel(const CharacterRecord& character, const AssignmentRecord& assignment) {
    const int rank = character.Rank;
    auto label = Concat("Rank: ", RankTitle(assignment, rank));
    if (rank >= 1 && rank <= 6)
        AppendAll(label, " (E", rank, ")");
    if (rank > 6)
        AppendAll(label, " (O", rank - 6, ")");
    return label;
}

std::string_view RankTitle(const AssignmentRecord& assignment, int rank) {
    const auto place = static_cast<std::size_t>(rank);
    if (place >= assignment.rankTitle.size())
        throw RuleError(RuleError::Kind::Subscript, Concat("there is no rank number ", rank));
    return assignment.rankTitle.at(place);
}

std::string AlliesLabel(const CharacterRecord& character) {
    return Concat("Allies: ", character.Allies);
}

std::string EnemiesLabel(const CharacterRecord& character) {
    return Concat("Enemies: ", character.Enemies);
}

std::string ContactsLabel(const CharacterRecord& character) {
    return Concat("Contacts: ", character.Contacts);
}

std::string RivalsLabel(const CharacterRecord& character) {
    return Concat("Rivals: ", character.Rivals);
}

std::string MedicalDebtLabel(const CharacterRecord& character) {
    if (character.MedicalDebt <= 0)
        return "Medical Debt:";
    return "Medical Debt: Cr" + FormatThousands(static_cast<double>(character.MedicalDebt));
}

std::string SignedNumber(int number) {
    return number >= 0 ? Concat("+", number) : Concat(number);
}

}  // namespace korvane
