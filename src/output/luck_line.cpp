#include "output/luck_line.h"

#include <cmath>
#include <vector>

#include "base/text.h"

namespace korvane {

namespace {

// The chances of each sum of so many dice, from 0.
std::vector<double> ChancesOfSums(int dice) {
    constexpr std::size_t kSides = 6;
    std::vector<double> chances = {1};
    for (int die = 0; die < dice; ++die) {
        std::vector<double> next(chances.size() + kSides, 0);
        for (std::size_t sum = 0; sum < chances.size(); ++sum)
            for (std::size_t side = 1; side <= kSides; ++side)
                next[sum + side] += chances[sum] / kSides;
        chances = std::move(next);
    }
    return chances;
}

std::string PercentText(double share) {
    const auto percent = std::lround(100 * share);
    return percent == 0 ? "less than 1 %" : percent == 100 ? "more than 99 %" : Concat(percent, " %");
}

std::string ExtremeText(const Luck::Extreme& extreme) {
    return Concat(extreme.luck, " (", CheckText(extreme.check), ")");
}

}  // namespace

double ShareOfLessLucky(const Luck& luck) {
    const auto chances = ChancesOfSums(2 * luck.rolls);
    double share = 0;
    for (std::size_t sum = 0; sum < static_cast<std::size_t>(luck.sum); ++sum)
        share += chances.at(sum);
    return share;
}

std::string LuckText(const Luck& luck) {
    if (luck.rolls == 0)
        return {};
    return Concat(luck.rolls, luck.rolls == 1 ? " check" : " checks", " rolled ", luck.sum, " where dice bring ",
                  luck.Expected(), ", luckier than ", PercentText(ShareOfLessLucky(luck)),
                  " of lives with as many; best ", ExtremeText(luck.best), ", worst ", ExtremeText(luck.worst));
}

std::string LuckLine(const Luck& luck) {
    return luck.rolls == 0 ? std::string() : "Luck: " + LuckText(luck);
}

}  // namespace korvane
