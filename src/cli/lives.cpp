#include "cli/lives.h"

#include <random>
#include <utility>

#include "base/text.h"
#include "character/characteristics.h"
#include "cli/players.h"
#include "engine/selection.h"

namespace korvane::cli {

namespace {

// The chance that isn't the rules': picks for the selection and a player's answers.
RandomStream StreamFor(const LifePlan& plan, std::uint64_t number) {
    constexpr std::uint64_t kNotTheDice = 0x504C4159;
    static const std::uint64_t unseeded = std::random_device{}();
    return RandomStream(RandomStream::Mix(plan.seed.value_or(unseeded) ^ kNotTheDice) + RandomStream::Mix(number));
}

// The wanted name, or any of those there are but "Prisoner"; empty when there is none.
std::string Pick(RandomStream& stream, const std::string& wanted, const Names& names) {
    if (!wanted.empty())
        return wanted;
    const auto* const any = AnyOf(stream, names, "Prisoner");
    return any == nullptr ? std::string() : *any;
}

struct Picked {
    std::string race;
    std::string career;
    std::string assignment;
};

Picked PickSelection(Session& session, const LifePlan& plan, RandomStream& stream) {
    auto race = Pick(stream, plan.race, *session.data.RaceNames());
    auto career = Pick(stream, plan.career, *session.data.CareerNames(race));
    auto assignment = Pick(stream, plan.assignment, *session.data.AssignmentNames(race, career));
    return {std::move(race), std::move(career), std::move(assignment)};
}

// Puts the seams back as they were: a life's dice and player go with it.
class SeamsGuard {
  public:
    explicit SeamsGuard(Seams& seams) : seams_(seams), before_(seams) {}
    ~SeamsGuard() { seams_ = before_; }
    SeamsGuard(const SeamsGuard&) = delete;
    SeamsGuard& operator=(const SeamsGuard&) = delete;

  private:
    Seams& seams_;
    Seams before_;
};

std::string Told(const RuleError& error) {
    return Concat(NameOf(error.kind()), " error: ", error.what());
}

LifeOutcome RunRecorded(Session& session, journal::Recorder& recorder) {
    recorder.Begin(session);
    try {
        StartNewCharacter(session);
        const auto end = RunLife(session);
        recorder.End(end);
        return {end, {}};
    } catch (const RuleError& error) {
        recorder.EndInError(NameOf(error.kind()), error.what());
        return {std::nullopt, Told(error)};
    } catch (const FileError& error) {
        recorder.EndInError("file", error.what());
        throw;
    }
}

LifeOutcome RunUnrecorded(Session& session) {
    try {
        StartNewCharacter(session);
        return {RunLife(session), {}};
    } catch (const RuleError& error) {
        return {std::nullopt, Told(error)};
    }
}

LifeOutcome Run(Session& session, const journal::Recorder::Sink& journal) {
    if (!journal)
        return RunUnrecorded(session);
    journal::Recorder recorder(journal, *session.seams.dice, *session.seams.player);
    session.seams.dice = &recorder;
    session.seams.player = &recorder;
    return RunRecorded(session, recorder);
}

}  // namespace

LifeOutcome Live(Session& session, const LifePlan& plan, std::uint64_t number, const journal::Recorder::Sink& journal) {
    auto stream = StreamFor(plan, number);
    session.method = plan.method;
    session.options = plan.options;
    session.options.Set(Option::AutomaticGeneration, plan.player == PlayerKind::Automatic);
    const auto selection = PickSelection(session, plan, stream);
    SeededDice seeded(plan.seed.value_or(0), number);
    ClockDice clock;
    Dice& dice = plan.seed ? static_cast<Dice&>(seeded) : clock;
    PolicyPlayer policy(stream, plan.terms);
    RandomPlayer random(stream);
    Player& player = plan.player == PlayerKind::Automatic ? static_cast<Player&>(policy) : random;
    const SeamsGuard guard(session.seams);
    session.seams.dice = &dice;
    session.seams.player = &player;
    SelectStart(session, selection.race, selection.career, selection.assignment);
    return Run(session, journal);
}

}  // namespace korvane::cli
