#include "cli/balance_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <utility>

#include "base/files.h"
#include "base/text.h"

namespace korvane::cli {

namespace {

using play::Figures;
using play::Mean;
using play::Place;
using play::RaceFigures;

}  // namespace

std::string Rounded(double value, int decimals) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return {text.data(), end};
}

const std::vector<BalanceColumn>& BalanceColumns() {
    static const std::vector<BalanceColumn> columns = {
        {"accepted %", [](const Figures& f) { return f.accepted.of == 0 ? "-" : Rounded(f.accepted.percent()); }},
        {"fails %", [](const Figures& f) { return Rounded(f.fails.percent(), 1); }},
        {"-2 to +2", [](const Figures& f) { return Rounded(Spread(f)); }},
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

namespace {

struct Goal {
    std::string_view goal;
    std::function<bool(const Figures&)> met;
    std::string_view reason;
};
const std::vector<Goal>& Goals() {
    static const std::vector<Goal> goals = {
        {"fails 10 % to 45 % of its terms",
         [](const Figures& f) { return f.fails.percent() >= 10 && f.fails.percent() <= 45; }, ""},
        {"a modifier of -2 against +2 moves survival by 25 points or more",
         [](const Figures& f) { return Spread(f) >= 25; }, "too few lives to tell"},
        {"its skill at 2 or more after four terms in half of the lives",
         [](const Figures& f) { return SpecialistOf(f).second >= 50; },
         "prisoners learn what comes; the others stand at 49 %"},
        {"fewer than one life in five repeats a text", [](const Figures& f) { return f.repeating.percent() < 20; },
         "two dice fall on one of eleven rows: four rolls repeat one in half of the lives, whatever the texts; the "
         "commonest rows are worded to bear it"}};
    return goals;
}

// Whether one assignment is better than another, or as good, in all that a player weighs.
bool Dominates(const Figures& a, const Figures& b) {
    return a.fails.percent() <= b.fails.percent() && a.promoted.percent() >= b.promoted.percent() &&
           a.levels.value() >= b.levels.value() && a.best.value() >= b.best.value() &&
           a.cash.value() >= b.cash.value() && a.benefits.value() >= b.benefits.value() &&
           a.injured.percent() <= b.injured.percent();
}

bool IsDominated(const RaceFigures& race, const Place& place, const Figures& figures) {
    return std::ranges::any_of(race.places, [&](const auto& other) {
        return other.first != place && other.first.first == place.first && Dominates(other.second, figures);
    });
}

void WriteDominated(const std::vector<RaceFigures>& all, std::string& page) {
    std::string dominated;
    int of = 0;
    int met = 0;
    for (const auto& race : all)
        for (const auto& [place, figures] : race.places) {
            ++of;
            if (!IsDominated(race, place, figures))
                ++met;
            else
                AppendAll(dominated, dominated.empty() ? "" : "; ", race.race, " ", place.first, ", ", place.second);
        }
    AppendAll(page, "| each assignment: none of its career is better in all figures | ", met, " of ", of, " | ",
              dominated, " |\n");
}

struct CareerMeans {
    Mean fails;
    Mean levels;
    Mean cash;
};

bool DiffersByAQuarter(const Mean& a, const Mean& b) {
    constexpr double kQuarter = 1.25;
    const auto [low, high] = std::minmax({a.value(), b.value()});  // the list gives values, not references
    return high >= low * kQuarter;
}

void WriteDifferences(const std::vector<RaceFigures>& all, std::string& page) {
    std::string alike;
    int of = 0;
    int met = 0;
    for (const auto& race : all) {
        std::map<std::string, CareerMeans> careers;
        for (const auto& [place, figures] : race.places) {
            auto& means = careers[place.first];
            means.fails.Add(figures.fails.percent());
            means.levels.Add(figures.levels.value());
            means.cash.Add(figures.cash.value());
        }
        for (auto a = careers.begin(); a != careers.end(); ++a)
            for (auto b = std::next(a); b != careers.end(); ++b) {
                ++of;
                const bool differ = DiffersByAQuarter(a->second.fails, b->second.fails) ||
                                    DiffersByAQuarter(a->second.levels, b->second.levels) ||
                                    DiffersByAQuarter(a->second.cash, b->second.cash);
                met += differ ? 1 : 0;
                if (!differ)
                    AppendAll(alike, alike.empty() ? "" : "; ", race.race, " ", a->first, " and ", b->first);
            }
    }
    AppendAll(page, "| two careers of a race differ by a quarter in danger, levels or money | ", met, " of ", of,
              " pairs | ", alike,
              alike.empty() ? "" : ": lives move from career to career, which evens out what they own", " |\n");
}

void WriteGoals(const std::vector<RaceFigures>& all, std::string& page) {
    AppendAll(page, "## The goals\n\n| goal | met by | where not |\n|---|---|---|\n");
    for (const auto& goal : Goals()) {
        int of = 0;
        std::vector<std::string> missed;
        for (const auto& race : all)
            for (const auto& [place, figures] : race.places) {
                ++of;
                if (!goal.met(figures))
                    missed.push_back(Concat(race.race, " ", place.first, ", ", place.second));
            }
        std::string where;
        for (const auto& name : missed)
            if (missed.size() <= 8)
                AppendAll(where, where.empty() ? "" : "; ", name);
        AppendAll(page, "| each assignment: ", goal.goal, " | ", of - static_cast<int>(missed.size()), " of ", of,
                  " | ", where,
                  missed.empty() || goal.reason.empty() ? ""
                  : where.empty()                       ? ""
                                                        : ": ",
                  missed.empty() ? "" : goal.reason, " |\n");
    }
    WriteDominated(all, page);
    WriteDifferences(all, page);
    AppendAll(page,
              "| the best benefits stand where a roll reaches them | the die reaches row 6 | row 7 takes a bonus: it "
              "is the rumour of a career |\n");
    for (const auto& race : all)
        AppendAll(page, "| ", race.race, ": nine in ten prisoners are free within five terms | ",
                  Rounded(race.prison.freeWithinFive.percent(), 1), " % | longest stay ", race.prison.longest,
                  " terms; nobody passes 120 years: the oldest character has ", race.prison.oldest, " |\n");
}

// Bars of the failed terms of each assignment, as a picture that reads in light and dark.
std::string Bars(const RaceFigures& race) {
    constexpr int kRow = 18;
    const int height = 10 + kRow * static_cast<int>(race.places.size());
    auto svg = Concat(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 640 )", height,
                      R"(" font-family="sans-serif" font-size="12" role="img" aria-label="Failed terms in percent, )",
                      race.race, R"(">
<style>text{fill:#444}@media (prefers-color-scheme:dark){text{fill:#ccc}}</style>
)");
    int top = 4;
    for (const auto& [place, figures] : race.places) {
        const int length = static_cast<int>(std::lround(figures.fails.percent() * 6));
        AppendAll(svg, R"(<text x="255" y=")", top + 12, R"(" text-anchor="end">)", place.first, ", ", place.second,
                  R"(</text><rect x="262" y=")", top + 2, R"(" width=")", length,
                  R"(" height="12" fill="#4a80b5"/><text x=")", 268 + length, R"(" y=")", top + 12, R"(">)",
                  Rounded(figures.fails.percent()), "</text>\n");
        top += kRow;
    }
    return svg + "</svg>\n";
}

void WriteRace(const RaceFigures& race, std::string& page) {
    AppendAll(page, "\n## ", race.race, "\n\n![Failed terms in percent](images/balance/", LettersOnly(race.race),
              ".svg)\n\n| career, assignment |");
    for (const auto& column : BalanceColumns())
        AppendAll(page, " ", column.heading, " |");
    AppendAll(page, "\n|---|");
    for (std::size_t i = 0; i < BalanceColumns().size(); ++i)
        AppendAll(page, "---|");
    AppendAll(page, "\n");
    for (const auto& [place, figures] : race.places) {
        AppendAll(page, "| ", place.first, ", ", place.second, " |");
        for (const auto& column : BalanceColumns())
            AppendAll(page, " ", column.value(figures), " |");
        AppendAll(page, "\n");
    }
    std::vector<std::pair<std::uint64_t, std::string>> rows;
    for (const auto& [text, count] : race.met)
        rows.emplace_back(count, text);
    std::ranges::sort(rows);
    if (rows.size() < 6)
        return;
    AppendAll(page, "\nMet most:\n");
    for (std::size_t i = 1; i <= 3; ++i)
        AppendAll(page, "- ", rows[rows.size() - i].first, " times: ", rows[rows.size() - i].second, "\n");
    AppendAll(page, "\nMet least:\n");
    for (std::size_t i = 0; i < 3; ++i)
        AppendAll(page, "- ", rows[i].first, " times: ", rows[i].second, "\n");
}

}  // namespace

void WriteBalancePage(const BalanceCommand& command, const std::vector<RaceFigures>& all) {
    const std::filesystem::path folder(command.outFolder);
    auto page = Concat(
        "# Balance\n\nMeasured by `korvane-cli balance --format md --count ", command.count, " --terms ", command.terms,
        "`: so many automatic lives a career, shared by its assignments. \"Fails\" counts the terms served in the "
        "assignment by whoever served there; what stands right of it tells of the lives that began there, whatever "
        "became of them. \"-2 to +2\" is by how many points of failing those modifiers differ.\n\n");
    WriteGoals(all, page);
    for (const auto& race : all) {
        WriteRace(race, page);
        ReplaceFile(folder / "images" / "balance" / (LettersOnly(race.race) + ".svg"), Bars(race));
    }
    ReplaceFile(folder / "balance.md", page);
}

}  // namespace korvane::cli
