#include "skills/modifiers.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "base/text.h"
#include "skills/any_skill.h"

namespace korvane {

namespace {

// The name without its speciality.
std::string_view BareName(std::string_view name) {
    return SplitFirst(name, " (").first;
}

// The best level among the held specialities of a bare name; nothing when none is held.
std::optional<int> BestSpeciality(const CharacterRecord& character, std::string_view bare) {
    std::optional<int> best;
    for (const auto& skill : character.Skills.all())
        if (skill.Name.size() > bare.size() && BareName(skill.Name) == bare)
            best = std::max<int>(best.value_or(skill.Level), skill.Level);
    return best;
}

int UnskilledModifier(const CharacterRecord& character) {
    constexpr int kUnskilled = -3;
    const auto* const jack = character.Skills.Find(kJackOfAllTrades);
    return jack == nullptr ? kUnskilled : std::min(kUnskilled + jack->Level, 0);
}

}  // namespace

int SkillModifier(const CharacterRecord& character, std::string_view name) {
    if (const auto* const held = character.Skills.Find(name); held != nullptr && !IsBlank(name))
        return held->Level;
    const auto bare = BareName(name);
    const auto speciality = BestSpeciality(character, bare);
    if (bare == name)
        return speciality.value_or(UnskilledModifier(character));
    return speciality || character.Skills.Find(bare) != nullptr ? 0 : UnskilledModifier(character);
}

int BestSkillModifier(Session& session, std::span<const std::string_view> names) {
    int best = std::numeric_limits<int>::min();
    for (const auto name : names)
        if (const int modifier = SkillModifier(session.character, name); modifier > best) {
            best = modifier;
            session.choice.PickText = name;
        }
    return best;
}

}  // namespace korvane
