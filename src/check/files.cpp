#include "check/files.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/text.h"
#include "engine/benefits.h"
#include "engine/codes/chains.h"

namespace korvane::check {

namespace {

Piece LineOf(const TextFile& file, int line) {
    const auto text = file.line(line);
    return {line, text, text};
}

bool IsHeading(const TextFile& file, int line) {
    return line <= file.lines() && file.line(line).starts_with('[');
}

// Whether the headings stand in their lines, and the file has as many lines as it should. Tells where not, once.
bool IsAligned(Report& report, const TextFile& file, std::span<const int> headings, int lines) {
    int wrong = 0;
    for (const int heading : headings)
        if (wrong == 0 && !IsHeading(file, heading))
            wrong = heading;
    const auto is_one = [&](int line) { return std::ranges::find(headings, line) != headings.end(); };
    int stray = 0;
    for (int line = 1; line <= std::min(file.lines(), lines) && stray == 0; ++line)
        if (IsHeading(file, line) && !is_one(line))
            stray = line;
    if (wrong > 0 && stray > 0) {
        const bool missing = stray < wrong;
        report.Add("heading", stray, 1,
                   Concat("the heading \"", file.line(stray), "\" belongs into line ", wrong, ": ",
                          missing ? "a line is missing" : "a line is too many", " before it"),
                   file.line(stray));
        return false;
    }
    if (file.lines() < lines) {
        report.Add("lines", std::max(file.lines(), 1), 1,
                   Concat("the file ends after ", file.lines(), " lines; it has ", lines));
        return false;
    }
    for (int line = lines + 1; line <= file.lines(); ++line)
        if (!IsBlank(file.line(line))) {
            report.Add("lines-after", line, 1, Concat("nothing is read after line ", lines), file.line(line));
            break;
        }
    return true;
}

// What follows a label; nothing where the label is another, which is told.
std::optional<Piece> AfterLabel(Report& report, const TextFile& file, int line, std::string_view label) {
    const auto text = file.line(line);
    if (!text.starts_with(label)) {
        report.Add("label", line, 1, Concat("the line begins with \"", label, "\""), text);
        return std::nullopt;
    }
    return Piece{line, text, text.substr(label.size())};
}

void CheckCommission(Report& report, const Piece& value, const Known& known) {
    constexpr std::size_t kKept = 5;
    const auto text = value.text;
    if (text == "No")
        return;
    if (EqualsIgnoringCase(Trim(text), "No") || text == "No.")
        return Add(report, "commission", value, "a career without commissions says \"No\", exactly so");
    if (text == "None" || text == "-" || IsBlank(text))
        return Add(report, "commission", value, "a career without commissions says \"No\"");
    if (CharacterCount(text) > kKept)
        return Add(report, "commission", value,
                   Concat("only five characters are kept: \"", FirstCharacters(text, kKept), "\""));
    CheckRolledCheck(report, value, known, kKept);
}

void CheckCash(Report& report, const TextFile& file) {
    constexpr int kMostCash = 1'000'000'000;
    for (int line = 5; line <= 11; ++line)
        CheckNumber(report, LineOf(file, line), "number", 0, kMostCash);
}

void CheckBenefits(Report& report, const TextFile& file, const Known& known) {
    const auto benefits = KnownBenefits();
    for (int line = 13; line <= 19; ++line) {
        const auto piece = LineOf(file, line);
        const auto text = piece.text;
        if (IsBlank(text)) {
            Add(report, "text-missing", piece, "a benefit has no text");
            continue;
        }
        if (std::ranges::find(benefits, text) != benefits.end())
            continue;
        if (text.find('+') != std::string_view::npos && text.size() < 8) {
            CheckSkillRow(report, piece, known);
            continue;
        }
        const auto skill = SplitFirst(text, "=").first;
        if (text.find('=') != std::string_view::npos || std::ranges::find(known.skills, skill) != known.skills.end()) {
            Add(report, "benefit", piece,
                Concat("\"", text, "\" is only written down: a benefit brings no skill by its name"));
            continue;
        }
        const auto near = Nearest(text, benefits);
        const bool is_slip = near.size() > 5 && EqualsIgnoringCase(FirstCharacters(text, 3), FirstCharacters(near, 3));
        if (is_slip)
            Add(report, "benefit", piece, Concat("\"", text, "\" is only written down; did you mean \"", near, "\"?"));
    }
}

void CheckSkillTables(Report& report, const TextFile& file, const Known& known) {
    constexpr std::array kTitles = {20, 27, 34, 41};
    const bool has_third = file.line(kTitles[2] + 1) != "-";  // that says that there is no such table
    for (const int title : kTitles)
        for (int line = title + 1; line <= title + 6 && (has_third || title != kTitles[2]); ++line)
            CheckSkillRow(report, LineOf(file, line), known, title == kTitles.front());
    if (!has_third)
        return;
    const auto text = file.line(kTitles[2]);
    const auto bracket = text.find(']');
    const auto requirement = bracket == std::string_view::npos ? text : text.substr(bracket + 1);
    CheckRequirement(report, {kTitles[2], text, requirement}, known);
}

void CheckMedical(Report& report, const TextFile& file) {
    constexpr std::array<std::string_view, 3> kLabels = {"4-7: ", "8-11: ", "12-20: "};
    for (int i = 0; i < 3; ++i)
        if (const auto value = AfterLabel(report, file, 69 + i, kLabels.at(static_cast<std::size_t>(i))))
            CheckNumber(report, *value, "medical", 0, 100);
}

}  // namespace

void CheckCareerFile(Report& report, const TextFile& file, const Known& known, std::string_view career) {
    constexpr std::array kHeadings = {4, 12, 20, 27, 34, 41, 48, 55, 68};
    if (!IsAligned(report, file, kHeadings, 71))
        return;
    if (const auto check = AfterLabel(report, file, 2, "Qualification:"))
        CheckRolledCheck(report, *check, known);
    if (const auto value = AfterLabel(report, file, 3, "Commission:"))
        CheckCommission(report, *value, known);
    CheckCash(report, file);
    CheckBenefits(report, file, known);
    CheckSkillTables(report, file, known);
    for (int line = 49; line <= 54; ++line)
        CheckEntry(report, LineOf(file, line), codes::MishapChain(), career);
    for (int line = 57; line <= 67; ++line)  // the first event is never rolled
        CheckEntry(report, LineOf(file, line), codes::EventChain(), career);
    CheckMedical(report, file);
}

void CheckAssignmentFile(Report& report, const TextFile& file, const Known& known) {
    constexpr std::array kHeadings = {2, 5, 12, 20, 28, 35};
    if (!IsAligned(report, file, kHeadings, 41))
        return;
    if (const auto check = AfterLabel(report, file, 3, "Survive:"))
        CheckRolledCheck(report, *check, known);
    if (const auto check = AfterLabel(report, file, 4, "Advance:"))
        CheckRolledCheck(report, *check, known);
    for (int line = 6; line <= 11; ++line)
        CheckSkillRow(report, LineOf(file, line), known);
    const auto check_bonuses = [&](int first, int last) {
        for (int line = first; line <= last; ++line)
            if (const auto bonus = LineOf(file, line); bonus.text != "-" && !bonus.text.empty())
                CheckSkillRow(report, bonus, known);
    };
    check_bonuses(21, 27);
    check_bonuses(36, 41);
}

namespace {

// Walks through a race file, whose lists say how long they are.
class RaceLines {
  public:
    RaceLines(Report& report, const TextFile& file) : report_(report), file_(file) {}

    bool ok() const { return ok_; }
    int line() const { return line_; }
    // The next line; an empty one, told once, at the end.
    Piece Next() {
        if (line_ >= file_.lines()) {
            if (ok_)
                report_.Add("lines", std::max(file_.lines(), 1), 1,
                            Concat("the file ends after ", file_.lines(), " lines"));
            ok_ = false;
            return {std::max(line_, 1), {}, {}};
        }
        return LineOf(file_, ++line_);
    }
    // A heading, which begins with "[". Where it doesn't stand, the count before it is wrong.
    void Heading(const Piece* count, std::string_view what) {
        if (!ok_)
            return;
        const auto heading = Next();
        if (!ok_ || heading.text.starts_with('['))
            return;
        ok_ = false;
        if (count == nullptr) {
            report_.Add("heading", heading.line, 1, Concat("a heading in brackets belongs here, for ", what),
                        heading.whole);
            return;
        }
        int next = heading.line;
        while (next <= file_.lines() && !file_.line(next).starts_with('['))
            ++next;
        int before = heading.line - 1;
        while (before > count->line && !file_.line(before).starts_with('['))
            --before;
        const int there = (before > count->line ? before : next) - count->line - 1;
        Add(report_, "count", *count,
            Concat("the count is ", count->text, ", but ", there, " lines follow before the next heading"));
    }
    // A count from 0 to `most`.
    std::optional<int> Count(Piece& count, int most) {
        count = Next();
        if (!ok_)
            return std::nullopt;
        const auto number = CheckNumber(report_, count, "count", 0, most);
        ok_ = number.has_value();
        return number;
    }

  private:
    Report& report_;
    const TextFile& file_;
    int line_ = 0;
    bool ok_ = true;
};

void CheckCharacteristic(Report& report, const Piece& line, std::vector<std::string>& before) {
    const auto text = line.text;
    const std::string name(FirstCharacters(text, 3));
    if (std::ranges::find(before, name) != before.end())
        return Add(report, "duplicate", line, Concat("the characteristic \"", name, "\" stands twice"));
    before.push_back(name);
    const auto rest = AfterCharacters(text, 3);  // " 2", " 2 +1"
    const bool has_dice = rest.size() >= 2 && rest[0] == ' ' && rest[1] >= '1' && rest[1] <= '9';
    const auto modifier = rest.size() > 3 ? rest.substr(3) : std::string_view();
    const bool has_modifier =
        modifier.empty() || ((modifier[0] == '+' || modifier[0] == '-') && modifier.size() > 1 &&
                             modifier.find_first_not_of("0123456789", 1) == std::string_view::npos);
    if (!has_dice || !has_modifier || (rest.size() > 2 && rest[2] != ' '))
        Add(report, "number", line, Concat("\"", text, R"(" is no characteristic; write "Str 2" or "Str 2 +1")"));
}

void CheckAge(Report& report, RaceLines& lines, const TextFile& file, std::string_view label) {
    const auto line = lines.Next();
    if (!lines.ok())
        return;
    if (const auto value = AfterLabel(report, file, line.line, label))
        CheckNumber(report, *value, "number", label.starts_with("Age") ? 1 : 0, 1000);
}

void CheckDraft(Report& report, const Piece& entry, const Names& careers) {
    const auto career = SplitFirst(entry.text, "/").first;
    const std::vector<std::string_view> known(careers.begin(), careers.end());
    if (std::ranges::find(known, career) == known.end())
        Add(report, "career-missing", entry,
            Concat("the race has no career \"", career, "\"", DidYouMean(career, known)));
}

void CheckPreCareer(Report& report, const Piece& option) {
    constexpr std::array<std::string_view, 2> kPlaces = {"University", "Military Academy"};
    for (const auto part : SplitAll(option.text, '/'))
        if (std::ranges::find(kPlaces, part) == kPlaces.end())
            Add(report, "pre-career", {option.line, option.whole, part},
                Concat("nothing happens at \"", part, "\"", DidYouMean(part, kPlaces)));
}

void CheckSpecialityPair(Report& report, const Piece& skill, const Piece& list, const Known& known) {
    if (!known.skills.empty() && std::ranges::find(known.skills, skill.text) == known.skills.end())
        return Add(report, "skill-unknown", skill,
                   Concat("there is no skill \"", skill.text, "\"", DidYouMean(skill.text, known.skills)));
    const auto pieces = SplitAll(list.text, '/');
    if (pieces.size() > 23)  // one more is the player's to pick later
        return Add(report, "alternatives", list,
                   Concat(pieces.size(), " specialities; a question shows at most 23 of them"));
    for (std::size_t i = 0; i < pieces.size(); ++i)
        if (std::find(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(i), pieces[i]) !=
            pieces.begin() + static_cast<std::ptrdiff_t>(i))
            return Add(report, "duplicate", {list.line, list.whole, pieces[i]},
                       Concat("the speciality \"", pieces[i], "\" stands twice"));
}

// A counted list after its heading. Gives its count, for the next heading.
template <typename Check>
Piece CheckList(RaceLines& lines, int most, const Check& check) {
    Piece count;
    const auto number = lines.Count(count, most);
    for (int i = 0; lines.ok() && number && i < *number; ++i)
        if (const auto line = lines.Next(); lines.ok()) {
            if (line.text.starts_with('['))
                return count;  // the next heading will tell
            check(line);
        }
    return count;
}

}  // namespace

void CheckRaceFile(Report& report, const TextFile& file, const Known& known, const Names& careers) {
    RaceLines lines(report, file);
    lines.Next();
    if (lines.Next(); lines.ok())
        AfterLabel(report, file, 2, "Kind:");
    lines.Heading(nullptr, "the characteristics");
    std::vector<std::string> names;
    auto count = CheckList(lines, 10, [&](const Piece& line) { CheckCharacteristic(report, line, names); });
    lines.Heading(&count, "the ages");
    for (const auto* const label : {"Age per term:", "Aging:", "Starts: "})
        CheckAge(report, lines, file, label);
    lines.Heading(nullptr, "the life events");
    for (int i = 0; lines.ok() && i < 12; ++i)
        if (const auto line = lines.Next(); lines.ok() && IsBlank(line.text))
            Add(report, "text-missing", line, "a life event has no text");
    lines.Heading(nullptr, "the background skills, after twelve life events");
    count = CheckList(lines, 20, [&](const Piece& line) { CheckSkillRow(report, line, known); });
    lines.Heading(&count, "the pre-career options");
    count = CheckList(lines, 5, [&](const Piece& line) { CheckPreCareer(report, line); });
    lines.Heading(&count, "the draft");
    count = CheckList(lines, 25, [&](const Piece& line) { CheckDraft(report, line, careers); });
    lines.Heading(&count, "the specialities");
    count = CheckList(lines, 50, [&](const Piece& line) {
        if (const auto list = lines.Next(); lines.ok())
            CheckSpecialityPair(report, line, list, known);
    });
    lines.Heading(&count, "the traits");
    count = CheckList(lines, 10, [](const Piece&) {});
    int last = file.lines();
    while (last > lines.line() && IsBlank(file.line(last)))
        --last;
    if (lines.ok() && lines.line() < last)
        Add(report, "count", count, Concat("the count is ", count.text, ", but ", last - count.line, " lines follow"));
}

void CheckMasterSkills(Report& report, const TextFile& file) {
    std::vector<std::string_view> names;
    for (int line = 1; line <= file.lines(); ++line) {
        const auto piece = LineOf(file, line);
        const auto [name, tag] = SplitFirst(piece.text, "|");
        if (piece.text.empty())
            continue;
        if (IsBlank(name) || !tag.starts_with('|') || !(tag.ends_with('|') || tag.ends_with('*')))
            Add(report, "tag", piece,
                Concat("\"", piece.text,
                       "\" is no skill with its tag; write \"Medic||MEDIC|\", or \"Art||ART*\" for one with "
                       "specialities"));
        else if (std::ranges::find(names, name) != names.end())
            Add(report, "duplicate", piece, Concat("the skill \"", name, "\" stands twice"));
        names.push_back(name);
    }
}

void CheckTemplate(Report& report, const TextFile& file, const std::vector<std::string_view>& tags) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-";
    for (int line = 1; line <= file.lines(); ++line) {
        const auto text = file.line(line);
        for (auto open = text.find('|'); open != std::string_view::npos;) {
            const auto close = text.find('|', open + 1);
            if (close == std::string_view::npos)
                break;
            const auto tag = text.substr(open, close - open + 1);
            const auto inner = tag.substr(1, tag.size() - 2);
            const bool is_tag = !inner.empty() && inner.find_first_not_of(kLetters) == std::string_view::npos;
            if (is_tag && std::ranges::find(tags, tag) == tags.end())
                Add(report, "tag", {line, text, tag}, Concat("nobody knows the tag ", tag, DidYouMean(tag, tags)));
            open = is_tag ? text.find('|', close + 1) : close;
        }
    }
}

Known KnownOf(const TextFile& file, std::vector<std::string_view> skills) {
    Known known{{}, {}, std::move(skills)};
    const int characteristics = file.lines() >= 4 ? static_cast<int>(LenientNumber(file.line(4))) : 0;
    for (int line = 5; line < 5 + std::clamp(characteristics, 0, 10) && line <= file.lines(); ++line)
        known.characteristics.emplace_back(FirstCharacters(file.line(line), 3));
    for (int line = 1; line <= file.lines(); ++line) {
        if (EqualsIgnoringCase(file.line(line), "[Specialities]")) {
            for (int pair = line + 2; pair + 1 <= file.lines() && !file.line(pair).starts_with('['); pair += 2)
                known.specialities.push_back({file.line(pair), SplitAll(file.line(pair + 1), '/')});
            break;
        }
    }
    return known;
}

}  // namespace korvane::check
