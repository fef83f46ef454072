// The balance of rule data as a page in Markdown, with pictures.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands.h"
#include "play/balance.h"

namespace korvane::cli {

// A figure of an assignment as it is shown, on the page and elsewhere: its heading, and how it is read off.
struct BalanceColumn {
    std::string_view heading;
    std::function<std::string(const play::Figures&)> value;
};
const std::vector<BalanceColumn>& BalanceColumns();

// A figure with so many decimals.
std::string Rounded(double value, int decimals = 0);

// Writes the page "balance.md" into the command's folder, and its pictures beside it. Throws IoError.
void WriteBalancePage(const BalanceCommand& command, const std::vector<play::RaceFigures>& all);

}  // namespace korvane::cli
