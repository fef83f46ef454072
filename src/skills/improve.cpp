#include "skills/improve.h"

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>
#include <vector>

#include "base/text.h"
#include "skills/list_choice.h"

namespace korvane {

void ImproveHeldSkill(Session& session) {
    std::array<std::byte, 8192> room;
    std::pmr::monotonic_buffer_resource arena(room.data(), room.size());
    std::pmr::vector<std::pmr::string> texts(&arena);
    texts.reserve(kMostSkills);
    for (const auto& skill : session.character.Skills)
        if (!IsBlank(skill.Name) && !(session.options[Option::CapSkillsAt4] && skill.Level >= 4))
            AppendAll(texts.emplace_back(), skill.Name, "=", skill.Level + 1);
    if (texts.empty())
        return;
    ListItems items;
    for (const auto& text : texts)
        items.Add(text);
    SelectSkillsFromList(session, 1, 1, "Select a Held Skill to improve", items);
}

}  // namespace korvane
