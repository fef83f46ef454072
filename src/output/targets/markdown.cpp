#include <algorithm>
#include <array>

#include "base/text.h"
#include "output/json_writer.h"
#include "output/life_terms.h"
#include "output/luck_line.h"
#include "output/summary_texts.h"
#include "output/targets/targets.h"

namespace korvane::targets {

namespace {

struct Unprintable {
    std::string_view bytes;
    std::string_view escape;
};
constexpr std::array<Unprintable, 5> kUnprintable = {{{"\xE2\x80\xA8", "\\u2028"},
                                                      {"\xE2\x80\xA9", "\\u2029"},
                                                      {"\xEF\xBB\xBF", "\\uFEFF"},
                                                      {"\xEF\xBF\xBE", "\\uFFFE"},
                                                      {"\xEF\xBF\xBF", "\\uFFFF"}}};

// A text in double quotes as JSON has it, which YAML takes as it is meant but for what it calls unprintable, or a
// line's end.
std::string Quoted(std::string_view text) {
    std::string json;
    JsonWriter(json).Text(text);
    std::string quoted;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto byte = [&json, i](std::size_t k) {
            return static_cast<unsigned char>(json[std::min(i + k, json.size() - 1)]);
        };
        const auto three = std::string_view(json).substr(i, 3);
        if (byte(0) == 0x7F) {
            quoted += "\\u007F";
        } else if (byte(0) == 0xC2 && byte(1) < 0xA0) {
            constexpr std::string_view kDigits = "0123456789ABCDEF";
            ((quoted += "\\u00") += kDigits[byte(1) >> 4U]) += kDigits[byte(1) & 15U];
            ++i;
        } else if (const auto known = std::ranges::find(kUnprintable, three, &Unprintable::bytes);
                   known != kUnprintable.end()) {
            quoted += known->escape;
            i += 2;
        } else {
            quoted += json[i];
        }
    }
    return quoted;
}

// Whether the mark after so many characters makes a list of a line: "1." or "2)".
bool NumbersAList(std::string_view text, std::size_t place) {
    constexpr std::string_view kDigits = "0123456789";
    return place > 0 && (text[place] == '.' || text[place] == ')') &&
           text.substr(0, place).find_first_not_of(kDigits) == std::string_view::npos;
}

// A text that shows as it is, wherever it stands in a line.
std::string Shown(std::string_view text) {
    constexpr std::string_view kMarks = "\\`*_[]<>&|~#!";
    constexpr std::string_view kFirst = "-+=:";
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' || text[i] == '\r') {
            shown += ' ';
            continue;
        }
        if (kMarks.find(text[i]) != std::string_view::npos ||
            (i == 0 && kFirst.find(text[i]) != std::string_view::npos) || NumbersAList(text, i))
            shown += '\\';
        shown += text[i];
    }
    return shown;
}

template <typename Texts>
void AddList(std::string& out, std::string_view key, const Texts& texts) {
    AppendAll(out, key, ":", texts.empty() ? " []\n" : "\n");
    for (const auto& text : texts)
        AppendAll(out, "  - ", Quoted(text), "\n");
}

void AddFrontMatter(std::string& out, const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    const auto& selection = session.selection;
    const auto text = [&](std::string_view key, std::string_view value) {
        AppendAll(out, key, ": ", Quoted(value), "\n");
    };
    const auto number = [&](std::string_view key, const auto& value) { AppendAll(out, key, ": ", value, "\n"); };
    out += "---\n";
    text("name", labels.name.value_or(""));
    if (labels.number)
        number("number", *labels.number);
    if (labels.dice && labels.dice->seed)
        text("seed", labels.dice->seed->given());
    text("race", Trim(selection.race));
    text("career", Trim(selection.career));
    text("assignment", Trim(selection.assignment));
    number("age", character.Age);
    number("terms", character.TermsTotal);
    number("rank", character.Rank);
    text("rankTitle", Trim(RankTitle(session.assignment, character.Rank)));
    out += "characteristics:\n";
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        AppendAll(out, "  ", Quoted(Trim(character.CharacteristicName[i])), ": ", character.Characteristic[i], "\n");
    const auto held = character.Skills.Held();
    out += held.empty() ? "skills: {}\n" : "skills:\n";
    for (const auto* const skill : held)
        AppendAll(out, "  ", Quoted(Trim(skill->Name)), ": ", skill->Level, "\n");
    number("cash", character.Cash);
    number("pension", character.Pension);
    AppendAll(out, "medicalDebt: ", ShortestNumber(character.MedicalDebt), "\n");
    number("allies", character.Allies);
    number("contacts", character.Contacts);
    number("rivals", character.Rivals);
    number("enemies", character.Enemies);
    AddList(out, "benefits", character.Benefits.lines());
    AddList(out, "careersServed", character.CareersServed.lines());
    text("education", character.Education);
    text("homeWorld", HomeWorldText(character));
    AddList(out, "open", OpenPoints(character));
    out += "---\n";
}

void AddTerms(std::string& out, const Session& session) {
    out += "\n## History\n";
    for (const auto& term : TermsOf(session)) {
        AppendAll(out, "\n### Term ", term.number, ", age ", term.age, ", ", Shown(Trim(term.career)), " (",
                  Shown(Trim(term.assignment)), ")\n\n");
        for (const auto& line : term.lines)
            AppendAll(out, "- ", Shown(line), "\n");
    }
}

}  // namespace

std::string Markdown(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    std::string out;
    AddFrontMatter(out, session, labels);
    const auto name = labels.name.value_or("");
    AppendAll(out, "\n# ", IsBlank(name) ? "Nameless" : Shown(name), "\n\n", Shown(Trim(session.selection.race)), ", ",
              Shown(Trim(session.selection.career)), " (", Shown(Trim(session.selection.assignment)), "), age ",
              character.Age, "\n\n", Shown(RankLabel(character, session.assignment)), "\n\n|");
    std::string rule = "|";
    std::string values = "|";
    for (int i = 1; i <= character.CharacteristicCount; ++i) {
        AppendAll(out, " ", Shown(Trim(character.CharacteristicName[i])), " |");
        rule += " ---: |";
        AppendAll(values, " ", character.Characteristic[i], " (", SignedNumber(character.CharacteristicDM[i]), ") |");
    }
    AppendAll(out, "\n", rule, "\n", values, "\n\n## Skills\n\n");
    for (const auto& line : SkillLines(character, true))
        AppendAll(out, "- ", Shown(line), "\n");
    AddTerms(out, session);
    if (const auto luck = LuckLine(character.Luck); labels.luck && !luck.empty())
        AppendAll(out, "\n", Shown(luck), "\n");
    return out;
}

}  // namespace korvane::targets
