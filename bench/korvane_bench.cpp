// What things cost, as ratios: a life against the bare cost of its own dice, loading the rule files, reading a journal.

#include <benchmark/benchmark.h>
#include <chrono>
#include <sstream>

#include "allocations.h"
#include "base/files.h"
#include "character/characteristics.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/journal/recorder.h"
#include "output/journal/replayer.h"
#include "play/life.h"
#include "play/players.h"
#include "play/sensible_player.h"

namespace korvane {
namespace {

// The clock's dice, with a note of each request.
class NotingDice : public Dice {
  public:
    explicit NotingDice(std::vector<std::pair<int, int>>& notes) : notes_(notes) {}
    int Roll(int count, int sides) override {
        notes_.emplace_back(count, sides);
        return dice_.Roll(count, sides);
    }
    int Draw(int n) override {
        notes_.emplace_back(0, n);
        return dice_.Draw(n);
    }

  private:
    std::vector<std::pair<int, int>>& notes_;
    ClockDice dice_;
};

// A session that lives one automatic life after another, of four terms, as the command line does.
struct Lives {
    Display display;
    ClockDice dice;
    Session session{DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {&dice, nullptr, &display}};
    play::PolicyPlayer policy{session, RandomStream(1), 4};
    play::SensiblePlayer sensible{session, RandomStream(1), 4};
    int number = 0;

    explicit Lives(bool automatic = true) {
        session.options.Set(Option::AutomaticGeneration, automatic);
        session.seams.player = automatic ? static_cast<Player*>(&policy) : &sensible;
    }

    // The careers take turns, so that a mean life is measured.
    void Select() {
        const auto& careers = *session.data.CareerNames("Imperial Human");
        const auto& career = careers[static_cast<std::size_t>(number++) % careers.size()];
        play::Select(session, "Imperial Human", career,
                     session.data.AssignmentNames("Imperial Human", career)->front());
    }
    // From the new character's dice to the end of the last career.
    void Live() {
        StartNewCharacter(session);
        RunLife(session);
    }
    void Warm() {
        for (int i = 0; i < 20000; ++i) {
            Select();
            Live();
        }
    }
};

void Measure(benchmark::State& state, Lives& lives) {
    using Clock = std::chrono::steady_clock;
    lives.Warm();
    const auto before = AllocationCount();
    for (auto _ : state) {
        lives.Select();
        const auto start = Clock::now();
        lives.Live();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(AllocationCount() - before), benchmark::Counter::kAvgIterations);
}

void AutomaticLife(benchmark::State& state) {
    Lives lives;
    Measure(state, lives);
}
BENCHMARK(AutomaticLife)->UseManualTime();

// The same, each question answered by the player of sense.
void SensibleLife(benchmark::State& state) {
    Lives lives(false);
    Measure(state, lives);
}
BENCHMARK(SensibleLife)->UseManualTime();

// The same, with the selection of race, career and assignment before it.
void SelectionAndLife(benchmark::State& state) {
    Lives lives;
    lives.Warm();
    for (auto _ : state) {
        lives.Select();
        lives.Live();
    }
}
BENCHMARK(SelectionAndLife);

// Just the dice of such lives, by the same dice and through the same interface.
void DiceOfALife(benchmark::State& state) {
    constexpr std::size_t kLives = 5000;
    std::vector<std::pair<int, int>> notes;
    Lives lives;
    NotingDice noting(notes);
    lives.session.seams.dice = &noting;
    for (std::size_t i = 0; i < kLives; ++i) {
        lives.Select();
        lives.Live();
    }
    ClockDice clock;
    Dice& dice = clock;
    for (auto _ : state)
        for (const auto& [count, sides] : notes)
            benchmark::DoNotOptimize(count > 0 ? dice.Roll(count, sides) : dice.Draw(sides));
    const auto whole = static_cast<double>(kLives);
    state.counters["requests"] = static_cast<double>(notes.size()) / whole;
    state.counters["per_life"] =
        benchmark::Counter(whole, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(DiceOfALife);

void LoadAllRuleFiles(benchmark::State& state) {
    for (auto _ : state) {
        DataFolder folder(HeldPath(KORVANE_RULES));
        for (const auto& race : *folder.RaceNames()) {
            benchmark::DoNotOptimize(folder.Race(race));
            for (const auto& career : *folder.CareerNames(race)) {
                benchmark::DoNotOptimize(folder.Career(race, career));
                for (const auto& assignment : *folder.AssignmentNames(race, career))
                    benchmark::DoNotOptimize(folder.Assignment(race, career, assignment));
            }
        }
    }
}
BENCHMARK(LoadAllRuleFiles);

// The same bytes read and nothing else.
void ReadAllRuleFiles(benchmark::State& state) {
    // The folder is listed each time, as by those who load the files.
    for (auto _ : state)
        for (const auto& name : ListFiles(HeldPath(KORVANE_RULES)))
            if (!name.ends_with(".dat") && !name.ends_with(".htm"))
                benchmark::DoNotOptimize(ReadBytes(std::filesystem::path(KORVANE_RULES) / name, "a file"));
}
BENCHMARK(ReadAllRuleFiles);

// Reading a journal and living it again.
void ReplayJournal(benchmark::State& state) {
    Lives lives;
    std::string text;
    int lines = 0;
    const auto write = [&](std::string_view line) {
        text.append(line).append("\n");
        ++lines;
    };
    journal::Recorder recorder(write, lives.dice, lives.policy);
    lives.session.seams = {&recorder, &recorder, &lives.display};
    play::Select(lives.session, "Imperial Human", "Army", "Infantry");
    recorder.Begin(lives.session);
    StartNewCharacter(lives.session);
    recorder.End(RunLife(lives.session));
    for (auto _ : state) {
        journal::Replayer replayer("journal", text);
        lives.session.seams = {&replayer, &replayer, &lives.display};
        play::Select(lives.session, "Imperial Human", "Army", "Infantry");
        StartNewCharacter(lives.session);
        replayer.ExpectEnd(RunLife(lives.session));
    }
    state.counters["lines"] = lines;
}
BENCHMARK(ReplayJournal);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
