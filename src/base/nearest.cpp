#include "base/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "base/text.h"

namespace korvane {

namespace {

// How many letters must be put in, left out, changed or swapped with their neighbours to make one of the other.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    std::vector<std::size_t> before(row);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        auto next = row;
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = a[i - 1] == b[j - 1];
            next[j] = std::min({row[j - 1] + (same ? 0U : 1U), row[j] + 1, next[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                next[j] = std::min(next[j], before[j - 2] + 1);
        }
        before = std::exchange(row, std::move(next));
    }
    return row.back();
}

}  // namespace

std::string_view Nearest(std::string_view wrong, std::span<const std::string_view> known) {
    constexpr std::size_t kLongestName = 64;
    constexpr std::size_t kMostNames = 1000;
    if (wrong.size() > kLongestName || known.size() > kMostNames)
        return {};
    const auto upper = Upper(wrong);
    std::size_t least = std::max<std::size_t>(1, wrong.size() / 3) + 1;
    std::string_view nearest;
    for (const auto name : known)
        if (const auto distance = Distance(upper, Upper(name)); distance < least) {
            least = distance;
            nearest = name;
        }
    return nearest;
}

std::string DidYouMean(std::string_view wrong, std::span<const std::string_view> known) {
    const auto nearest = Nearest(wrong, known);
    return nearest.empty() ? std::string() : Concat("; did you mean \"", nearest, "\"?");
}

}  // namespace korvane
