#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <exception>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "output/json_writer.h"
#include "play/life_plan.h"
#include "skills/grant.h"

namespace korvane::cli {

namespace {

// How often something came to pass of the times that it might.
struct Share {
    std::uint64_t of = 0;
    std::uint64_t hits = 0;

    void Count(bool hit) {
        ++of;
        hits += hit ? 1U : 0U;
    }
    double percent() const { return of == 0 ? 0 : 100.0 * static_cast<double>(hits) / static_cast<double>(of); }
};

struct Mean {
    double sum = 0;
    std::uint64_t count = 0;

    void Add(double value) {
        sum += value;
        ++count;
    }
    double value() const { return count == 0 ? 0 : sum / static_cast<double>(count); }
};

// Of the lives that began in an assignment, and of the terms served in it.
struct Figures {
    Share accepted;
    Share fails;                   // of survival rolls
    std::map<int, Share> failsBy;  // by the modifier of the characteristic that counts
    Share promoted;
    Share commissioned;
    Share injured;
    Share jailed;
    Share owing;
    Share repeating;
    Mean age;
    Mean terms;
    Mean skills;
    Mean levels;
    Mean best;
    Mean cash;
    Mean benefits;
    Mean friends;
    Mean foes;
    std::map<std::string, Share> specialists;  // skills held at 2 or more
    std::string specialty;                     // the skill that its table teaches most
};

struct Prison {
    Share freeWithinFive;
    int longest = 0;
    int oldest = 0;
};

// The assignment in which a check is rolled.
using Place = std::pair<std::string, std::string>;  // career, assignment

// Notes the checks of lives.
class Checks : public Observer {
  public:
    Checks(const Session& session, std::map<Place, Figures>& figures) : session_(session), figures_(figures) {}

    void CheckRolled(std::string_view check, int own, int /*once*/, int effect) override {
        const auto& selection = session_.selection;
        auto& figures = figures_[{selection.career, selection.assignment}];
        // By the text's place in its file: two checks may read the same.
        if (check.data() == session_.assignment.survival.data()) {
            figures.fails.Count(effect < 0);
            figures.failsBy[own].Count(effect < 0);
        } else if (check.data() == session_.assignment.advancement.data()) {
            if (session_.character.ParoleThreshold == 0)  // the roll is that of the parole
                figures.promoted.Count(effect >= 0);
        } else if (check.data() == session_.career.qualification.data()) {
            figures.accepted.Count(effect >= 0);
        } else if (check.data() == session_.career.commission.data()) {
            figures.commissioned.Count(effect >= 0);
        }
    }

  private:
    const Session& session_;
    std::map<Place, Figures>& figures_;
};

bool IsInjury(std::string_view line) {
    constexpr std::array<std::string_view, 6> kInjuries = {"Nearly Killed", "Severely Injured", "Missing",
                                                           "Scarred",       "Injured",          "Lightly Injured"};
    return std::ranges::any_of(kInjuries, [&](std::string_view injury) { return line.starts_with(injury); });
}

// Counts the texts of tables in a history. Returns whether one stands there twice.
bool RepeatsAText(std::span<const std::string> history, std::map<std::string, std::uint64_t>& met) {
    std::set<std::string_view> texts;
    bool repeats = false;
    for (const auto& line : history)
        if (const auto place = met.find(line); place != met.end()) {
            repeats |= !texts.insert(line).second;
            ++place->second;
        }
    return repeats;
}

// The stays in prison that a history tells of: the terms from the verdict to the release.
void NotePrison(const CharacterRecord& character, Prison& prison) {
    int since = -1;
    for (const auto& line : character.History.lines()) {
        if (line.starts_with("Imprisoned; ")) {
            since = 0;
        } else if (since >= 0 && line.starts_with("------ Term ")) {
            ++since;
        } else if (since >= 0 && (line.starts_with("Released") || line.starts_with("Transfer to ") ||
                                  line.find("escape!") != std::string::npos)) {
            prison.freeWithinFive.Count(since <= 5);
            prison.longest = std::max(prison.longest, since);
            since = -1;
        }
    }
    if (since > 5)
        prison.freeWithinFive.Count(false);
    if (since >= 0)
        prison.longest = std::max(prison.longest, since);
    prison.oldest = std::max<int>(prison.oldest, character.Age);
}

void NoteLife(const CharacterRecord& character, Figures& figures, std::map<std::string, std::uint64_t>& met) {
    const auto history = character.History.lines();
    figures.injured.Count(std::ranges::any_of(history, IsInjury));
    figures.jailed.Count(
        std::ranges::any_of(history, [](const auto& line) { return line.starts_with("Imprisoned; "); }));
    figures.owing.Count(static_cast<double>(character.MedicalDebt) > 0);
    figures.repeating.Count(RepeatsAText(history, met));
    figures.age.Add(character.Age);
    figures.terms.Add(character.TermsTotal);
    int levels = 0;
    int best = 0;
    for (const auto* const skill : character.Skills.Held()) {
        levels += skill->Level;
        best = std::max<int>(best, skill->Level);
        if (skill->Level >= 2)
            figures.specialists[skill->Name].Count(true);
    }
    figures.skills.Add(static_cast<double>(character.Skills.Held().size()));
    figures.levels.Add(levels);
    figures.best.Add(best);
    figures.cash.Add(static_cast<double>(std::int64_t{character.Cash}));
    figures.benefits.Add(static_cast<double>(character.Benefits.size()));
    figures.friends.Add(int{character.Allies} + int{character.Contacts});
    figures.foes.Add(int{character.Enemies} + int{character.Rivals});
}

// The skill that stands most often in the assignment's table, and in how many of the lives it is at 2 or more.
std::pair<std::string, double> SpecialistOf(const Figures& figures) {
    const auto share = figures.specialists.find(figures.specialty);
    const auto hits = share == figures.specialists.end() ? 0 : share->second.hits;
    return {figures.specialty,
            figures.age.count == 0 ? 0 : 100.0 * static_cast<double>(hits) / static_cast<double>(figures.age.count)};
}

// The row that stands most often in a table, without its level.
std::string MostFrequent(const SixRows& table) {
    std::map<std::string, int> counts;
    for (const auto row : std::span(table).subspan(1))
        if (const auto skills = SkillsIn(row); !skills.empty())
            ++counts[std::string(skills.front())];
    const auto most = std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
    return most == counts.end() ? std::string() : most->first;
}

// By how many points of failing a modifier of -2 differs from one of +2: four steps of those between the lowest and the
// highest modifier that lives had often enough.
double Spread(const Figures& figures) {
    constexpr std::uint64_t kEnough = 200;
    constexpr int kSteps = 4;
    std::vector<std::pair<int, double>> points;
    for (const auto& [modifier, share] : figures.failsBy)
        if (share.of >= kEnough && modifier >= -2 && modifier <= 2)
            points.emplace_back(modifier, share.percent());
    if (points.size() < 2)
        return 0;
    return (points.front().second - points.back().second) / (points.back().first - points.front().first) * kSteps;
}

struct RaceFigures {
    std::string race;
    std::map<Place, Figures> places;
    Prison prison;
    std::map<std::string, std::uint64_t> met;  // table texts
};

class Balance {
  public:
    explicit Balance(const BalanceCommand& command)
        : command_(command),
          session_(DataFolder(ChooseDataLocation(command.data), DataFolder::Reading::Once),
                   {nullptr, nullptr, &display_}) {}

    std::vector<RaceFigures> Measure() {
        std::vector<RaceFigures> all;
        for (const auto& race : *session_.data.RaceNames())
            if (command_.race.empty() || command_.race == race)
                all.push_back(MeasureRace(race));
        if (all.empty())
            throw UsageError("unknown race " + command_.race);
        if (std::ranges::all_of(all, [](const RaceFigures& race) { return race.places.empty(); }))
            throw UsageError("unknown career " + command_.career);
        return all;
    }

  private:
    RaceFigures MeasureRace(const std::string& race) {
        RaceFigures figures;
        figures.race = race;
        Checks checks(session_, figures.places);
        session_.seams.observer = &checks;
        NoteTexts(figures);
        for (const auto& career : *session_.data.CareerNames(race))
            if (command_.career.empty() || command_.career == career)
                for (const auto& assignment : *session_.data.AssignmentNames(race, career))
                    LiveIn(figures, {race, career, assignment});
        session_.seams.observer = nullptr;
        // Careers that lives only strayed into.
        std::erase_if(figures.places, [](const auto& place) { return place.second.age.count == 0; });
        return figures;
    }

    // The texts that the race's tables can bring.
    void NoteTexts(RaceFigures& figures) {
        const auto note = [&](std::string_view entry) { figures.met.emplace(SplitFirst(entry, "/").first, 0); };
        for (const auto& career : *session_.data.CareerNames(figures.race)) {
            const auto& record = session_.data.Career(figures.race, career).record;
            std::for_each(record.mishapTable.begin() + 1, record.mishapTable.end(), note);
            std::for_each(record.eventTable.begin() + 2, record.eventTable.end(), note);
        }
    }

    void LiveIn(RaceFigures& figures, const std::array<std::string, 3>& start) {
        play::LifePlan plan;
        plan.race = start[0];
        plan.career = start[1];
        plan.assignment = start[2];
        plan.player = play::PlayerKind::Automatic;
        plan.terms = command_.terms;
        plan.seed = command_.seed.value_or(Seed(1));
        figures.places[{plan.career, plan.assignment}].specialty =
            MostFrequent(session_.data.Assignment(plan.race, plan.career, plan.assignment).assignmentTable);
        const auto assignments = session_.data.AssignmentNames(plan.race, plan.career)->size();
        const auto count = std::max<std::uint64_t>(command_.count / assignments, 1);
        for (std::uint64_t number = 1; number <= count; ++number) {
            const auto outcome = play::Live(session_, plan, number);
            if (outcome.cause)
                std::rethrow_exception(outcome.cause);
            if (!outcome.finished())
                continue;
            NoteLife(session_.character, figures.places[{plan.career, plan.assignment}], figures.met);
            NotePrison(session_.character, figures.prison);
        }
    }

    const BalanceCommand& command_;
    Display display_;
    Session session_;
};

std::string Rounded(double value, int decimals = 0) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return {text.data(), end};
}

// A figure of the tables: its heading, and how it is read off.
struct Column {
    std::string_view heading;
    std::function<std::string(const Figures&)> value;
};
const std::vector<Column>& Columns() {
    static const std::vector<Column> columns = {
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

void PrintText(const std::vector<RaceFigures>& all, std::ostream& out) {
    for (const auto& race : all) {
        out << race.race << '\n';
        for (const auto& [place, figures] : race.places) {
            out << "  " << place.first << ", " << place.second << ": ";
            for (const auto& column : Columns())
                out << column.heading << ' ' << column.value(figures) << (&column == &Columns().back() ? "\n" : ", ");
        }
        out << "  prison: free within five terms " << Rounded(race.prison.freeWithinFive.percent(), 1) << " %, longest "
            << race.prison.longest << " terms; oldest character " << race.prison.oldest << " years\n";
    }
}

void PrintJson(const std::vector<RaceFigures>& all, std::ostream& out) {
    std::string text;
    JsonWriter json(text);
    json.BeginArray();
    for (const auto& race : all)
        for (const auto& [place, figures] : race.places) {
            json.BeginObject();
            json.Key("race").Text(race.race);
            json.Key("career").Text(place.first);
            json.Key("assignment").Text(place.second);
            for (const auto& column : Columns())
                json.Key(column.heading).Text(column.value(figures));
            json.EndObject();
        }
    json.EndArray();
    out << text << '\n';
}

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
    for (const auto& column : Columns())
        AppendAll(page, " ", column.heading, " |");
    AppendAll(page, "\n|---|");
    for (std::size_t i = 0; i < Columns().size(); ++i)
        AppendAll(page, "---|");
    AppendAll(page, "\n");
    for (const auto& [place, figures] : race.places) {
        AppendAll(page, "| ", place.first, ", ", place.second, " |");
        for (const auto& column : Columns())
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

// The page, and its pictures beside it.
void WritePage(const BalanceCommand& command, const std::vector<RaceFigures>& all) {
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

}  // namespace

int MeasureBalance(const BalanceCommand& command, Streams& streams) {
    const auto all = Balance(command).Measure();
    if (!command.outFolder.empty())
        WritePage(command, all);
    else if (command.format == Format::Json)
        PrintJson(all, streams.out);
    else
        PrintText(all, streams.out);
    return kSuccess;
}

}  // namespace korvane::cli
