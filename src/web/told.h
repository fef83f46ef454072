// A life as a page shows it, as JSON.
#pragma once

#include "character/KVNDeclare.h"
#include "output/json_writer.h"
#include "play/career_odds.h"
#include "play/odds_table.h"

namespace korvane::web {

// The session's character, its history as a story, and its life in one picture: members of an object that is open.
void WriteLife(JsonWriter& json, const Session& session);

// What there is to choose from before a life: races with careers and assignments, methods, options, templates. Throws
// FileError for a malformed file.
void WriteRules(JsonWriter& json, Session& session);

void WriteOdds(JsonWriter& json, const play::OddsTable& table);
void WriteCareers(JsonWriter& json, const play::CareerOdds& odds);

}  // namespace korvane::web
