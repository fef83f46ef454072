// The codes that no composition of effects says: a named function each.
#pragma once

#include "character/KVNDeclare.h"

namespace korvane::codes {

// Mishaps
void BetrayContactOrAlly(Session& session);
void AnswerAccusation(Session& session);
void LoseRollForEachTerm(Session& session);
void ReviveFrozen(Session& session);
void FaceCourtMartial(Session& session);
void GrantServiceRow(Session& session);

// Events
void TakeSidesInUpheaval(Session& session);
void RiskDeal(Session& session);
void GambleAmongRogues(Session& session);
void ChooseScience(Session& session);

}  // namespace korvane::codes
