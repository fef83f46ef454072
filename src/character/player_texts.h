// What players are asked and shown, word for word, wherever they sit.
#pragma once

#include <array>
#include <string_view>

namespace korvane {

inline constexpr std::string_view kScrapQuestion = "Scrap this character?";
inline constexpr std::string_view kGamblerQuestion = "Use Gambler?";

// The refusals of a list; a number follows the second and the third.
inline constexpr std::string_view kNoItems = "No items selected";
inline constexpr std::string_view kTooManyItems = "Too many items selected; limit is ";
inline constexpr std::string_view kTooFewItems = "Too few items selected; minimum is ";

// The answers at the end of a term, in the order of EndOfTermChoice.
inline constexpr std::string_view kEndOfTermHeading = "End of Term Options";
inline constexpr std::array<std::string_view, 4> kEndOfTermCaptions = {"Re-Enlist", "Transfer & Re-Enlist",
                                                                       "Muster Out", "Scrap and Restart"};

inline constexpr std::string_view kTransferHeading = "Select Transfer Career and Assignment";
inline constexpr std::string_view kTransferNotice =
    "Your character either has to move jobs or end his career and muster out. Select a new Career and Assignment.";
inline constexpr std::string_view kEndCareer = "End Career";

// The buttons of mustering out, in the order of MusterButton.
inline constexpr std::array<std::string_view, 4> kMusterCaptions = {"Cash", "Material", "3 Cash, rest Material",
                                                                    "Done"};

}  // namespace korvane
