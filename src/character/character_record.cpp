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
    ++count_;
}

void CharacterRecord::Clear() {
    static_cast<CharacterNumbers&>(*this) = {};
    for (int i = 0; i <= kMostCharacteristics; ++i)
        CharacteristicName[i].clear();
    CareersServed.Clear();
    Benefits.Clear();
    History.Clear();
    Skills.Clear();
    UniversitySubject.clear();
    for (auto& fact : HomeWorld)
        fact.clear();
    Education.clear();
    AcademyService.clear();
    Connections.clear();
    SkillPackage.clear();
    LeftOpen.Clear();
    Luck = {};
    TermStarts.clear();
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

}  // namespace korvane
