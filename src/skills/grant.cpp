#include "skills/grant.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "character/summary.h"
#include "data/rule_row.h"
#include "skills/any_skill.h"
#include "skills/choice.h"

namespace korvane {

namespace {

constexpr int kSkillCap = 4;
constexpr int kCharacteristicCap = 15;

enum class Mode { Add, Set };

// A skill string taken apart.
struct Gain {
    std::string_view text;
    std::string_view name;
    Count level = 1;
    Mode mode = Mode::Add;
};

// The side of the first " or " that the choice gives. The number is taken as it stands: drawn, it counts from 0, so the
// side that was drawn is the one that isn't taken.
std::string_view ResolveOr(Session& session, std::string_view text) {
    const auto [before, after] = SplitFirst(text, " or ");
    const auto a = Trim(before);
    const auto b = Trim(after);
    return ChooseOption(session, "Select a Skill", ScratchText(a, "/", b)) == 1 ? a : b;
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
    if (marks.slash)
        return AlternativeAt(text, ChoosePlace(session, "Select a Skill", text));
    return text;
}

// Raises the characteristic that a text with "+" names. Returns whether there is one.
bool RaiseCharacteristic(Session& session, std::string_view text) {
    auto& character = session.character;
    const auto name = FirstCharacters(text, 3);
    const int slot = CharacteristicSlot(character, name);
    if (slot == 0) {
        Tell(session, ScratchText("Stat ", name, "not found"));
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

// Asks for the speciality; the answer is left in `PickText`.
void ChooseSpeciality(Session& session, const Speciality& row) {
    ScratchText options;
    for (const auto speciality : row.list)
        if (!speciality.empty())
            options.Append(speciality, "/");
    options.Append("Pick Later");
    CarryOutRow(session.race.source, row.skill,
                [&] { ChooseOption(session, ScratchText("Select Specialty for ", row.skill), options); });
}

// A skill that became a speciality is no longer held bare; its level stays in the freed slot.
void FreeBareSkill(CharacterRecord& character, std::string_view name) {
    if (auto* const held = FindSkill(character, name))
        held->Name.clear();
}

// Whether the cap lets a gain through.
enum class Verdict { Granted, Refused };

Verdict ImproveHeld(Session& session, Skill& held, const Gain& gain) {
    if (gain.mode == Mode::Set) {
        if (held.Level >= gain.level) {
            AddHistory(session, "Skill ", gain.text, " already held");
            return Verdict::Granted;
        }
        held.Level = gain.level;
    } else {
        const Count sum = held.Level + gain.level;
        if (session.options[Option::CapSkillsAt4] && sum > kSkillCap)
            return Verdict::Refused;
        held.Level = sum;
    }
    AddHistory(session, gain.name, "-", held.Level);
    return Verdict::Granted;
}

void HoldNew(Session& session, const Gain& gain) {
    auto* const slot = TakeSkillSlot(session.character);
    if (slot == nullptr)
        return;
    slot->Name = gain.name;
    slot->Level = gain.level;
    AddHistory(session, gain.name, "-", gain.level);
}

// The skill that stands in for a raise that the cap refused; nothing when the player picks none, or when, in automatic
// mode, the one picked is refused too.
std::optional<std::string_view> ReplacementFor(Session& session, std::string_view name, bool isReplacement) {
    if (!session.Automatic())
        Tell(session, ScratchText("Skill ", name, " already at the max of 4. Select something else:"));
    else if (isReplacement)
        return std::nullopt;
    return SelectReplacementSkill(session);
}

Verdict GainSkill(Session& session, Gain& gain, std::optional<ScratchText>& full_name) {
    if (gain.level > 0)
        if (const auto* const row = SpecialitiesOf(session.race, gain.name)) {
            ChooseSpeciality(session, *row);
            FreeBareSkill(session.character, gain.name);
            gain.name = full_name.emplace(gain.name, " (", session.choice.PickText, ")");
        }
    if (auto* const held = FindSkill(session.character, gain.name))
        return ImproveHeld(session, *held, gain);
    HoldNew(session, gain);
    return Verdict::Granted;
}

// Carries out a text whose alternatives are resolved, and, while the cap refuses it, what replaces it.
void GrantResolved(Session& session, std::string_view text) {
    std::optional<std::string_view> next = text;
    for (bool is_replacement = false; next; is_replacement = true) {
        const Marks marks(*next);
        if (marks.plus && RaiseCharacteristic(session, *next))
            return;
        auto gain = TakeApart(*next, marks);
        std::optional<ScratchText> full_name;
        const auto verdict = GainSkill(session, gain, full_name);
        next = verdict == Verdict::Refused ? ReplacementFor(session, gain.name, is_replacement) : std::nullopt;
    }
    session.seams.display->SkillsChanged();
    ShowSummary(session);
}

}  // namespace

void GrantSkill(Session& session, std::string_view text) {
    GrantResolved(session, ResolveAlternatives(session, text));
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
