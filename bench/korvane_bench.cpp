// What things cost, as ratios: a life against the bare cost of its own dice, loading the rule files, reading a journal.

#include <benchmark/benchmark.h>
#include <chrono>
#include <sstream>

#include "allocations.h"
#include "base/files.h"
#include "character/characteristics.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/character_document.h"
#include "output/journal/lines.h"
#include "output/journal/read_journal.h"
#include "output/journal/tape_deck.h"
#include "play/life.h"
#include "play/life_plan.h"
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

// Records the life of a soldier.
journal::Tape RecordLife(Lives& lives) {
    play::LifePlan plan;
    plan.career = "Army";
    plan.assignment = "Infantry";
    plan.player = play::PlayerKind::Random;
    journal::Tape tape;
    for (std::uint64_t number = 1; tape.lines.size() < 150; ++number) {
        plan.seed = Seed(number);
        tape = {};
        play::Live(lives.session, plan, number, &tape);
    }
    return tape;
}

void LiveAgain(Lives& lives, journal::Tape& tape) {
    journal::TapeDeck deck(lives.session, tape, nullptr, nullptr);
    play::LiveAgain(lives.session, tape, deck);
}

// Living a tape of some 150 lines again.
void LiveTapeAgain(benchmark::State& state) {
    Lives lives;
    auto tape = RecordLife(lives);
    for (auto _ : state)
        LiveAgain(lives, tape);
    state.counters["lines"] = static_cast<double>(tape.lines.size());
}
BENCHMARK(LiveTapeAgain);

// Living it at first: its dice and answers come without a tape.
void LiveTapeAtFirst(benchmark::State& state) {
    Lives lives;
    const auto tape = RecordLife(lives);
    play::LifePlan plan;
    plan.career = "Army";
    plan.assignment = "Infantry";
    plan.player = play::PlayerKind::Random;
    plan.seed = tape.start.dice->seed;
    for (auto _ : state)
        play::Live(lives.session, plan, tape.start.dice->number);
}
BENCHMARK(LiveTapeAtFirst);

// Reading a journal and living it again.
void ReplayJournal(benchmark::State& state) {
    Lives lives;
    const auto text = journal::JournalText(RecordLife(lives));
    for (auto _ : state) {
        auto read = journal::ReadJournal("journal", text);
        LiveAgain(lives, read.tape);
    }
}
BENCHMARK(ReplayJournal);

// The journal and the document of a finished life, as text.
void WriteJournal(benchmark::State& state) {
    Lives lives;
    const auto tape = RecordLife(lives);
    for (auto _ : state)
        benchmark::DoNotOptimize(journal::JournalText(tape));
}
BENCHMARK(WriteJournal);

void WriteDocument(benchmark::State& state) {
    Lives lives;
    RecordLife(lives);
    for (auto _ : state)
        benchmark::DoNotOptimize(CharacterDocument(lives.session));
}
BENCHMARK(WriteDocument);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
