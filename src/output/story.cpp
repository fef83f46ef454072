#include "output/story.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "engine/prison.h"

namespace korvane {

namespace {

struct Beginning {
    std::string_view text;
    StoryKind kind;
};
constexpr std::array<Beginning, 22> kBeginnings = {{{"Promoted to ", StoryKind::Promotion},
                                                    {"Commissioned", StoryKind::Promotion},
                                                    {"Graduated", StoryKind::Promotion},
                                                    {kImprisoned, StoryKind::Prison},
                                                    {kReleased, StoryKind::Prison},
                                                    {kEscaped, StoryKind::Prison},
                                                    {"Nearly Killed", StoryKind::Injury},
                                                    {"Severely Injured", StoryKind::Injury},
                                                    {"Lost Eye or Limb", StoryKind::Injury},
                                                    {"Scarred", StoryKind::Injury},
                                                    {"Injured", StoryKind::Injury},
                                                    {"Lightly Injured", StoryKind::Injury},
                                                    {"Ally: ", StoryKind::Gain},
                                                    {"Contact: ", StoryKind::Gain},
                                                    {"Pension ", StoryKind::Gain},
                                                    {"Enemy: ", StoryKind::Loss},
                                                    {"Rival: ", StoryKind::Loss},
                                                    {"Ejected from ", StoryKind::Loss},
                                                    {"Rejected", StoryKind::Loss},
                                                    {"Failed", StoryKind::Loss},
                                                    {"Skill ", StoryKind::Note},
                                                    {"University: ", StoryKind::Note}}};

bool IsTerm(std::string_view line) {
    return line.starts_with("-- Term ") || line.starts_with("------ Term ");
}

// Whether a line is a skill or characteristic that was gained: "Admin-2", "Edu +1".
bool IsGain(std::string_view line) {
    const auto mark = line.find_last_of("-+");
    if (mark == std::string_view::npos || mark + 1 == line.size() || line.size() > 40)
        return false;
    const auto number = line.substr(mark + 1);
    return number != "0" && number.find_first_not_of("0123456789") == std::string_view::npos;
}

// The career that a line leads into, as one of those served; nothing for other lines.
std::string_view CareerIn(std::string_view line, const CharacterRecord& character) {
    for (const std::string_view beginning : {"Enlist ", "Transfer to ", "Drafted to "})
        if (line.starts_with(beginning)) {
            const auto rest = line.substr(beginning.size());
            for (const auto& career : character.CareersServed.lines())
                if (rest.starts_with(career))
                    return std::string_view(career);
            return rest.substr(0, rest.find_first_of(" /"));
        }
    return line.starts_with(kImprisoned) ? "Prisoner" : std::string_view();
}

}  // namespace

StoryKind StoryKindOf(std::string_view line) {
    constexpr std::size_t kLong = 48;  // the texts of the tables are longer than what the rules write
    if (IsTerm(line))
        return StoryKind::Term;
    const auto known =
        std::ranges::find_if(kBeginnings, [&](const Beginning& each) { return line.starts_with(each.text); });
    if (known != kBeginnings.end())
        return known->kind;
    if (line.find(" reduced by ") != std::string_view::npos || line.ends_with("medical debt incurred"))
        return StoryKind::Loss;
    if (IsGain(line))
        return StoryKind::Gain;
    return line.size() > kLong ? StoryKind::Prose : StoryKind::Note;
}

std::vector<StoryLine> StoryOf(const CharacterRecord& character, const RaceRecord& race) {
    std::vector<StoryLine> story;
    std::string career;
    int terms = 0;
    for (const auto& line : character.History.lines()) {
        StoryLine told{StoryKindOf(line), {}};
        if (told.kind == StoryKind::Term) {
            ++terms;
            told.heading = Concat("Term ", terms, ", age ", race.startingAge + (terms - 1) * race.termYears,
                                  career.empty() ? "" : ", ", career);
        }
        if (const auto next = CareerIn(line, character); !next.empty())
            career = next;
        story.push_back(std::move(told));
    }
    return story;
}

}  // namespace korvane
