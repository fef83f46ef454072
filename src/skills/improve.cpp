#include "skills/improve.h"

#include <string>
#include <vector>

#include "skills/list_choice.h"

namespace korvane {

void ImproveHeldSkill(Session& session) {
    std::vector<std::string> texts;
    texts.reserve(kMostSkills);
    for (const auto& skill : session.character.Skills.all())
        if (!IsBlank(skill.Name) && !(session.options[Option::CapSkillsAt4] && skill.Level >= 4))
            texts.push_back(Concat(skill.Name, "=", skill.Level + 1));
    if (texts.empty())
        return;
    ListItems items;
    for (const auto& text : texts)
        items.Add(text);
    SelectSkillsFromList(session, 1, 1, "Select a Held Skill to improve", items);
}

}  // namespace korvane
