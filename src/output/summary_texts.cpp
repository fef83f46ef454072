#include "output/summary_texts.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"
#include "output/luck_line.h"
#include "skills/grant.h"

namespace korvane {

namespace {

void AddMoney(std::vector<std::string>& lines, std::string_view label, std::int64_t amount, std::string_view unit) {
    if (amount != 0)
        lines.push_back(Concat(label, "Cr", FormatThousands(amount), unit));
}

// A modifier that waits for its roll.
void AddModifier(std::vector<std::string>& lines, std::string_view roll, int modifier) {
    if (modifier == kAutomaticSuccess)
        lines.push_back(Concat("Next ", roll, ": succeeds"));
    else if (modifier != 0)
        lines.push_back(Concat("Next ", roll, ": ", SignedNumber(modifier)));
}

void AddEducation(std::vector<std::string>& lines, const CharacterRecord& character) {
    if (!character.Education.empty())
        lines.push_back("Education: " + character.Education);
    if (character.Graduated > 0)
        lines.emplace_back(character.Graduated == 1 ? "Graduated" : "Graduated with honours");
}

// Who helped with which skills, and what the group's package was.
void AddCompany(std::vector<std::string>& lines, const CharacterRecord& character) {
    for (const auto& connection : character.Connections)
        lines.push_back(
            Concat("Connection: ", connection.skill, connection.with.empty() ? "" : ", with ", connection.with));
    if (!character.SkillPackage.empty())
        lines.push_back("Skill package: " + character.SkillPackage);
}

void AddCareers(std::vector<std::string>& lines, const CharacterRecord& character) {
    if (character.CareersServed.empty())
        return;
    std::string careers = "Careers:";
    for (const auto& career : character.CareersServed.lines())
        AppendAll(careers, careers.ends_with(':') ? " " : ", ", career);
    lines.push_back(std::move(careers));
}

void AddHomeWorld(std::vector<std::string>& lines, const HomeWorldFacts& facts) {
    if (facts.front().empty())
        return;
    lines.emplace_back("Home world");
    for (std::size_t i = 0; i < facts.size(); ++i)
        lines.push_back(Concat("  ", kWorldTableNames.at(i), ": ", facts.at(i)));
}

}  // namespace

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

std::string RankText(const CharacterRecord& character, const AssignmentRecord& assignment) {
    const int rank = character.Rank;
    auto label = std::string(RankTitle(assignment, rank));
    if (rank >= 1 && rank <= 6)
        AppendAll(label, " (E", rank, ")");
    if (rank > 6)
        AppendAll(label, " (O", rank - 6, ")");
    return label;
}

std::string RankLabel(const CharacterRecord& character, const AssignmentRecord& assignment) {
    return Concat("Rank: ", RankText(character, assignment));
}

std::string HomeWorldText(const CharacterRecord& character) {
    std::string text;
    for (std::size_t i = 0; i < character.HomeWorld.size(); ++i)
        if (const auto& fact = character.HomeWorld.at(i); !fact.empty())
            AppendAll(text, text.empty() ? "" : "; ", kWorldTableNames.at(i), ": ", fact);
    return text;
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

std::vector<std::string> SkillLines(const CharacterRecord& character, bool sorted) {
    auto held = character.Skills.Held();
    if (sorted)
        std::ranges::stable_sort(held, [](const Skill* a, const Skill* b) { return a->Level > b->Level; });
    std::vector<std::string> lines;
    lines.reserve(held.size());
    for (const auto* const skill : held)
        lines.push_back(Concat(skill->Name, "-", skill->Level));
    return lines;
}

std::vector<std::string> DetailLines(const CharacterRecord& character) {
    std::vector<std::string> lines;
    AddEducation(lines, character);
    AddCareers(lines, character);
    AddCompany(lines, character);
    if (character.ParoleThreshold > 0)
        lines.push_back(Concat("In prison; parole threshold ", character.ParoleThreshold));
    AddModifier(lines, "qualification", character.QualificationDM);
    AddModifier(lines, "survival", character.SurvivalDM);
    AddModifier(lines, "commission", character.CommissionDM);
    AddModifier(lines, "advancement", character.AdvancementDM);
    AddMoney(lines, "Cash: ", character.Cash, "");
    AddMoney(lines, "Pension: ", character.Pension, "/year");
    for (const auto& benefit : character.Benefits.lines())
        lines.push_back(Concat("Benefit: ", benefit));
    AddHomeWorld(lines, character.HomeWorld);
    return lines;
}

std::vector<std::string> OpenPoints(const CharacterRecord& character) {
    const auto open_speciality = Concat(" (", kPickLater, ")");
    std::vector<std::string> points;
    for (const auto* const skill : character.Skills.Held())
        if (skill->Name.ends_with(open_speciality))
            points.push_back(
                Concat("the speciality of ",
                       std::string_view(skill->Name).substr(0, skill->Name.size() - open_speciality.size()), "-",
                       skill->Level));
    for (const auto& line : character.LeftOpen.lines())
        points.push_back(line);
    if (character.MusterRolls > 0)
        points.push_back(
            Concat(character.MusterRolls, character.MusterRolls == 1 ? " benefit roll" : " benefit rolls"));
    return points;
}

std::string OpenPointsLine(const CharacterRecord& character) {
    std::string line;
    for (const auto& point : OpenPoints(character))
        AppendAll(line, line.empty() ? "" : ", ", point);
    return line;
}

std::vector<std::string> EndedDetailLines(const Session& session) {
    auto lines = CharacteristicLines(session.character);
    std::ranges::move(DetailLines(session.character), std::back_inserter(lines));
    for (const auto& point : OpenPoints(session.character))
        lines.push_back("Still to decide: " + point);
    if (auto luck = LuckLine(session.character.Luck); !luck.empty())
        lines.push_back(std::move(luck));
    return lines;
}

std::string SignedNumber(int number) {
    return number >= 0 ? Concat("+", number) : Concat(number);
}

}  // namespace korvane
