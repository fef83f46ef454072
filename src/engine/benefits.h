// Material benefits: the texts that the rules know, and what each brings.
#pragma once

#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

// Gives the character a benefit. A text that the rules don't know is a benefit as it stands.
void TakeBenefit(Session& session, std::string_view benefit);

// The texts of the benefits that do something.
std::vector<std::string_view> KnownBenefits();

}  // namespace korvane
