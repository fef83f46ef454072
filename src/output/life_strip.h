// The life in one picture, as data: a strip of the years with the terms as blocks, what befell as marks, and the
// characteristics that age bends as curves.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "output/story.h"

namespace korvane {

enum class BlockKind {
    Career,
    Education,  // the opening term, spent at a university or an academy
    Prison,
    Unwritten  // a term that the history had no room for, or that it names no career for
};

// A term. One that isn't over, or was cut short, lasts no years.
struct StripBlock {
    BlockKind kind = BlockKind::Career;
    int from = 0;
    int to = 0;
    std::string career;    // served in it, or the course attended; empty for an unwritten one
    std::size_t line = 0;  // its heading's place in the history
    std::string words;     // "Term 3, age 26 to 30: Navy"
};

// What befell in a term. Its age is the one at which the term began, as the record has no other in it.
struct StripMark {
    MarkKind kind = MarkKind::Promotion;
    int age = 0;
    std::size_t block = 0;
    std::size_t line = 0;  // its place in the history
    std::string words;     // "Age 30: promoted to Lieutenant"
};

// The values of a characteristic: at the start of each block, and at the end.
struct StripCurve {
    std::string name;
    std::vector<int> values;
};

struct LifeStrip {
    int firstAge = 0;
    int lastAge = 0;
    std::vector<StripBlock> blocks;
    std::vector<StripMark> marks;    // in the order of the history
    std::vector<StripCurve> curves;  // the physical characteristics, and the others that age took from
    std::string sentence;            // all of it in words
};

// The strip of a character, whose life may still be going on; without blocks before the first term. The race tells the
// ages. A record that doesn't know how each of the terms began has no curves.
LifeStrip StripOf(const CharacterRecord& character, const RaceRecord& race);

}  // namespace korvane
