#include "play/odds_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "base/text.h"

namespace korvane::play {

namespace {

struct FigureWords {
    Figure figure;
    std::string_view column;
    std::string_view heard;    // as a sentence goes on
    std::string_view meaning;  // in full
    std::string_view best;     // what the best answer is best for; empty: nobody asks
    double least;              // a difference that is worth to be told
    bool lowIsGood = false;
};
// clang-format off
constexpr std::array<FigureWords, kFigures> kFigureWords = {{
    {Figure::Roll,       "This roll",    "this roll",
     "The chance of the roll that follows at once", {}, 0.01},
    {Figure::Survives,   "Survives",     "survives",
     "The chance to make the next roll for survival", "survival", 0.01},
    {Figure::Leaves,     "Leaves",       "leaves the career",
     "The chance to be thrown out of the career, or imprisoned, by the end of the next term", "staying in the career", 0.01, true},
    {Figure::Promoted,   "Promoted",     "is promoted",
     "The chance to be promoted or commissioned by the end of the next term", "promotion", 0.02},
    {Figure::Injured,    "Injured",      "is injured",
     "The chance to be injured by the end of the next term", "staying unhurt", 0.01, true},
    {Figure::Imprisoned, "Prison",       "goes to prison",
     "The chance to be imprisoned by the end of the next term", "staying out of prison", 0.01, true},
    {Figure::Levels,     "Skill levels", "skill levels gained",
     "Skill levels gained in the rest of the life", "skills", 0.25},
    {Figure::Cash,       "Cash",         "cash gained",
     "Cash gained in the rest of the life", "cash", 500},
    {Figure::Benefits,   "Benefits",     "benefits gained",
     "Material benefits gained in the rest of the life", "benefits", 0.15},
    {Figure::Years,      "Years",        "years lived",
     "Years that the rest of the life lasts", {}, 0.25},
}};
// clang-format on

// From how many standard errors a difference is one, however many are looked at.
constexpr double kClear = 4;
constexpr double kLikely = 2;

bool IsClear(const Sample& lead) {
    return lead.count() > 0 && std::abs(lead.mean()) > std::max(kClear * lead.StandardError(), 1e-9);
}

// Whether the answers differ in a figure, as far as the lives tell, and by as much as matters.
bool Differs(const OddsFigures& odds, const FigureWords& words) {
    double most = std::numeric_limits<double>::lowest();
    double least = std::numeric_limits<double>::max();
    bool clear = false;
    std::size_t having = 0;
    for (const auto& outlook : odds.outlooks) {
        const auto& lead = outlook.LeadAt(words.figure);
        if (lead.count() == 0)
            continue;
        ++having;
        clear |= IsClear(lead);
        most = std::max(most, lead.mean());
        least = std::min(least, lead.mean());
    }
    return (having > 0 && having < odds.outlooks.size()) || (clear && most - least >= words.least);
}

std::optional<Estimate> ChanceOf(const Sample& sample, Figure figure) {
    return IsKnownChance(figure) ? sample.Number() : sample.Share();
}

std::string CellOf(const Outlook& outlook, Figure figure) {
    const auto& sample = outlook.At(figure);
    if (IsChance(figure)) {
        const auto chance = ChanceOf(sample, figure);
        const bool named = figure == Figure::Roll && !outlook.roll.empty();
        return chance ? Concat(named ? outlook.roll + ": " : std::string(), ChanceText(*chance)) : "–";
    }
    const auto number = sample.Number();
    return number ? NumberText(*number, figure == Figure::Cash) : "–";
}

std::string SentenceOf(const std::string& caption, const Outlook& outlook, const std::vector<FigureWords>& shown) {
    if (!outlook.fault.empty())
        return Concat(caption, ": can't be reckoned, ", outlook.fault);
    auto sentence = caption;
    for (const auto& words : shown) {
        const auto& sample = outlook.At(words.figure);
        if (sample.count() == 0)
            continue;
        AppendAll(sentence, sentence.size() == caption.size() ? ": " : "; ", words.heard, " ",
                  CellOf(outlook, words.figure));
        if (const auto chance = ChanceOf(sample, words.figure); chance && IsChance(words.figure))
            AppendAll(sentence, ", ", WordFor(*chance));
    }
    return sentence + ".";
}

// Which answers are best for something: one, or those that can't be told from each other.
struct Judgement {
    std::string_view subject;
    std::vector<std::string_view> best;
    bool clear = false;
};

Judgement Judged(const OddsFigures& odds, const FigureWords& words) {
    struct Place {
        std::string_view caption;
        double lead;
        double error;
    };
    std::vector<Place> places;
    for (std::size_t i = 0; i < odds.outlooks.size(); ++i)
        if (const auto& lead = odds.outlooks[i].LeadAt(words.figure); lead.count() > 0)
            places.push_back({odds.captions[i], words.lowIsGood ? -lead.mean() : lead.mean(), lead.StandardError()});
    std::ranges::sort(places, std::greater(), &Place::lead);
    if (places.size() < 2)
        return {};
    // In standard errors of the difference, at most: what one gains on the mean the others lose.
    const auto behind = [&](const Place& place) {
        const double error = places.front().error + place.error;
        const double distance = places.front().lead - place.lead;
        return error > 0 ? distance / error : distance > 1e-9 ? kClear + 1 : 0;
    };
    Judgement judgement{words.best, {}, behind(places[1]) > kClear};
    for (const auto& place : places)
        if (behind(place) < kLikely)
            judgement.best.push_back(place.caption);
    return judgement;
}

// "Clearly best for survival, promotion: Surveyor".
std::vector<std::string> Told(const std::vector<Judgement>& judgements) {
    std::vector<std::pair<std::string, std::string>> lines;  // who, and what for
    const auto add = [&](const std::string& who, const std::string& beginning, std::string_view subject) {
        const auto line = std::ranges::find(lines, who, &std::pair<std::string, std::string>::first);
        if (line == lines.end())
            lines.emplace_back(who, Concat(beginning, subject));
        else
            AppendAll(line->second, ", ", subject);
    };
    for (const auto& judgement : judgements)
        if (judgement.best.size() == 1 && judgement.clear)
            add(Concat(": ", judgement.best.front()), "Clearly best for ", judgement.subject);
    for (const auto& judgement : judgements)
        if (judgement.best.size() == 1 && !judgement.clear)
            add(Concat(", it seems: ", judgement.best.front()), "Best for ", judgement.subject);
    for (const auto& judgement : judgements)
        if (judgement.best.size() > 1)
            add("", "Too close to tell: ", judgement.subject);
    std::vector<std::string> told;
    told.reserve(lines.size());
    for (const auto& [who, what] : lines)
        told.push_back(what + who);
    return told;
}

}  // namespace

std::string ChanceText(const Estimate& chance) {
    constexpr double kWaysOfDice = 36;
    const double percent = 100 * chance.value;
    const double ways = kWaysOfDice * chance.value;
    if (chance.margin == 0) {
        const auto whole = Concat(std::lround(percent), " %");
        return std::abs(ways - std::round(ways)) < 1e-6 ? Concat(whole, " (", std::lround(ways), " of 36)") : whole;
    }
    const double margin = 100 * chance.margin;
    if (percent - margin <= 0 || std::lround(percent) == 0)
        return Concat("under ", std::lround(std::ceil(percent + margin)), " %");
    if (percent + margin >= 100 || std::lround(percent) == 100)
        return Concat("over ", std::lround(std::floor(percent - margin)), " %");
    // What rounding takes from the figure goes to the margin.
    const auto shown = std::round(percent);
    return Concat(std::lround(shown), " % ± ", std::lround(std::ceil(margin + std::abs(percent - shown))));
}

std::string WordFor(const Estimate& chance) {
    struct Band {
        double from;
        std::string_view word;
    };
    constexpr std::array<Band, 7> kBands = {{{0.995, "as good as sure"},
                                             {0.9, "very likely"},
                                             {0.6, "likely"},
                                             {0.4, "about even"},
                                             {0.1, "unlikely"},
                                             {0.005, "very unlikely"},
                                             {-1, "as good as never"}}};
    const auto band = [&](double value) {
        return std::ranges::find_if(kBands, [&](const Band& each) { return value >= each.from; });
    };
    const auto low = band(std::clamp(chance.value - chance.margin, 0.0, 1.0));
    const auto high = band(std::clamp(chance.value + chance.margin, 0.0, 1.0));
    if (low == high)
        return std::string(low->word);
    return low - high == 1 ? Concat(low->word, " or ", high->word) : "hard to tell from so few lives";
}

std::string NumberText(const Estimate& number, bool money) {
    constexpr double kHundred = 100;
    const auto rounded = [&](double value, bool up) {
        const double step = money ? kHundred : 0.1;
        return (up ? std::ceil(value / step - 1e-9) : std::round(value / step)) * step;
    };
    const auto text = [&](double value) {
        if (money)
            return Concat(value < 0 ? "-Cr" : "Cr", value == 0 ? "0" : FormatThousands(std::abs(value)));
        const auto tenths = std::lround(std::abs(value) * 10);
        return Concat(value < 0 && tenths != 0 ? "-" : "", tenths / 10,
                      tenths % 10 == 0 && number.margin == 0 ? "" : Concat(".", tenths % 10));
    };
    const double value = rounded(number.value, false);
    if (number.margin == 0)
        return text(value);
    const double margin = rounded(number.margin + std::abs(number.value - value), true);
    return Concat(text(value), " ± ", money ? FormatThousands(margin) : text(margin));
}

OddsTable TableOf(const OddsFigures& odds) {
    std::vector<FigureWords> shown;
    std::ranges::copy_if(kFigureWords, std::back_inserter(shown),
                         [&](const FigureWords& words) { return Differs(odds, words); });
    OddsTable table;
    table.lives = odds.lives;
    std::vector<Judgement> judgements;
    for (const auto& words : shown) {
        table.columns.emplace_back(words.column);
        table.meanings.emplace_back(words.meaning);
        if (!words.best.empty())
            judgements.push_back(Judged(odds, words));
    }
    table.judgements = Told(judgements);
    for (std::size_t i = 0; i < odds.outlooks.size(); ++i) {
        const auto& outlook = odds.outlooks[i];
        OddsTable::Row row{odds.captions[i], {}, SentenceOf(odds.captions[i], outlook, shown)};
        for (const auto& words : shown)
            row.cells.push_back(CellOf(outlook, words.figure));
        table.rows.push_back(std::move(row));
    }
    const auto lives = FormatThousands(static_cast<double>(odds.lives));
    table.note =
        shown.empty()
            ? Concat("Nothing that can be counted hangs on the answer, as far as ", lives, " lives tell.")
            : Concat(lives, " lives for each answer, ",
                     odds.automatic ? "by chance, as \"Automatic Generation\" is ticked" : "by a player of sense",
                     ", up to ", odds.terms, " terms of service.");
    return table;
}

}  // namespace korvane::play
