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
    std::optional<MarkKind> mark = {};
};
constexpr std::array<Beginning, 28> kBeginnings = {{{"Promoted to ", StoryKind::Promotion, MarkKind::Promotion},
                                                    {"Commissioned", StoryKind::Promotion, MarkKind::Promotion},
                                                    {"Graduated", StoryKind::Promotion},
                                                    {kImprisoned, StoryKind::Prison, MarkKind::Prison},
                                                    {kReleased, StoryKind::Prison, MarkKind::Release},
                                                    {kEscaped, StoryKind::Prison, MarkKind::Release},
                                                    {"Nearly Killed", StoryKind::Injury, MarkKind::Injury},
                                                    {"Severely Injured", StoryKind::Injury, MarkKind::Injury},
                                                    {"Lost Eye or Limb", StoryKind::Injury, MarkKind::Injury},
                                                    {"Scarred", StoryKind::Injury, MarkKind::Injury},
                                                    {"Injured", StoryKind::Injury, MarkKind::Injury},
                                                    {"Lightly Injured", StoryKind::Injury, MarkKind::Injury},
                                                    {"Ally: ", StoryKind::Gain, MarkKind::Friend},
                                                    {"Contact: ", StoryKind::Gain, MarkKind::Friend},
                                                    {"Pension ", StoryKind::Gain},
                                                    {"Enemy: ", StoryKind::Loss, MarkKind::Foe},
                                                    {"Rival: ", StoryKind::Loss, MarkKind::Foe},
                                                    {"Contact betrays you", StoryKind::Loss, MarkKind::Foe},
                                                    {"Ally betrays you", StoryKind::Loss, MarkKind::Foe},
                                                    {"Enemy from nowhere", StoryKind::Loss, MarkKind::Foe},
                                                    {"Rival from nowhere", StoryKind::Loss, MarkKind::Foe},
                                                    {"Ejected from ", StoryKind::Loss},
                                                    {"Rejected", StoryKind::Loss},
                                                    {"Betrayed by ", StoryKind::Loss},
                                                    {"Riot! Injured", StoryKind::Loss},
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
    return line.substr(mark + 1).find_first_not_of("0123456789") == std::string_view::npos;
}

// What a line is by its beginning; nothing where that doesn't tell.
const Beginning* BeginningOf(std::string_view line) {
    const auto* const known =
        std::ranges::find_if(kBeginnings, [&](const Beginning& each) { return line.starts_with(each.text); });
    return known == kBeginnings.end() ? nullptr : known;
}

StoryKind KindByForm(std::string_view line) {
    // The texts of the tables are sentences, or longer than what the rules write.
    constexpr std::size_t kLong = 48;
    constexpr std::string_view kEnds = ".!?";
    if (line.find(" reduced by ") != std::string_view::npos || line.ends_with("medical debt incurred"))
        return StoryKind::Loss;
    if (IsGain(line))
        return StoryKind::Gain;
    const bool is_sentence = !line.empty() && kEnds.find(line.back()) != std::string_view::npos;
    return is_sentence || line.size() > kLong ? StoryKind::Prose : StoryKind::Note;
}

StoryLine Classified(std::string_view line) {
    if (IsTerm(line))
        return {StoryKind::Term, {}, {}, {}};
    if (const auto* const known = BeginningOf(line))
        return {known->kind, known->mark, {}, {}};
    return {KindByForm(line), {}, {}, {}};
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
    return Classified(line).kind;
}

std::vector<StoryLine> StoryOf(const CharacterRecord& character, const RaceRecord& race) {
    std::vector<StoryLine> story;
    const auto benefits = character.Benefits.lines();
    std::string career;
    int terms = 0;
    for (const auto& line : character.History.lines()) {
        auto told = Classified(line);
        if (told.kind == StoryKind::Note && std::ranges::find(benefits, line) != benefits.end())
            told.kind = StoryKind::Gain;
        if (told.kind == StoryKind::Term) {
            ++terms;
            told.heading = Concat("Term ", terms, ", age ", race.startingAge + (terms - 1) * race.termYears,
                                  career.empty() ? "" : ", ", career);
        }
        told.career = CareerIn(line, character);
        if (!told.career.empty())
            career = told.career;
        story.push_back(std::move(told));
    }
    return story;
}

}  // namespace korvane
