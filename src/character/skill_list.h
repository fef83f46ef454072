// The skills of a character.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"

namespace korvane {

struct Skill {
    std::string Name;  // a blank name marks a free slot
    Count Level;       // of a free slot: what it was last
};

inline constexpr int kMostSkills = 55;

// The slots of the skills, in the order in which they were first gained. A slot that becomes free keeps its level until
// it is taken again.
class SkillList {
  public:
    // The slots that have ever been taken, from the first: free ones among them have blank names.
    std::span<const Skill> all() const { return {slots_.data(), used_}; }
    // The skills that are held, in slot order.
    std::vector<const Skill*> Held() const;
    // The first slot of exactly that name; nothing when there is none. The empty name finds the first free slot.
    const Skill* Find(std::string_view name) const;
    // The level of that skill, to be changed; nothing when there is none.
    Count* LevelOf(std::string_view name);
    // Makes the first slot of that name free.
    void Free(std::string_view name);
    // Puts a skill into the first free slot. Returns whether there was one.
    bool Take(std::string_view name, Count level);
    // Makes all slots free and forgets their levels.
    void Clear();

  private:
    std::array<Skill, kMostSkills> slots_;
    std::size_t used_ = 0;
};

}  // namespace korvane
