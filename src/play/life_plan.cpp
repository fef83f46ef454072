#include "play/life_plan.h"

#include <memory>
#include <random>
#include <utility>

#include "character/seams_guard.h"
#include "data/known_names.h"
#include "play/players.h"
#include "play/sensible_player.h"

namespace korvane::play {

namespace {

// The chance that isn't the rules': picks for the selection and a player's answers.
RandomStream StreamFor(const LifePlan& plan, std::uint64_t number) {
    constexpr std::uint64_t kNotTheDice = 0x504C4159;
    static const std::uint64_t unseeded = std::random_device{}();
    const auto seed = plan.seed ? plan.seed->value() : unseeded;
    return RandomStream(RandomStream::Mix(seed ^ kNotTheDice) + RandomStream::Mix(number));
}

// The wanted name, or any of those there are but "Prisoner"; empty when there is none.
std::string Pick(RandomStream& stream, const std::string& wanted, const Names& names) {
    if (!wanted.empty())
        return wanted;
    const auto* const any = AnyOf(stream, names, [](std::string_view name) { return name == kPrisoner; });
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

std::unique_ptr<Player> PlayerFor(const Session& session, const LifePlan& plan, RandomStream stream) {
    switch (plan.player) {
        case PlayerKind::Sensible:
            return std::make_unique<SensiblePlayer>(session, stream, plan.terms);
        case PlayerKind::Automatic:
            return std::make_unique<PolicyPlayer>(session, stream, plan.terms);
        case PlayerKind::Random:
            break;
    }
    return std::make_unique<RandomPlayer>(stream);
}

}  // namespace

LifeOutcome Live(Session& session, const LifePlan& plan, std::uint64_t number, journal::Tape* tape) {
    auto stream = StreamFor(plan, number);
    session.method = plan.method;
    session.options = plan.options;
    session.options.Set(Option::AutomaticGeneration, plan.player == PlayerKind::Automatic);
    const auto selection = PickSelection(session, plan, stream);
    SeededDice seeded(plan.seed ? plan.seed->value() : 0, number);
    ClockDice clock;
    Dice& dice = plan.seed ? static_cast<Dice&>(seeded) : clock;
    const auto player = PlayerFor(session, plan, stream);
    const SeamsGuard guard(session.seams);
    session.seams.dice = &dice;
    session.seams.player = player.get();
    Select(session, selection.race, selection.career, selection.assignment);
    return tape == nullptr ? LiveOut(session) : LiveRecorded(session, *tape, {plan.seed, plan.seed ? number : 1});
}

}  // namespace korvane::play
