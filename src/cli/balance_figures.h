// The figures of the balance as they are shown, in text, JSON and on the page.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "play/balance.h"

namespace korvane::cli {

// A figure of an assignment as it is shown: its heading, and how it is read off.
struct BalanceColumn {
    std::string_view heading;
    std::function<std::string(const play::Figures&)> value;
};
const std::vector<BalanceColumn>& BalanceColumns();

// A figure with so many decimals.
std::string Rounded(double value, int decimals = 0);
// By how many points of failing a modifier of -2 differs from one of +2; "-" where that can't be told.
std::string SpreadPoints(const play::Figures& figures);

}  // namespace korvane::cli
