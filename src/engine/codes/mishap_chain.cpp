#include "engine/codes/chains.h"

namespace korvane {

namespace {

using Numbers = CharacterNumbers;

// clang-format off
std::vector<Row> GenericMishaps() {
    return {
        // A mishap ends the career and costs the term's benefit roll, unless its code says that it doesn't.
        {"NOEJEC",    {Set{&Numbers::LeaveCareer, 0}},
                      {Set{&Numbers::LeaveCareer, 1}, Add{&Numbers::MusterRolls, -1}}},
        {"MINUS1SOC", {Lower{kSoc, 1, 1}}},
        {"MINUS1END", {Lower{kEnd, 1, 1}}},
    };
}
// clang-format on

}  // namespace

const Chain& MishapChain() {
    static const Chain chain(GenericMishaps());
    return chain;
}

}  // namespace korvane
