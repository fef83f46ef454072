#include "skills/grant.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "character/summary.h"
#include "data/rule_row.h"
#include "skills/any_skill.h"
#include "skills/choice.h"

namespace korvane {

namespace {

constexpr std::string_view kTitle = "Select a Skill";
constexpr int kSkillCap = 4;
constexpr int kCharacteristicCap = 15;

enum class Mode { Add, Set };

// A skill string taken apart.
struct Gain {
    std::string_view text;
    std::string_view name;
    Count level = 1;
    Mode mode = Mode::Add;
    std::optional<int> most = {};  // the level above which this gain raises nothing
};

// The side of the first " or " that the choice gives. The number is taken as it stands: drawn, it counts from 0, so the
// side that was drawn is the one that isn't taken.
std::string_view ResolveOr(Session& session, std::string_view text) {
    const auto [before, after] = SplitFirst(text, " or ");
    const std::array<std::string_view, 2> sides = {Trim(before), Trim(after)};
    // A slash in a side parts it again: the question shows all, and any but the first is the second side.
    std::vector<std::string_view> alternatives;
    for (const auto side : sides)
        for (const auto alternative : SplitAll(side, '/'))
            alternatives.push_back(alternative);
    return ChooseOption(session, kTitle, alternatives) == 1 ? sides[0] : sides[1];
}

// Which of the marks of the grammar a text holds: most hold one or none, and nothing else needs to be looked for.
struct Marks {
    bool blank = false;
    bool slash = false;
    bool plus = false;
    bool equals = false;
    bool minus = false;

    explicit Marks(std::string_view text) {
        for (const char c : text) {
            blank |= c == ' ';
            slash |= c == '/';
            plus |= c == '+';
            equals |= c == '=';
            minus |= c == '-';
        }
    }
};

std::string_view ResolveAlternatives(Session& session, std::string_view text) {
    const Marks marks(text);
    if (marks.blank && text.find(" or ") != std::string_view::npos)
        return ResolveOr(session, text);
    return marks.slash ? Choose(session, kTitle, SplitAll(text, '/')).text : text;
}

// Raises the characteristic that a text with "+" names. Returns whether there is one.
bool RaiseCharacteristic(Session& session, std::string_view text) {
    auto& character = session.character;
    const auto name = FirstCharacters(text, 3);
    const int slot = CharacteristicSlot(character, name);
    if (slot == 0) {
        Tell(session, Concat("Stat ", name, "not found"));
        return false;
    }
    const auto amount = LenientCount(AfterCharacters(text, 5));
    auto& value = character.Characteristic[slot];
    value += amount;
    value = std::min<int>(value, kCharacteristicCap);
    AddHistory(session, name, " +", amount);
    ShowSummary(session);
    return true;
}

Gain TakeApart(std::string_view text, const Marks& marks) {
    if (!marks.equals && !marks.minus)
        return {text, text};
    const auto mark = text.find(marks.equals ? '=' : '-');
    const auto mode = marks.equals ? Mode::Set : Mode::Add;
    return {text, text.substr(0, mark), StrictCount(text.substr(mark + 1)), mode};
}

const Speciality* SpecialitiesOf(const RaceRecord& race, std::string_view name) {
    const auto row = std::ranges::find(race.specialities, name, &Speciality::skill);
    return row == race.specialities.end() ? nullptr : &*row;
}

// Whether a level may be added to what is held of a name, by a raise that stops at `most`.
bool IsBelow(const CharacterRecord& character, std::string_view name, int most) {
    const auto* const held = character.Skills.Find(name);
    return held == nullptr || held->Level < most;
}

std::string_view ChooseSpeciality(Session& session, const Speciality& row, std::optional<int> most) {
    std::array<std::string_view, kMostSpecialities + 1> alternatives;
    std::size_t count = 0;
    const auto add = [&](std::string_view speciality) {
        if (!most || IsBelow(session.character, Concat(row.skill, " (", speciality, ")"), *most))
            alternatives.at(count++) = speciality;
    };
    for (const auto speciality : row.list)
        if (!speciality.empty())
            add(speciality);
    add(kPickLater);
    return CarryOutRow(session.race.source, row.skill, [&] {
        return Choose(session, Concat("Select Specialty for ", row.skill), std::span(alternatives).first(count)).text;
    });
}

// Whether the cap lets a gain through.
enum class Verdict { Granted, Refused };

Verdict ImproveHeld(Session& session, Count& level, const Gain& gain) {
    if (gain.mode == Mode::Set) {
        if (level >= gain.level) {
            AddHistory(session, "Skill ", gain.text, " already held");
            return Verdict::Granted;
        }
        level = gain.level;
    } else {
        const Count sum = level + gain.level;
        if (session.options[Option::CapSkillsAt4] && sum > kSkillCap)
            return Verdict::Refused;
        level = sum;
    }
    AddHistory(session, gain.name, "-", level);
    return Verdict::Granted;
}

void HoldNew(Session& session, const Gain& gain) {
    if (session.character.Skills.Take(gain.name, gain.level))
        AddHistory(session, gain.name, "-", gain.level);
}

// The skill that stands in for a raise that the cap refused; nothing when the player picks none, or when, in automatic
// mode, the one picked is refused too.
std::optional<std::string_view> ReplacementFor(Session& session, std::string_view name, bool isReplacement) {
    if (!session.Automatic())
        Tell(session, Concat("Skill ", name, " already at the max of 4. Select something else:"));
    else if (isReplacement)
        return std::nullopt;
    return SelectReplacementSkill(session);
}

// `fullName` holds the name of a skill that becomes a speciality.
Verdict GainSkill(Session& session, Gain& gain, std::string& fullName) {
    if (gain.level > 0)
        if (const auto* const row = SpecialitiesOf(session.race, gain.name)) {
            AppendAll(fullName, gain.name, " (", ChooseSpeciality(session, *row, gain.most), ")");
            session.character.Skills.Free(gain.name);  // it is no longer held bare; its level stays in the slot
            gain.name = fullName;
        }
    if (auto* const level = session.character.Skills.LevelOf(gain.name))
        return ImproveHeld(session, *level, gain);
    HoldNew(session, gain);
    return Verdict::Granted;
}

// Shows what a grant has changed.
void ShowGains(Session& session) {
    session.seams.display->SkillsChanged();
    ShowSummary(session);
}

// Carries out a text whose alternatives are resolved, and, while the cap refuses it, what replaces it.
void GrantResolved(Session& session, std::string_view text) {
    std::optional<std::string_view> next = text;
    for (bool is_replacement = false; next; is_replacement = true) {
        const Marks marks(*next);
        if (marks.plus && RaiseCharacteristic(session, *next))
            return;
        auto gain = TakeApart(*next, marks);
        std::string full_name;
        const auto verdict = GainSkill(session, gain, full_name);
        next = verdict == Verdict::Refused ? ReplacementFor(session, gain.name, is_replacement) : std::nullopt;
    }
    ShowGains(session);
}

// A skill without the level that stands behind it. The mark of a level may be part of a name: "Engineer (M-Drive)".
std::string_view WithoutLevel(std::string_view skill) {
    const auto mark = skill.find_last_of("=-");
    const bool has_level = mark != std::string_view::npos && mark > 0 &&
                           skill.substr(mark + 1).find_first_not_of(" 0123456789") == std::string_view::npos;
    return Trim(has_level ? skill.substr(0, mark) : skill);
}

}  // namespace

std::vector<std::string_view> SkillsIn(std::string_view text) {
    std::vector<std::string_view> skills;
    for (bool more = true; more;) {
        more = text.find(" or ") != std::string_view::npos;
        const auto [side, rest] = SplitFirst(text, " or ");
        for (const auto part : SplitAll(side, '/')) {
            const auto skill = WithoutLevel(Trim(part));
            const bool is_name = skill.find_first_not_of(" -=") != std::string_view::npos;
            if (is_name && part.find('+') == std::string_view::npos && std::ranges::find(skills, skill) == skills.end())
                skills.push_back(skill);
        }
        text = rest;
    }
    return skills;
}

void TrainSkill(Session& session, std::string_view text) {
    const auto skills = SkillsIn(text);
    if (skills.empty())
        return;
    const std::string name(skills.size() == 1 ? skills.front() : Choose(session, kTitle, skills).text);
    Gain gain{name, name, 0};
    std::string full_name;
    GainSkill(session, gain, full_name);
    ShowGains(session);
}

bool MayRaiseSkill(const Session& session, std::string_view name, int most) {
    const auto* const row = SpecialitiesOf(session.race, name);
    if (row == nullptr)
        return IsBelow(session.character, name, most);
    const auto below = [&](std::string_view speciality) {
        return IsBelow(session.character, Concat(name, " (", speciality, ")"), most);
    };
    return below(kPickLater) || std::ranges::any_of(row->list, [&](std::string_view speciality) {
               return !speciality.empty() && below(speciality);
           });
}

std::string RaiseSkill(Session& session, std::string_view name, int most) {
    Gain gain{name, name, 1, Mode::Add, most};
    std::string full_name;
    GainSkill(session, gain, full_name);
    ShowGains(session);
    return std::string(gain.name);
}

void GrantSkill(Session& session, std::string_view text) {
    const std::string held(text);  // it may be the text of the last choice, which a question replaces
    GrantResolved(session, ResolveAlternatives(session, held));
}

void GrantSkillOf(Session& session, std::string_view& field) {
    if (field.find(" or ") == std::string_view::npos) {
        GrantSkill(session, field);
        return;
    }
    field = ResolveOr(session, field);
    GrantResolved(session, field);
}

}  // namespace korvane
