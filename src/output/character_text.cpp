#include "output/character_text.h"

#include "base/text.h"
#include "output/summary_texts.h"

namespace korvane {

namespace {

// Texts joined by ", "; "none" when there are none.
std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const auto& text : texts)
        AppendAll(joined, joined.empty() ? "" : ", ", text);
    return joined.empty() ? "none" : joined;
}

std::string CharacteristicsLine(const CharacterRecord& character) {
    std::vector<std::string> values;
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        values.push_back(Concat(Trim(character.CharacteristicName[i]), " ", character.Characteristic[i], " (",
                                SignedNumber(character.CharacteristicDM[i]), ")"));
    return Joined(values);
}

std::string MoneyLine(const CharacterRecord& character) {
    auto line = "Cash Cr" + (character.Cash == 0 ? "0" : FormatThousands(character.Cash));
    if (character.Pension != 0)
        AppendAll(line, ", pension Cr", FormatThousands(character.Pension), " a year");
    if (character.MedicalDebt > 0)
        AppendAll(line, ", medical debt Cr", FormatThousands(static_cast<double>(character.MedicalDebt)));
    return line;
}

}  // namespace

std::string CharacterText(const Session& session) {
    const auto& character = session.character;
    const auto& selection = session.selection;
    const auto lines = [](const TextList& list) { return std::vector(list.lines().begin(), list.lines().end()); };
    std::string text;
    AppendAll(text, Trim(selection.race), ", ", Trim(selection.career), " (", Trim(selection.assignment), "), age ",
              character.Age, ", ", character.TermsTotal, " terms\n");
    AppendAll(text, RankLabel(character, session.assignment), "\n");
    AppendAll(text, "Characteristics: ", CharacteristicsLine(character), "\n");
    AppendAll(text, "Skills: ", Joined(SkillLines(character, session.options[Option::SortSkillsByValue])), "\n");
    if (!character.Education.empty())
        AppendAll(text, "Education: ", character.Education, "\n");
    AppendAll(text, "Careers: ", Joined(lines(character.CareersServed)), "\n");
    AppendAll(text, "Benefits: ", Joined(lines(character.Benefits)), "\n");
    AppendAll(text, MoneyLine(character), "\n");
    AppendAll(text, AlliesLabel(character), ", ", EnemiesLabel(character), ", ", ContactsLabel(character), ", ",
              RivalsLabel(character), "\n");
    if (const auto open = OpenPointsLine(character); !open.empty())
        AppendAll(text, "Still to decide: ", open, "\n");
    AppendAll(text, "History:\n");
    int number = 0;
    for (const auto& line : character.History.lines())
        AppendAll(text, ++number < 10 ? "  " : " ", number, ". ", line, "\n");
    return text;
}

}  // namespace korvane
