#include "cli/balance_page.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "cli/balance_figures.h"
#include "output/svg_text.h"

namespace korvane::cli {

namespace {

using play::Figures;
using play::Mean;
using play::Place;
using play::RaceFigures;

// A goal, and how the figures stand to it.
struct Outcome {
    std::string goal;
    std::string_view unit;  // what is held against it
    int of = 0;
    int met = 0;
    std::map<std::string, std::string> misses = {};  // by race

    void Count(bool isMet, const std::string& race, const std::string& miss) {
        ++of;
        met += isMet ? 1 : 0;
        if (!isMet)
            AppendAll(misses[race], misses[race].empty() ? "" : "; ", miss);
    }
};

// A goal of each assignment: whether it is met, and the figure that says so.
struct Goal {
    std::string_view goal;
    std::function<bool(const Figures&)> met;
    std::function<std::string(const Figures&)> figure;
};
const std::vector<Goal>& Goals() {
    static const std::vector<Goal> goals = {
        {"each assignment fails 10 % to 45 % of its terms",
         [](const Figures& f) { return f.fails.percent() >= 10 && f.fails.percent() <= 45; },
         [](const Figures& f) { return Rounded(f.fails.percent(), 1) + " %"; }},
        {"in each assignment a modifier of -2 against +2 moves survival by 25 points or more",
         [](const Figures& f) { return Spread(f).value_or(0) >= 25; }, SpreadPoints},
        {"each assignment's skill is held at 2 or more in half of its lives",
         [](const Figures& f) { return SpecialistOf(f).second >= 50; },
         [](const Figures& f) { return Concat(SpecialistOf(f).first, " ", Rounded(SpecialistOf(f).second, 2), " %"); }},
        {"in each assignment fewer than one life in five repeats a text",
         [](const Figures& f) { return f.repeating.percent() < 20; },
         [](const Figures& f) { return Rounded(f.repeating.percent(), 1) + " %"; }}};
    return goals;
}

std::string NameOf(const Place& place) {
    return Concat(place.first, ", ", place.second);
}

Outcome OutcomeOf(const Goal& goal, const std::vector<RaceFigures>& all) {
    Outcome outcome{std::string(goal.goal), "assignments"};
    for (const auto& race : all)
        for (const auto& [place, figures] : race.places)
            outcome.Count(goal.met(figures), race.race, Concat(NameOf(place), ": ", goal.figure(figures)));
    return outcome;
}

// Whether one assignment is better than another, or as good, in all that a player weighs.
bool Dominates(const Figures& a, const Figures& b) {
    return a.fails.percent() <= b.fails.percent() && a.promoted.percent() >= b.promoted.percent() &&
           a.levels.value() >= b.levels.value() && a.best.value() >= b.best.value() &&
           a.cash.value() >= b.cash.value() && a.benefits.value() >= b.benefits.value() &&
           a.injured.percent() <= b.injured.percent();
}

// An assignment of the same career that does; nothing for none.
const Place* DominatorOf(const RaceFigures& race, const Place& place, const Figures& figures) {
    const auto better = std::ranges::find_if(race.places, [&](const auto& other) {
        return other.first != place && other.first.first == place.first && Dominates(other.second, figures);
    });
    return better == race.places.end() ? nullptr : &better->first;
}

Outcome Dominated(const std::vector<RaceFigures>& all) {
    Outcome outcome{"no assignment is in all figures as good as another of its career, or better", "assignments"};
    for (const auto& race : all)
        for (const auto& [place, figures] : race.places) {
            const auto* const better = DominatorOf(race, place, figures);
            outcome.Count(
                better == nullptr, race.race,
                better == nullptr ? "" : Concat(place.first, ", ", better->second, ": as good as ", place.second));
        }
    return outcome;
}

struct CareerMeans {
    Mean fails;
    Mean levels;
    Mean cash;
};

std::map<std::string, CareerMeans> MeansOf(const RaceFigures& race) {
    std::map<std::string, CareerMeans> careers;
    for (const auto& [place, figures] : race.places) {
        auto& means = careers[place.first];
        means.fails.Add(figures.fails.percent());
        means.levels.Add(figures.levels.value());
        means.cash.Add(figures.cash.value());
    }
    return careers;
}

// By how many percent of the smaller the greater is above it.
double Difference(const Mean& a, const Mean& b) {
    const auto [low, high] = std::minmax({a.value(), b.value()});  // the list gives values, not references
    if (low == high)
        return 0;
    return low == 0 ? std::numeric_limits<double>::infinity() : 100 * (high - low) / std::abs(low);
}

Outcome Differences(const std::vector<RaceFigures>& all) {
    constexpr double kQuarter = 25;
    Outcome outcome{"two careers of a race differ by a quarter in danger, levels or money", "pairs"};
    for (const auto& race : all) {
        const auto careers = MeansOf(race);
        for (auto a = careers.begin(); a != careers.end(); ++a)
            for (auto b = std::next(a); b != careers.end(); ++b) {
                const double danger = Difference(a->second.fails, b->second.fails);
                const double levels = Difference(a->second.levels, b->second.levels);
                const double money = Difference(a->second.cash, b->second.cash);
                outcome.Count(std::max({danger, levels, money}) >= kQuarter, race.race,
                              Concat(a->first, " and ", b->first, ": danger ", Rounded(danger, 1), " %, levels ",
                                     Rounded(levels, 1), " %, money ", Rounded(money, 1), " %"));
            }
    }
    return outcome;
}

void WriteRow(std::string& page, std::string_view goal, bool isMet, std::string_view figures) {
    AppendAll(page, "| ", goal, " | ", isMet ? "met" : "**not met**", " | ", figures, " |\n");
}

void WriteRaceGoals(const RaceFigures& race, std::string& page) {
    constexpr double kNineInTen = 90;
    constexpr int kOld = 120;
    const auto& free = race.prison.freeWithinFive;
    if (free.of > 0)
        WriteRow(page, Concat(race.race, ": nine in ten stays in prison end within five terms"),
                 free.percent() >= kNineInTen,
                 Concat(Rounded(free.percent(), 1), " % of ", free.of, " stays, the longest ", race.prison.longest,
                        " terms; ", race.prison.cutShort, " more cut short"));
    WriteRow(page, Concat(race.race, ": nobody passes ", kOld, " years"), race.oldest <= kOld,
             Concat("the oldest has ", race.oldest));
}

void WriteGoals(const std::vector<RaceFigures>& all, std::string& page) {
    std::vector<Outcome> outcomes;
    for (const auto& goal : Goals())
        outcomes.push_back(OutcomeOf(goal, all));
    outcomes.push_back(Dominated(all));
    outcomes.push_back(Differences(all));
    AppendAll(page, "## The goals\n\n| goal | verdict | figures |\n|---|---|---|\n");
    for (const auto& outcome : outcomes)
        if (outcome.of > 0)
            WriteRow(page, outcome.goal, outcome.met == outcome.of,
                     Concat(outcome.met, " of ", outcome.of, " ", outcome.unit));
    for (const auto& race : all)
        WriteRaceGoals(race, page);
    for (const auto& outcome : outcomes) {
        if (!outcome.misses.empty())
            AppendAll(page, "\nNot met: ", outcome.goal, "\n\n");
        for (const auto& [race, misses] : outcome.misses)
            AppendAll(page, "- **", race, "** ", misses, "\n");
    }
}

// Bars of the failed terms of each assignment, as a picture that reads in light and dark.
std::string Bars(const RaceFigures& race) {
    constexpr int kRow = 18;
    const int height = 10 + kRow * static_cast<int>(race.places.size());
    auto svg = Concat(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 640 )", height,
                      R"(" font-family="sans-serif" font-size="12" role="img" aria-label="Failed terms in percent, )",
                      Escaped(race.race), R"(">
<style>text{fill:#444}@media (prefers-color-scheme:dark){text{fill:#ccc}}</style>
)");
    int top = 4;
    for (const auto& [place, figures] : race.places) {
        const int length = static_cast<int>(std::lround(figures.fails.percent() * 6));
        AppendAll(svg, R"(<text x="255" y=")", top + 12, R"(" text-anchor="end">)", Escaped(NameOf(place)),
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

std::string HowMeasured(const BalanceCommand& command) {
    auto line = Concat("korvane-cli balance --format md --count ", command.count, " --terms ", command.terms);
    if (!command.race.empty())
        AppendAll(line, " --race \"", command.race, "\"");
    if (!command.career.empty())
        AppendAll(line, " --career \"", command.career, "\"");
    if (command.seed)
        AppendAll(line, " --seed \"", command.seed->given(), "\"");
    return line;
}

constexpr std::string_view kReading =
    "`: so many automatic lives a career, shared by its assignments. \"Accepted\" to \"commissioned\" tell of the "
    "rolls "
    "in the assignment, by whoever rolled; all else of the lives that began there, whatever became of them. \"-2 to "
    "+2\" "
    "is by how many points of failing those modifiers differ; \"-\" where too few were rolled to tell.\n\n"
    "A stay in prison lasts from a sentence, whatever sentences follow, to the release, the escape or the way into "
    "another career. Stays that the end of the life cut short within five terms count neither as ended nor as not; a "
    "life that begins in prison has no sentence.\n\n";

}  // namespace

void WriteBalancePage(const BalanceCommand& command, const std::vector<RaceFigures>& all) {
    const std::filesystem::path folder(command.outFolder);
    auto page = Concat("# Balance\n\nMeasured by `", HowMeasured(command), kReading);
    WriteGoals(all, page);
    for (const auto& race : all) {
        WriteRace(race, page);
        ReplaceFile(folder / "images" / "balance" / (LettersOnly(race.race) + ".svg"), Bars(race));
    }
    ReplaceFile(folder / "balance.md", page);
}

}  // namespace korvane::cli
