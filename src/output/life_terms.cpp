#include "output/life_terms.h"

#include <algorithm>

#include "base/text.h"

namespace korvane {

std::vector<LifeTerm> TermsOf(const Session& session) {
    const auto& character = session.character;
    const auto history = character.History.lines();
    const auto& starts = character.TermStarts;
    std::vector<LifeTerm> terms;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const auto from = std::min(starts[i].line, history.size());
        const auto to = i + 1 < starts.size() ? std::min(starts[i + 1].line, history.size()) : history.size();
        const auto number = static_cast<int>(i) + 1;
        terms.push_back({number, session.race.startingAge + static_cast<int>(i) * session.race.termYears,
                         starts[i].career, starts[i].assignment, starts[i].rank, history.subspan(from, to - from)});
    }
    return terms;
}

std::optional<SkillOrigin> OriginOf(const Skill& skill, const CharacterRecord& character) {
    const auto history = character.History.lines();
    const auto name = Trim(skill.Name);
    const auto tells = [&](std::string_view line) {
        return line.starts_with(name) && line.substr(name.size()).starts_with('-');  // "Admin-1"
    };
    const auto line = std::ranges::find_if(history, tells);
    if (line == history.end())
        return std::nullopt;
    const auto place = static_cast<std::size_t>(line - history.begin());
    const auto terms =
        std::ranges::count_if(character.TermStarts, [&](const auto& start) { return start.line <= place; });
    return SkillOrigin{static_cast<int>(terms), static_cast<int>(place) + 1};
}

}  // namespace korvane
