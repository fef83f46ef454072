// What a wrong name is likely to mean.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace korvane {

// The known name that a wrong one is likely to mean: the nearest, if it is near, in any case; empty for none.
std::string_view Nearest(std::string_view wrong, std::span<const std::string_view> known);
// The same as a question: `; did you mean "Pilot"?`; empty for none.
std::string DidYouMean(std::string_view wrong, std::span<const std::string_view> known);

}  // namespace korvane
