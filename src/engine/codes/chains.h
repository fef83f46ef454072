// The two chains: what the codes of mishaps and of events do.
#pragma once

#include "engine/codes/chain.h"

namespace korvane::codes {

const Chain& MishapChain();
const Chain& EventChain();

}  // namespace korvane::codes
