// The lines of a journal as JSON.
#pragma once

#include <string>
#include <string_view>

#include "output/journal/tape.h"

namespace korvane::journal {

inline constexpr std::string_view kMusteredOut = "mustered out";
inline constexpr std::string_view kScrapped = "scrapped";
inline constexpr std::string_view kError = "error";

// Each puts one object to the end of a text, without a line end.
void AppendStart(std::string& out, const Start& start);
void AppendLine(std::string& out, const Line& line);
void AppendEnd(std::string& out, const End& end);

// The request of a line alone, as an object without the answer.
std::string RequestText(const Line& line);

// A whole journal: the start, the lines, and the end where there is one; each with a line end.
std::string JournalText(const Tape& tape);

// The digest of the journal as it is without its own digest.
std::string JournalDigest(const Tape& tape, End end);

// The captions of the ticked boxes.
std::vector<std::string_view> TickedCaptions(const Options& options);

}  // namespace korvane::journal
