#include "character/skill_list.h"

#include <algorithm>

#include "base/text.h"

namespace korvane {

std::vector<const Skill*> SkillList::Held() const {
    std::vector<const Skill*> held;
    for (const auto& skill : all())
        if (!IsBlank(skill.Name))
            held.push_back(&skill);
    return held;
}

const Skill* SkillList::Find(std::string_view name) const {
    const auto used = all();
    const auto place = std::ranges::find(used, name, &Skill::Name);
    if (place != used.end())
        return &*place;
    return name.empty() && used_ < slots_.size() ? &slots_[used_] : nullptr;
}

Count* SkillList::LevelOf(std::string_view name) {
    const auto* const found = Find(name);
    return found == nullptr ? nullptr : &slots_[static_cast<std::size_t>(found - slots_.data())].Level;
}

void SkillList::Free(std::string_view name) {
    if (const auto* const found = Find(name))
        slots_[static_cast<std::size_t>(found - slots_.data())].Name.clear();
}

bool SkillList::Take(std::string_view name, Count level) {
    const auto used = std::span(slots_).first(used_);
    const auto slot = std::ranges::find_if(used, [](const Skill& skill) { return IsBlank(skill.Name); });
    if (slot == used.end() && used_ == slots_.size())
        return false;
    auto& taken = slot != used.end() ? *slot : slots_[used_++];
    taken.Name = name;
    taken.Level = level;
    return true;
}

void SkillList::Clear() {
    // One slot more than were taken: the level of the first free one may have been raised.
    for (auto& skill : std::span(slots_).first(std::min(used_ + 1, slots_.size()))) {
        skill.Name.clear();
        skill.Level = 0;
    }
    used_ = 0;
}

}  // namespace korvane
