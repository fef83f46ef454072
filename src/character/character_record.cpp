#include "character/character_record.h"

#include <algorithm>
#include <span>

namespace korvane {

std::string& TextList::Next() {
    if (count_ == lines_.size())
        lines_.emplace_back();
    lines_[count_].clear();
    return lines_[count_];
}

void TextList::Add(std::string_view line) {
    Next() = line;
    Keep();
}

namespace {

void ClearSlot(Skill& skill) {
    skill.Name.clear();
    skill.Level = 0;
}

// The slots that have ever been taken.
template <typename Record>
auto UsedSlots(Record& character) {
    return std::span(character.Skills).subspan(1, static_cast<std::size_t>(character.SkillSlotsUsed));
}

// The first slot of that name among those taken, or, for the empty name, the first beyond them.
template <typename Record>
auto* FindSlot(Record& character, std::string_view name) {
    auto used = UsedSlots(character);
    const auto place = std::ranges::find(used, name, &Skill::Name);
    if (place != used.end())
        return &*place;
    const auto next = static_cast<std::size_t>(character.SkillSlotsUsed) + 1;
    return name.empty() && next < character.Skills.size() ? &character.Skills[next] : nullptr;
}

}  // namespace

void CharacterRecord::Clear() {
    static_cast<CharacterNumbers&>(*this) = {};
    for (int i = 0; i <= kMostCharacteristics; ++i)
        CharacteristicName[i].clear();
    CareersServed.Clear();
    Benefits.Clear();
    History.Clear();
    // One slot more than were taken: the level of the first free one may have been raised.
    const int end = std::min(SkillSlotsUsed + 1, kMostSkills);
    for (int i = 1; i <= end; ++i)
        ClearSlot(Skills[static_cast<std::size_t>(i)]);
    SkillSlotsUsed = 0;
    UniversitySubject.clear();
    HomeWorld.clear();
}

Count ModifierOf(int value) {
    static constexpr std::array<Count, 24> kModifiers = {-3, -2, -2, -1, -1, 0, 0, 0, 0, 1, 1, 1,
                                                         2,  2,  2,  3,  3,  3, 4, 4, 4, 5, 5, 5};
    const auto place = static_cast<std::size_t>(value);
    return place < kModifiers.size() ? kModifiers[place] : Count();  // a negative value is a huge place
}

void RecomputeCharacteristicDMs(CharacterRecord& character) {
    const auto& values = character.Characteristic.all();
    auto& modifiers = character.CharacteristicDM.all();
    const auto end = static_cast<std::size_t>(std::clamp<int>(character.CharacteristicCount, 0, kMostCharacteristics));
    for (std::size_t i = 1; i <= end; ++i)
        modifiers[i] = ModifierOf(values[i]);
}

int CharacteristicSlot(const CharacterRecord& character, std::string_view name) {
    int slot = 0;
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        if (EqualsIgnoringCase(character.CharacteristicName[i], name))
            slot = i;
    return slot;
}

std::vector<const Skill*> HeldSkills(const CharacterRecord& character) {
    std::vector<const Skill*> held;
    for (const auto& skill : UsedSlots(character))
        if (!IsBlank(skill.Name))
            held.push_back(&skill);
    return held;
}

const Skill* FindSkill(const CharacterRecord& character, std::string_view name) {
    return FindSlot(character, name);
}

Skill* FindSkill(CharacterRecord& character, std::string_view name) {
    return FindSlot(character, name);
}

Skill* TakeSkillSlot(CharacterRecord& character) {
    auto used = UsedSlots(character);
    const auto freed = std::ranges::find_if(used, [](const Skill& skill) { return IsBlank(skill.Name); });
    if (freed != used.end())
        return &*freed;
    if (character.SkillSlotsUsed == kMostSkills)
        return nullptr;
    return &character.Skills[static_cast<std::size_t>(++character.SkillSlotsUsed)];
}

}  // namespace korvane
