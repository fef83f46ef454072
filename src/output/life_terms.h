// A life by its terms, and where its skills come from.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

struct LifeTerm {
    int number = 0;
    int age = 0;  // as it began; so are the career, the assignment and the rank
    std::string_view career;
    std::string_view assignment;
    int rank = 0;
    std::span<const std::string> lines;  // of the history
};
// Of the session's character. A term that the history had no room for has no lines.
std::vector<LifeTerm> TermsOf(const Session& session);

// The line that first tells of a skill, counted from 1, and its term; nothing where none does.
struct SkillOrigin {
    int term = 0;
    int line = 0;
};
std::optional<SkillOrigin> OriginOf(const Skill& skill, const CharacterRecord& character);

}  // namespace korvane
