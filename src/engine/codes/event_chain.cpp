#include "engine/codes/chains.h"
#include "skills/improve.h"

namespace korvane {

namespace {

using Numbers = CharacterNumbers;

// clang-format off
std::vector<Row> GenericEvents() {
    return {
        {"PRO2",  {Set{&Numbers::AdvancementDM, 2}}},
        {"PROA",  {Set{&Numbers::AdvancementDM, kAutomaticSuccess}}},
        {"COMA",  {Set{&Numbers::CommissionDM, kAutomaticSuccess}}},
        {"PROMA", {Set{&Numbers::AdvancementDM, kAutomaticSuccess}}},
        {"ADVT",  {Call{ImproveHeldSkill}}},
    };
}
// clang-format on

}  // namespace

const Chain& EventChain() {
    static const Chain chain(GenericEvents());
    return chain;
}

}  // namespace korvane
