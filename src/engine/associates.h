// The people that a character knows. Only their number is kept; who they are stands in the history.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// Each adds one, writes who it is and shows the summary. Throws RuleError (overflow) beyond 16 bits.
void AddEnemy(Session& session, std::string_view text);
void AddContact(Session& session, std::string_view text);
void AddRival(Session& session, std::string_view text);
void AddAlly(Session& session, std::string_view text);

}  // namespace korvane
