// The skill tables: one gain a term.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane {

// Lets the player pick one of the tables of the career and assignment, or picks it by die in automatic mode and with
// "Random Skills", and rolls on it. A requirement of the advanced table that can't be tested is told to the player.
void ChooseSkillTable(Session& session);

// Rolls one die on a column, 1 to 5, and grants that row. Throws RuleError (subscript) for another column.
void RollSkillTableRow(Session& session, int column);

}  // namespace korvane
