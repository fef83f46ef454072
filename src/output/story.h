// A history as a story: what each line is, so that it can be shown as such.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

enum class StoryKind {
    Note,       // bookkeeping
    Term,       // the heading of a term
    Prose,      // what happened
    Gain,       // a skill, a characteristic, a friend
    Loss,       // the opposite
    Promotion,  // a rank, a commission
    Injury,
    Prison,  // into it and out of it
};
// What a picture of the life marks.
enum class MarkKind { Promotion, Injury, Prison, Release, Friend, Foe };
inline constexpr int kMarkKinds = 6;

struct StoryLine {
    StoryKind kind = StoryKind::Note;
    std::optional<MarkKind> mark;
    std::string heading;  // of a term: "Term 3, age 26, Navy"
    std::string career;   // the one that the line leads into; empty for most lines
};

// What a line of a history is.
StoryKind StoryKindOf(std::string_view line);
// One for each line of the character's history. The race tells the ages.
std::vector<StoryLine> StoryOf(const CharacterRecord& character, const RaceRecord& race);

}  // namespace korvane
