#include "play/estimate.h"

#include <algorithm>
#include <cmath>

namespace korvane::play {

namespace {

constexpr double kDeviations = 1.96;  // 95 of 100

// By how much a share may be off, on the side where it may be off more: Wilson's interval, which holds for shares of
// nothing and of all, too.
double MarginOfShare(double share, double count) {
    constexpr double kSquare = kDeviations * kDeviations;
    const double middle = (share + kSquare / (2 * count)) / (1 + kSquare / count);
    const double half =
        kDeviations / (1 + kSquare / count) * std::sqrt(share * (1 - share) / count + kSquare / (4 * count * count));
    return std::abs(middle - share) + half;
}

}  // namespace

double Sample::StandardError() const {
    if (count_ < 2 || !varies_)
        return 0;
    const auto count = static_cast<double>(count_);
    return std::sqrt(std::max(squares_ / count - mean() * mean(), 0.0) / (count - 1));
}

std::optional<Estimate> Sample::Number() const {
    if (count_ < kFewest)
        return std::nullopt;
    // Of few the error itself is known less well.
    constexpr double kForFew = 2.4;
    const double deviations = kDeviations + kForFew / static_cast<double>(count_);
    return Estimate{mean(), deviations * StandardError()};
}

std::optional<Estimate> Sample::Share() const {
    if (count_ < kFewest || (varies_ && !onlyEnds_))
        return Number();
    return Estimate{mean(), MarginOfShare(mean(), static_cast<double>(count_))};
}

}  // namespace korvane::play
