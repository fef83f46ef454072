#include <array>

#include "base/text.h"
#include "output/luck_line.h"
#include "output/summary_texts.h"
#include "output/targets/targets.h"

namespace korvane::targets {

namespace {

// A cell as every table program takes it: in quotes where it needs them, and quotes twice.
std::string Cell(std::string_view text) {
    if (text.find_first_of(",;\"\r\n\t") == std::string_view::npos && text == Trim(text))
        return std::string(text);
    std::string cell = "\"";
    for (const char character : text)
        cell.append(character == '"' ? 2 : 1, character);
    return cell + '"';
}

template <typename Texts>
std::string Joined(const Texts& texts, std::string_view between) {
    std::string joined;
    for (const auto& text : texts)
        AppendAll(joined, joined.empty() ? std::string_view() : between, text);
    return joined;
}

// Those that every race has; what else a character has stands together.
constexpr std::array<std::string_view, 6> kCommon = {"Str", "Dex", "End", "Int", "Edu", "Soc"};

std::string OtherCharacteristics(const CharacterRecord& character) {
    std::string others;
    for (int i = 1; i <= character.CharacteristicCount; ++i) {
        const auto name = Trim(character.CharacteristicName[i]);
        bool common = false;
        for (const auto known : kCommon)
            common = common || EqualsIgnoringCase(known, name);
        if (!common)
            AppendAll(others, others.empty() ? "" : "; ", name, " ", character.Characteristic[i]);
    }
    return others;
}

}  // namespace

std::string TableHead() {
    return "number,seed,name,race,career,assignment,age,terms,rank,rankTitle,Str,Dex,End,Int,Edu,Soc,"
           "otherCharacteristics,skills,cash,pension,medicalDebt,allies,contacts,rivals,enemies,benefits,careersServed,"
           "education,homeWorld,open,history,luck\r\n";
}

std::string TableRow(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    std::string row;
    const auto text = [&](std::string_view value) { AppendAll(row, row.empty() ? "" : ",", Cell(value)); };
    const auto number = [&](const auto& value) { text(Concat(value)); };
    row += labels.number ? Concat(*labels.number) : "1";
    text(labels.dice && labels.dice->seed ? labels.dice->seed->given() : "");
    text(labels.name.value_or(""));
    text(Trim(session.selection.race));
    text(Trim(session.selection.career));
    text(Trim(session.selection.assignment));
    number(character.Age);
    number(character.TermsTotal);
    number(character.Rank);
    text(Trim(RankTitle(session.assignment, character.Rank)));
    for (const auto name : kCommon) {
        const int slot = CharacteristicSlot(character, name);
        text(slot == 0 ? std::string() : Concat(character.Characteristic[slot]));
    }
    text(OtherCharacteristics(character));
    text(Joined(SkillLines(character, false), "; "));
    number(character.Cash);
    number(character.Pension);
    text(ShortestNumber(character.MedicalDebt));
    number(character.Allies);
    number(character.Contacts);
    number(character.Rivals);
    number(character.Enemies);
    text(Joined(character.Benefits.lines(), "; "));
    text(Joined(character.CareersServed.lines(), "; "));
    text(character.Education);
    text(HomeWorldText(character));
    text(Joined(OpenPoints(character), "; "));
    text(Joined(character.History.lines(), "\n"));
    text(labels.luck ? LuckText(character.Luck) : "");
    return row + "\r\n";
}

}  // namespace korvane::targets
