#include "cli/balance_figures.h"

#include <array>
#include <charconv>

#include "base/text.h"

namespace korvane::cli {

using play::Figures;

std::string Rounded(double value, int decimals) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return {text.data(), end};
}

std::string SpreadPoints(const Figures& figures) {
    const auto spread = Spread(figures);
    return spread ? Rounded(*spread) : "-";
}

const std::vector<BalanceColumn>& BalanceColumns() {
    static const std::vector<BalanceColumn> columns = {
        {"accepted %", [](const Figures& f) { return f.accepted.of == 0 ? "-" : Rounded(f.accepted.percent()); }},
        {"fails %", [](const Figures& f) { return Rounded(f.fails.percent(), 1); }},
        {"-2 to +2", SpreadPoints},
        {"promoted %", [](const Figures& f) { return Rounded(f.promoted.percent()); }},
        {"commissioned %",
         [](const Figures& f) { return f.commissioned.of == 0 ? "-" : Rounded(f.commissioned.percent()); }},
        {"injured %", [](const Figures& f) { return Rounded(f.injured.percent()); }},
        {"jailed %", [](const Figures& f) { return Rounded(f.jailed.percent()); }},
        {"age", [](const Figures& f) { return Rounded(f.age.value(), 1); }},
        {"terms", [](const Figures& f) { return Rounded(f.terms.value(), 1); }},
        {"skills", [](const Figures& f) { return Rounded(f.skills.value(), 1); }},
        {"levels", [](const Figures& f) { return Rounded(f.levels.value(), 1); }},
        {"best", [](const Figures& f) { return Rounded(f.best.value(), 2); }},
        {"cash", [](const Figures& f) { return FormatThousands(f.cash.value()); }},
        {"benefits", [](const Figures& f) { return Rounded(f.benefits.value(), 2); }},
        {"owing %", [](const Figures& f) { return Rounded(f.owing.percent()); }},
        {"friends", [](const Figures& f) { return Rounded(f.friends.value(), 1); }},
        {"foes", [](const Figures& f) { return Rounded(f.foes.value(), 1); }},
        {"repeat %", [](const Figures& f) { return Rounded(f.repeating.percent()); }},
        {"held at 2 or more", [](const Figures& f) {
             const auto [skill, percent] = SpecialistOf(f);
             return Concat(skill, " ", Rounded(percent), " %");
         }}};
    return columns;
}

}  // namespace korvane::cli
