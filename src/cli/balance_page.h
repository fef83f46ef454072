// The balance of rule data as a page in Markdown, with pictures.
#pragma once

#include <vector>

#include "cli/commands.h"
#include "play/balance.h"

namespace korvane::cli {

// Writes the page "balance.md" into the command's folder, and its pictures beside it. Throws IoError.
void WriteBalancePage(const BalanceCommand& command, const std::vector<play::RaceFigures>& all);

}  // namespace korvane::cli
