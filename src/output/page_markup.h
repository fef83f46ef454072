// The markup that the page's history is written in, for those who make something else of a page.
#pragma once

#include <string_view>

namespace korvane {

inline constexpr std::string_view kHistoryTable = "<table width=100% border=1>";
inline constexpr std::string_view kHistoryRow = "<tr width=100%><td>";

}  // namespace korvane
