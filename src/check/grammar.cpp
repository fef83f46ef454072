#include "check/grammar.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "base/text.h"
#include "character/checks.h"
#include "engine/codes/chains.h"

namespace korvane::check {

namespace {

constexpr std::size_t kMostAlternatives = 24;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsWhole(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, IsDigit);
}

// A whole number from 0 to 15: no level or characteristic is higher.
bool IsLevel(std::string_view text) {
    return IsWhole(text) && text.size() <= 2 && LenientNumber(text) <= 15;
}

// The place, from 1, of a characteristic; 0 for none.
std::size_t SlotOf(const Known& known, std::string_view name) {
    for (std::size_t i = 0; i < known.characteristics.size(); ++i)
        if (EqualsIgnoringCase(known.characteristics[i], name))
            return i + 1;
    return 0;
}

std::string ListOf(const std::vector<std::string>& names) {
    std::string list;
    for (const auto& name : names)
        AppendAll(list, list.empty() ? "" : ", ", name);
    return list;
}

// The check that counts a characteristic, with its sign in that one's place; empty where none can.
std::string CheckCounting(const Known& known, std::size_t slot, int target) {
    const auto& name = known.characteristics[slot - 1];
    const auto digits = Concat(target);
    if (slot <= 3)
        return Concat(FirstCharacters(name, slot - 1), "+", AfterCharacters(name, slot - 1), digits);
    if (slot <= 5)
        return Concat(name, slot == 5 ? " +" : "+", digits);
    if (digits.size() > slot - 5)
        return {};
    return Concat(name, " ", std::string(slot - 5 - digits.size(), '0'), digits, "+");
}

// What to write instead of a check that should count a characteristic, in at most so many characters.
std::string Advice(const Known& known, std::size_t slot, int target, std::size_t most) {
    constexpr int kUsualTarget = 6;
    const auto right = CheckCounting(known, slot, target > 0 ? target : kUsualTarget);
    if (right.empty() || CharacterCount(right) > most)
        return {};
    return Concat("; write ", right, " for ", known.characteristics[slot - 1]);
}

void CheckRaise(Report& report, const Piece& raise, const Known& known) {
    if (!known.trusted)
        return;
    const auto text = raise.text;
    const auto slot = SlotOf(known, FirstCharacters(text, 3));
    const auto rest = AfterCharacters(text, 3);
    const bool is_form = rest.starts_with(" +") && IsLevel(rest.substr(2));
    if (slot > 0 && is_form)
        return;
    const auto name = slot > 0 ? known.characteristics[slot - 1] : std::string("Str");
    Add(report, "skill-raise", raise,
        slot == 0 ? Concat("\"", text, "\" names no characteristic of the race (", ListOf(known.characteristics), ")")
                  : Concat("\"", text, "\" raises nothing; write \"", name, " +1\""));
}

// The name of a skill, without its level.
void CheckName(Report& report, const Piece& skill, const Known& known) {
    const auto [bare, rest] = SplitFirst(skill.text, " (");
    if (known.skills.empty())
        return;  // without a master list nobody knows
    if (std::ranges::find(known.skills, bare) == known.skills.end()) {
        Add(report, "skill-unknown", skill, Concat("there is no skill \"", bare, "\"", DidYouMean(bare, known.skills)));
        return;
    }
    if (rest.empty() || !known.trusted)
        return;
    const auto speciality = rest.ends_with(')') ? rest.substr(0, rest.size() - 1) : rest;
    const auto row = std::ranges::find(known.specialities, bare, &Speciality::skill);
    const Piece part{skill.line, skill.whole, speciality};
    if (row == known.specialities.end() || !rest.ends_with(')'))
        Add(report, "speciality", part, Concat("\"", bare, "\" has no speciality \"", speciality, "\" with this race"));
    else if (std::ranges::find(row->list, speciality) == row->list.end())
        Add(report, "speciality", part,
            Concat("\"", bare, "\" has no speciality \"", speciality, "\" with this race",
                   DidYouMean(speciality, row->list)));
}

// A skill or a raise, without alternatives.
void CheckOne(Report& report, const Piece& one, const Known& known, bool isBasic) {
    const auto text = one.text;
    if (text.empty()) {
        Add(report, "text-missing", one, "nothing stands here; name a skill");
        return;
    }
    if (text != Trim(text)) {
        Add(report, "skill-unknown", one, Concat("\"", text, "\" has a blank too many; write \"", Trim(text), "\""));
        return;
    }
    if (text.find('+') != std::string_view::npos)
        return CheckRaise(report, one, known);
    const bool sets = text.find('=') != std::string_view::npos;
    const auto mark = text.find(sets ? '=' : '-');
    if (mark == std::string_view::npos)
        return CheckName(report, one, known);
    const Piece level{one.line, one.whole, text.substr(mark + 1)};
    if (!IsLevel(Trim(level.text)))
        return Add(report, "skill-level", level,
                   !sets && text.find(')', mark) != std::string_view::npos
                       ? Concat(R"(the "-" in ")", text, R"(" is taken for the mark of a level; write ")", text, "=1\"")
                       : Concat("\"", level.text, "\" is no level; write a whole number up to 15"));
    if (isBasic)
        return Add(report, "basic-training", level,
                   Concat("a row of the first table has no level; write \"", text.substr(0, mark), "\""));
    CheckName(report, {one.line, one.whole, text.substr(0, mark)}, known);
}

// The careers that a code is made for, by how it begins.
struct Family {
    std::string_view prefix;
    std::array<std::string_view, 2> careers;
};
constexpr std::array<Family, 15> kFamilies = {{{"AGT", {"Agent"}},
                                               {"ARM", {"Army"}},
                                               {"CIT", {"Citizen"}},
                                               {"DRI", {"Drifter"}},
                                               {"ENT", {"Entertainer"}},
                                               {"LAW", {"Lawyer", "Citizen"}},
                                               {"MAR", {"Marine"}},
                                               {"MER", {"Merchant"}},
                                               {"NAV", {"Navy"}},
                                               {"NOB", {"Noble"}},
                                               {"PRI", {"Prisoner"}},
                                               {"ROG", {"Rogue"}},
                                               {"SCH", {"Scholar"}},
                                               {"SCI", {"Scholar"}},
                                               {"SCO", {"Scout"}}}};

// Whether the code is another career's, while this career has codes of its own.
bool IsForeign(std::string_view code, std::string_view career) {
    const auto is_of = [&](const Family& family) {
        return std::ranges::find(family.careers, career) != family.careers.end();
    };
    const auto family =
        std::ranges::find_if(kFamilies, [&](const Family& each) { return code.starts_with(each.prefix); });
    return family != kFamilies.end() && !is_of(*family) && std::ranges::any_of(kFamilies, is_of);
}

std::vector<std::string_view> CodesOf(const codes::Chain& chain) {
    std::vector<std::string_view> known;
    for (const auto& row : chain.rows())
        known.push_back(row.code);
    return known;
}

void CheckCode(Report& report, const Piece& code, const codes::Chain& chain, std::string_view career) {
    const auto known = CodesOf(chain);
    const auto& other = &chain == &codes::MishapChain() ? codes::EventChain() : codes::MishapChain();
    const auto others = CodesOf(other);
    const auto holds = [&](const auto& list, std::string_view name) {
        return std::ranges::find(list, name) != list.end();
    };
    if (holds(known, code.text)) {
        if (IsForeign(code.text, career))
            Add(report, "code-foreign", code, Concat(code.text, " is a code of another career than ", career));
        return;
    }
    const auto upper = Upper(code.text);
    if (holds(known, upper))
        Add(report, "code-unknown", code, Concat("codes are written in capitals: ", upper));
    else if (holds(others, upper))
        Add(report, "code-unknown", code,
            Concat(upper, " is a code of ", other.name(), "s and does nothing in a table of ", chain.name(), "s"));
    else
        Add(report, "code-unknown", code,
            Concat("there is no code ", code.text, " of ", chain.name(), "s", DidYouMean(code.text, known)));
}

// Whether what follows a "/" looks like a text that goes on, not like codes.
bool LooksLikeText(std::string_view rest) {
    return rest.find_first_of(",.;") != std::string_view::npos ||
           std::ranges::count_if(rest, [](char c) { return c >= 'a' && c <= 'z'; }) > 20;
}

}  // namespace

void CheckSkillRow(Report& report, const Piece& row, const Known& known, bool isBasic) {
    const auto text = row.text;
    const auto or_place = text.find(" or ");
    const auto slash = text.find('/');
    if (or_place == std::string_view::npos && slash == std::string_view::npos)
        return CheckOne(report, row, known, isBasic);
    if (isBasic)
        return Add(report, "basic-training", {row.line, row.whole, text.substr(std::min(or_place, slash))},
                   "a row of the first table has no alternatives; name one skill");
    if (or_place != std::string_view::npos) {
        const auto second = text.substr(or_place + 4);
        CheckOne(report, {row.line, row.whole, text.substr(0, or_place)}, known, false);
        if (second.find(" or ") != std::string_view::npos || second.find('/') != std::string_view::npos)
            return Add(report, "alternatives", {row.line, row.whole, second},
                       R"(" or " joins two skills; write more of them with "/" alone)");
        return CheckOne(report, {row.line, row.whole, second}, known, false);
    }
    const auto parts = SplitAll(text, '/');
    if (parts.size() > kMostAlternatives)
        return Add(report, "alternatives", row,
                   Concat(parts.size(), " alternatives; a question shows at most ", kMostAlternatives));
    for (const auto part : parts)
        CheckOne(report, {row.line, row.whole, part}, known, false);
}

void CheckRolledCheck(Report& report, const Piece& check, const Known& known, std::size_t most) {
    constexpr std::size_t kMostPlaces = 10;
    if (!known.trusted)
        return;
    const auto text = check.text;
    if (text.starts_with(' '))
        return Add(report, "check-form", check,
                   Concat("a blank before the check moves all its places; write \"", Trim(text), "\""));
    std::string letters;
    std::ranges::copy_if(text, std::back_inserter(letters), [](char c) { return !IsDigit(c) && c != '+' && c != ' '; });
    const auto slot = SlotOf(known, letters);
    if (slot == 0)
        return Add(report, "check-characteristic", check,
                   Concat("the race has no characteristic \"", letters, "\"; it has ", ListOf(known.characteristics)));
    const auto place = CharacterPosition(text, '+');
    const int target = CheckTarget(text);
    const auto advice = Advice(known, slot, target, most);
    if (place == 0)
        return Add(report, "check-form", check, Concat("without a \"+\" no modifier counts", advice));
    const Piece sign{check.line, check.whole, text.substr(text.find('+'))};
    if (place > kMostPlaces)
        return Add(report, "check-form", sign, Concat("a \"+\" beyond the tenth place stops the life", advice));
    if (target <= 0)
        return Add(report, "check-form", check, Concat("no target begins at the fifth character", advice));
    if (place > known.characteristics.size())
        return Add(report, "check-counts-other", sign,
                   Concat("the \"+\" stands in place ", place, ", where the race has no characteristic", advice));
    if (place != slot)
        Add(report, "check-counts-other", sign, Concat("counts ", known.characteristics[place - 1], advice));
}

void CheckRequirement(Report& report, const Piece& title, const Known& known) {
    if (!known.trusted)
        return;
    const auto text = title.text;
    const auto rest = AfterCharacters(text, 3);
    const auto number = rest.substr(rest.starts_with(' ') ? 1 : 0);
    const auto digits = number.ends_with('+') ? number.substr(0, number.size() - 1) : number;
    if (SlotOf(known, FirstCharacters(text, 3)) == 0 || !rest.starts_with(' ') || !IsWhole(digits))
        Add(report, "title", title,
            Concat("\"", text, R"(" is no requirement; write a characteristic and a number, as "Edu 8+")"));
}

void CheckEntry(Report& report, const Piece& entry, const codes::Chain& chain, std::string_view career) {
    const auto [text, rest] = SplitFirst(entry.text, "/");
    if (IsBlank(text))
        Add(report, "text-missing", entry, "the entry has no text");
    if (text.size() == entry.text.size()) {
        const auto last = text.substr(text.find_last_of(" .\\") + 1);
        if (const auto known = CodesOf(chain); std::ranges::find(known, last) != known.end())
            Add(report, "code-unknown", {entry.line, entry.whole, last},
                Concat(last, " is only a word here; codes stand behind a \"/\""));
        return;
    }
    const Piece behind{entry.line, entry.whole, entry.text.substr(text.size())};
    if (rest.find('/') != std::string_view::npos || LooksLikeText(rest))
        return Add(report, "slash", behind, "the text ends at this \"/\", and what follows is taken for codes");
    if (IsBlank(rest))
        return Add(report, "code-unknown", behind, "no code follows the \"/\"; leave it out");
    constexpr int kMostCodes = 20;
    int codes = 0;
    for (const auto word : SplitAll(rest, ' '))
        if (!word.empty() && ++codes <= kMostCodes)
            CheckCode(report, {entry.line, entry.whole, word}, chain, career);
}

std::optional<int> CheckNumber(Report& report, const Piece& number, std::string_view kind, int least, int most) {
    int value = 0;
    const auto text = number.text;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (IsWhole(text) && read.ec == std::errc() && value >= least && value <= most)
        return value;
    Add(report, kind, number,
        Concat("\"", text, "\" is no whole number from ", least, " to ", most, " in digits alone"));
    return std::nullopt;
}

}  // namespace korvane::check
