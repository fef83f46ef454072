#include "output/page_export.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "base/files.h"
#include "base/text.h"
#include "output/life_strip.h"
#include "output/page_markup.h"
#include "output/strip_svg.h"
#include "output/summary_texts.h"

namespace korvane {

namespace {

struct Replacement {
    std::string tag;
    std::string value;
};
using Replacements = std::vector<Replacement>;

// A tag that stands alone between its bars.
void Add(Replacements& page, std::string_view tag, std::string value) {
    page.push_back({Concat("|", tag, "|"), std::move(value)});
}

// What a line of the master list says: a skill and its tag, which is given with its bars.
struct SkillTag {
    std::string_view skill;
    std::string tag;
    bool withSpecialities = false;
};

SkillTag SkillTagOf(std::string_view line) {
    const auto [skill, rest] = SplitFirst(line, "|");
    const auto tag = Trim(rest);
    const auto star = tag.find('*');
    if (star == std::string_view::npos)
        return {Trim(skill), std::string(tag), false};
    return {Trim(skill), Concat(tag.substr(0, star), "|"), true};
}

std::string LevelText(const CharacterRecord& character, std::string_view name) {
    for (const auto* const skill : character.Skills.Held())
        if (skill->Name == name)
            return Concat(skill->Level);
    return {};
}

// A skill and its specialities, which stand below it; one head line of level 0 does for a bare skill that isn't held.
std::string SpecialitiesText(const CharacterRecord& character, std::string_view name) {
    const auto head = Concat(name, " 0<br>");
    std::string text;
    for (const auto* const skill : character.Skills.Held()) {
        if (!skill->Name.starts_with(name))
            continue;
        if (skill->Name != name) {
            if (text.find(head) == std::string::npos)
                text += head;
            text += "&nbsp; &nbsp; &nbsp; &nbsp;";
        }
        AppendAll(text, skill->Name, " ", skill->Level, "<br>");
    }
    return text;
}

// The tags of the master list up to its first empty line: all plain ones, then those with specialities.
void AddSkillTags(Replacements& page, const Session& session) {
    const auto lines = std::span(session.masterSkills).subspan(1);
    for (const bool specialities : {false, true})
        for (const auto& line : lines) {
            if (line.empty())
                break;
            auto tag = SkillTagOf(line);
            if (tag.withSpecialities == specialities && !tag.tag.empty())
                page.push_back({std::move(tag.tag), specialities ? SpecialitiesText(session.character, tag.skill)
                                                                 : LevelText(session.character, tag.skill)});
        }
}

// One "O" a point, in groups of five for the first ten.
std::string Boxes(int value) {
    std::string boxes;
    for (int point = 1; point <= value; ++point)
        boxes += point == 5 || point == 10 ? "O " : "O";
    return boxes;
}

void AddCharacteristicTags(Replacements& page, const Session& session) {
    const auto& character = session.character;
    const auto& race = session.race;
    const auto add_each = [&](std::string_view ending, const std::function<std::string(int)>& value) {
        for (int i = 1; i <= race.characteristicCount; ++i)
            Add(page, Concat("STAT", i, ending), value(i));
    };
    add_each("", [&](int i) { return Concat(character.Characteristic[i]); });
    add_each("BON", [&](int i) { return SignedNumber(character.CharacteristicDM[i]); });
    add_each("NAME", [&](int i) { return std::string(race.characteristicName.at(static_cast<std::size_t>(i))); });
    add_each("BOXES", [&](int i) { return Boxes(character.Characteristic[i]); });
}

// What the character has beyond the six that every race has: "PSI 7 (+0) OOOOO OO", a line each.
std::string FurtherText(const CharacterRecord& character) {
    std::string text;
    for (int i = kSoc + 1; i <= character.CharacteristicCount; ++i)
        AppendAll(text, text.empty() ? "" : "<br>", Trim(character.CharacteristicName[i]), " ",
                  character.Characteristic[i], " (", SignedNumber(character.CharacteristicDM[i]), ") ",
                  Boxes(character.Characteristic[i]));
    return text;
}

std::string SkillsText(const CharacterRecord& character) {
    std::string text;
    for (const auto* const skill : character.Skills.Held())
        AppendAll(text, text.empty() ? "" : ", ", skill->Name, "-", skill->Level);
    return text;
}

std::string BenefitsText(const CharacterRecord& character) {
    std::string text;
    for (const auto& benefit : character.Benefits.lines())
        if (!IsBlank(benefit))
            AppendAll(text, text.empty() ? "" : ", ", benefit);
    return text;
}

// A line that begins with the mark of the first term opens a row; what stands before it is in none, and the last row
// stays open.
std::string HistoryTable(const CharacterRecord& character) {
    std::string table(kHistoryTable);
    bool open = false;
    for (const auto& line : character.History.lines()) {
        if (IsBlank(line))
            continue;
        if (line.starts_with("-- Term")) {
            AppendAll(table, open ? "</td></tr>" : "", kHistoryRow);
            open = true;
        }
        AppendAll(table, line, "<br>");
    }
    return table + "</table>";
}

std::string TraitsText(const RaceRecord& race) {
    std::string text;
    for (const auto trait : std::span(race.traits).subspan(1))
        AppendAll(text, trait, " ");
    return std::string(Trim(text));
}

std::string CountText(std::string_view label, int count) {
    return count > 0 ? Concat(label, ": ", count) : std::string();
}

std::string MoneyText(const std::string& amount) {
    return "Cr" + amount;
}

void AddStanding(Replacements& page, const Session& session, std::string_view name) {
    const auto& character = session.character;
    const auto value = [&](int slot) { return int{character.Characteristic[slot]}; };
    Add(page, "HITS", Concat(value(kEnd), "/", value(kStr) + value(kDex) + value(kEnd)));
    Add(page, "SKILLS", SkillsText(character));
    Add(page, "BENEFITS", BenefitsText(character));
    Add(page, "AGE", Concat(character.Age));
    Add(page, "RANK", std::string(RankTitle(session.assignment, character.Rank)));
    Add(page, "NOTES", "Other stuff");
    Add(page, "PORTRAIT", Concat("<img src=", LettersOnly(name), ".jpg>"));
}

void AddStory(Replacements& page, const Session& session) {
    const auto& character = session.character;
    const auto debt = static_cast<double>(character.MedicalDebt);
    Add(page, "HISTORY", HistoryTable(character));
    Add(page, "CONTACTS", CountText("Contacts", character.Contacts));
    Add(page, "ALLIES", CountText("Allies", character.Allies));
    Add(page, "RIVALS", CountText("Rivals", character.Rivals));
    Add(page, "ENEMIES", CountText("Enemies", character.Enemies));
    Add(page, "DEBT", debt > 0 ? MoneyText(FormatThousands(debt)) : "");
    Add(page, "MONEY", MoneyText(FormatThousands(character.Cash)));
    Add(page, "PENSION", MoneyText(FormatThousands(character.Pension)));
    Add(page, "HOMEWORLD", HomeWorldText(character));
    Add(page, "TRAITS", TraitsText(session.race));
}

// The life in one picture; empty before it has begun.
std::string LifePicture(const Session& session) {
    static const auto look = PageLook();
    const auto strip = StripOf(session.character, session.race);
    return strip.blocks.empty() ? std::string() : DrawStrip(strip, look).svg;
}

// All tags with their values. The order counts: a value may hold a tag that comes later.
Replacements ReplacementsFor(const Session& session, std::string_view name) {
    Replacements page;
    Add(page, "NAME", std::string(name));
    AddSkillTags(page, session);
    Add(page, "ASSIGNMENT", std::string(session.assignment.assignmentDescription));
    Add(page, "RACE", std::string(session.race.name));
    AddCharacteristicTags(page, session);
    AddStanding(page, session, name);
    AddStory(page, session);
    Add(page, "FURTHER", FurtherText(session.character));
    Add(page, "LIFE", LifePicture(session));
    return page;
}

bool HasBar(std::string_view text) {
    return text.find('|') != std::string_view::npos;
}

// Where all tags have bars, a line without one holds none.
void Replace(std::string& line, const Replacements& replacements, bool allHaveBars) {
    if (allHaveBars && !HasBar(line))
        return;
    for (const auto& [tag, value] : replacements)
        if (const auto place = line.find(tag); place != std::string::npos) {
            line.replace(place, tag.size(), value);
            if (allHaveBars && !HasBar(line))
                return;
        }
}

// A text without its comments.
std::string WithoutComments(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const auto [before, comment] = SplitFirst(html, "<!--");
        text += before;
        html = SplitFirst(comment, "-->").second;
    }
    return text;
}

// The encoding that the first "meta" element with a charset declares, be it the charset's own or that of a content
// type, with or without quotation marks; empty where there is none.
std::string DeclaredCharset(std::string_view html) {
    const auto text = Upper(WithoutComments(html));
    constexpr std::string_view kAroundName = " \t\r\n\"'";
    std::string_view rest = text;
    while (!(rest = SplitFirst(rest, "<META").second).empty()) {
        const auto element = SplitFirst(rest, ">").first;
        auto value = SplitFirst(element, "CHARSET").second;
        value.remove_prefix(std::min(value.find_first_not_of(" \t\r\n"), value.size()));
        if (!value.starts_with('='))
            continue;
        value.remove_prefix(std::min(value.find_first_not_of(kAroundName, 1), value.size()));
        return std::string(value.substr(0, value.find_first_of(" \t\r\n\"';/")));
    }
    return {};
}

// Browsers take these for Windows-1252 too.
bool MeansWindows1252(std::string_view charset) {
    constexpr std::array<std::string_view, 17> kNames = {
        "ANSI_X3.4-1968", "ASCII",        "CP1252",   "CP819",      "CSISOLATIN1",     "IBM819", "ISO-8859-1",
        "ISO-IR-100",     "ISO8859-1",    "ISO88591", "ISO_8859-1", "ISO_8859-1:1987", "L1",     "LATIN1",
        "US-ASCII",       "WINDOWS-1252", "X-CP1252"};
    return std::ranges::find(kNames, charset) != kNames.end();
}

}  // namespace

PageTemplate ReadTemplate(const HeldPath& path) {
    const auto bytes = ReadBytes(NativePath(path), "a template");
    const auto text = DecodeText(bytes);
    const auto lines = SplitAll(text, '\n');
    auto encoding = EncodingOf(bytes);
    // Where no letter tells, the template's own word does.
    const bool ascii = std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (ascii && MeansWindows1252(DeclaredCharset(text)))
        encoding = Encoding::Windows1252;
    return {{lines.begin(), lines.end()}, encoding};
}

Names TemplateNames(const HeldPath& dataLocation) {
    auto names = ListFiles(dataLocation);
    std::erase_if(names, [](const std::string& name) {
        return !BeginsIgnoringCase(name, "template") || !EndsIgnoringCase(name, ".htm");
    });
    return names;
}

std::vector<std::string> TagsOfPages(const MasterSkills& skills) {
    Session session(DataFolder(HeldPath("")), {});
    session.masterSkills = skills;
    session.race.characteristicCount = kMostCharacteristics;
    std::vector<std::string> tags;
    for (auto& replacement : ReplacementsFor(session, {}))
        tags.push_back(std::move(replacement.tag));
    return tags;
}

std::vector<std::string> FillTemplate(const std::vector<std::string>& lines, const Session& session,
                                      std::string_view name) {
    const auto replacements = ReplacementsFor(session, name);
    const bool all_have_bars = std::ranges::all_of(replacements, HasBar, &Replacement::tag);
    auto page = lines;
    for (auto& line : page)
        Replace(line, replacements, all_have_bars);
    return page;
}

std::string Page(const PageTemplate& form, const Session& session, std::string_view name) {
    std::string text;
    for (const auto& line : FillTemplate(form.lines, session, name))
        AppendAll(text, line, "\n");
    text.pop_back();  // what follows the last line end was a line too
    return EncodeText(text, form.encoding);
}

}  // namespace korvane
