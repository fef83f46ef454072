// What front ends tell beside some questions.
#pragma once

#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The heading of mustering out.
std::string MusterTitle(std::string_view career, int rolls);
// What applies to the rolls of mustering out, in sentences.
std::string BenefitModifiersText(const CharacterRecord& character, const MusterQuestion& question);
// What leaving the dialog of mustering out throws away; empty for nothing.
std::string ForfeitText(int rolls);
// What a transfer costs: the rank, and the rolls of the career that is left.
std::string CostOfLeavingText(const Session& session);

}  // namespace korvane
