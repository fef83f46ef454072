// What the engine asks, as the journal writes it: one JSON object a request, its kind as the first key, without the
// answer.
#pragma once

#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"
#include "character/player_texts.h"

namespace korvane::journal {

using Json = nlohmann::ordered_json;

Json Header(const Session& session);

Json RollRequest(int count, int sides);
Json DrawRequest(int n);
Json ChooseRequest(const ChoiceQuestion& question);
Json SelectRequest(const ListQuestion& question);
Json AskRequest(const YesNoQuestion& question);
Json TellRequest(const Notice& notice);
Json TableRequest(const TableQuestion& question);
Json EndOfTermRequest(const EndOfTermQuestion& question);
// The value says whether the player accepted, so it is the answer's; the request holds the kind alone.
inline constexpr std::string_view kTransferKind = "transfer";
Json MusterRequest(const MusterQuestion& question);

// The captions of the ticked boxes.
std::vector<std::string_view> TickedCaptions(const Options& options);

inline constexpr std::string_view kMusteredOut = "mustered out";
inline constexpr std::string_view kScrapped = "scrapped";
inline constexpr std::string_view kError = "error";

}  // namespace korvane::journal
