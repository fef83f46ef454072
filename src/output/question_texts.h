// What front ends tell beside some questions.
#pragma once

#include <string>

#include "character/KVNDeclare.h"

namespace korvane {

// What applies to the rolls of mustering out, in sentences.
std::string BenefitModifiersText(const CharacterRecord& character, const MusterQuestion& question);
// What leaving the dialog of mustering out throws away; empty for nothing.
std::string ForfeitText(int rolls);
// What a transfer costs: the rank, and the rolls of the career that is left.
std::string CostOfLeavingText(const Session& session);

}  // namespace korvane
