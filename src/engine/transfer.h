// The change of career.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

enum class TransferOutcome { Accepted, Muster };

// Shows the transfer dialog. "Accept" moves the character into the new career, unranked; "End Career" musters out at
// once, so no caller does it again.
TransferOutcome TransferCareer(Session& session);

}  // namespace korvane
