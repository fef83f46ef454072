#include "play/balance.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iterator>
#include <set>
#include <string_view>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "engine/prison.h"
#include "output/story.h"
#include "play/life_plan.h"
#include "skills/grant.h"

namespace korvane::play {

namespace {

// Notes the checks of lives.
class Checks : public Observer {
  public:
    Checks(const Session& session, std::map<Place, Figures>& figures) : session_(session), figures_(figures) {}

    void CheckRolled(const RolledCheck& rolled) override {
        const auto check = rolled.check;
        const int own = rolled.own;
        const int effect = rolled.effect;
        const auto& selection = session_.selection;
        auto& figures = figures_[{selection.career, selection.assignment}];
        // By the text's place in its file: two checks may read the same.
        if (check.data() == session_.assignment.survival.data()) {
            figures.fails.Count(effect < 0);
            figures.failsBy[own].Count(effect < 0);
        } else if (check.data() == session_.assignment.advancement.data()) {
            if (session_.character.ParoleThreshold <= 0)  // else the roll is that of the parole
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

bool HasLine(std::span<const std::string> history, StoryKind kind) {
    return std::ranges::any_of(history, [&](const auto& line) { return StoryKindOf(line) == kind; });
}

bool LeavesPrison(std::string_view line) {
    return line == kReleased || line == kEscaped || line.starts_with("Transfer to ");
}

void NoteLife(const CharacterRecord& character, Figures& figures, std::map<std::string, std::uint64_t>& met) {
    const auto history = character.History.lines();
    figures.injured.Count(HasLine(history, StoryKind::Injury));
    figures.jailed.Count(std::ranges::any_of(history, [](const auto& line) { return line.starts_with(kImprisoned); }));
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

// The row that stands most often in a table, without its level.
std::string MostFrequent(const SixRows& table) {
    std::map<std::string, int> counts;
    for (const auto row : std::span(table).subspan(1))
        if (const auto skills = SkillsIn(row); !skills.empty())
            ++counts[std::string(skills.front())];
    const auto most = std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
    return most == counts.end() ? std::string() : most->first;
}

std::string UnknownName(std::string_view kind, const std::string& name, const std::vector<std::string>& known) {
    return Concat("unknown ", kind, " ", Quoted(name),
                  DidYouMean(name, std::vector<std::string_view>(known.begin(), known.end())));
}

class Balance {
  public:
    Balance(Session& session, const BalancePlan& plan) : session_(session), plan_(plan) {}

    std::vector<RaceFigures> Measure() {
        std::vector<RaceFigures> all;
        std::vector<std::string> careers;
        const auto races = session_.data.RaceNames();
        for (const auto& race : *races) {
            if (!plan_.race.empty() && plan_.race != race)
                continue;
            std::ranges::copy(*session_.data.CareerNames(race), std::back_inserter(careers));
            all.push_back(MeasureRace(race));
        }
        if (all.empty())
            throw UsageError(UnknownName("race", plan_.race, *races));
        if (std::ranges::all_of(all, [](const RaceFigures& race) { return race.places.empty(); }))
            throw UsageError(UnknownName("career", plan_.career, careers));
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
            if (plan_.career.empty() || plan_.career == career)
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
        LifePlan plan;
        plan.race = start[0];
        plan.career = start[1];
        plan.assignment = start[2];
        plan.player = PlayerKind::Automatic;
        plan.terms = plan_.terms;
        plan.seed = plan_.seed;
        figures.places[{plan.career, plan.assignment}].specialty =
            MostFrequent(session_.data.Assignment(plan.race, plan.career, plan.assignment).assignmentTable);
        const auto assignments = session_.data.AssignmentNames(plan.race, plan.career)->size();
        const auto count = std::max<std::uint64_t>(plan_.count / assignments, 1);
        for (std::uint64_t number = 1; number <= count; ++number) {
            const auto outcome = Live(session_, plan, number);
            if (outcome.cause)
                std::rethrow_exception(outcome.cause);
            if (!outcome.finished())
                continue;
            NoteLife(session_.character, figures.places[{plan.career, plan.assignment}], figures.met);
            NotePrison(session_.character.History.lines(), figures.prison);
            figures.oldest = std::max<int>(figures.oldest, session_.character.Age);
        }
    }

    Session& session_;
    const BalancePlan& plan_;
};

}  // namespace

std::optional<double> Spread(const Figures& figures) {
    constexpr std::uint64_t kEnough = 200;
    constexpr int kSteps = 4;
    std::vector<std::pair<int, double>> points;
    for (const auto& [modifier, share] : figures.failsBy)
        if (share.of >= kEnough && modifier >= -2 && modifier <= 2)
            points.emplace_back(modifier, share.percent());
    if (points.size() < 2)
        return std::nullopt;
    return (points.front().second - points.back().second) / (points.back().first - points.front().first) * kSteps;
}

std::pair<std::string, double> SpecialistOf(const Figures& figures) {
    const auto share = figures.specialists.find(figures.specialty);
    const auto hits = share == figures.specialists.end() ? 0 : share->second.hits;
    return {figures.specialty,
            figures.age.count == 0 ? 0 : 100.0 * static_cast<double>(hits) / static_cast<double>(figures.age.count)};
}

void NotePrison(std::span<const std::string> history, PrisonFigures& prison) {
    constexpr int kFew = 5;
    bool inside = false;
    int terms = 0;
    for (const auto& line : history) {
        if (!inside && line.starts_with(kImprisoned)) {
            inside = true;
            terms = 0;
        } else if (inside && StoryKindOf(line) == StoryKind::Term) {
            prison.longest = std::max(prison.longest, ++terms);
        } else if (inside && LeavesPrison(line)) {
            inside = false;
            prison.freeWithinFive.Count(terms <= kFew);
        }
    }
    if (inside && terms <= kFew)
        ++prison.cutShort;
    else if (inside)
        prison.freeWithinFive.Count(false);
}

std::vector<RaceFigures> MeasureBalance(Session& session, const BalancePlan& plan) {
    const SeamsGuard guard(session.seams);
    return Balance(session, plan).Measure();
}

}  // namespace korvane::play
