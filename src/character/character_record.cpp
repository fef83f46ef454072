#include "character/character_record.h"

#include <algorithm>
#include <utility>

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

void CharacterRecord::Clear() {
    static_cast<CharacterNumbers&>(*this) = {};
    for (int i = 0; i <= kMostCharacteristics; ++i)
        CharacteristicName[i].clear();
    CareersServed.Clear();
    Benefits.Clear();
    History.Clear();
    for (auto& skill : Skills) {
        skill.Name.clear();
        skill.Level = 0;
    }
    UniversitySubject.clear();
    HomeWorld.clear();
}

int ModifierOf(int value) {
    constexpr std::array<signed char, 24> kModifiers = {-3, -2, -2, -1, -1, 0, 0, 0, 0, 1, 1, 1,
                                                        2,  2,  2,  3,  3,  3, 4, 4, 4, 5, 5, 5};
    const auto place = static_cast<std::size_t>(value);
    return place < kModifiers.size() ? kModifiers[place] : 0;  // a negative value is a huge place
}

void RecomputeCharacteristicDMs(CharacterRecord& character) {
    const int count = character.CharacteristicCount;
    for (int i = 1; i <= count; ++i)
        character.CharacteristicDM[i] = ModifierOf(character.Characteristic[i]);
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
    for (int i = 1; i <= kMostSkills; ++i)
        if (!IsBlank(character.Skills[static_cast<std::size_t>(i)].Name))
            held.push_back(&character.Skills[static_cast<std::size_t>(i)]);
    return held;
}

const Skill* FindSkill(const CharacterRecord& character, std::string_view name) {
    const auto place = std::find_if(character.Skills.begin() + 1, character.Skills.end(),
                                    [&](const Skill& skill) { return skill.Name == name; });
    return place == character.Skills.end() ? nullptr : &*place;
}

Skill* FindSkill(CharacterRecord& character, std::string_view name) {
    const auto place = std::find_if(character.Skills.begin() + 1, character.Skills.end(),
                                    [&](const Skill& skill) { return skill.Name == name; });
    return place == character.Skills.end() ? nullptr : &*place;
}

Skill* FreeSkillSlot(CharacterRecord& character) {
    const auto place = std::find_if(character.Skills.begin() + 1, character.Skills.end(),
                                    [](const Skill& skill) { return IsBlank(skill.Name); });
    return place == character.Skills.end() ? nullptr : &*place;
}

}  // namespace korvane
