#include "character/home_world.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "engine/names.h"
#include "output/summary_texts.h"

namespace korvane::cli {

namespace {

// Prints one line for each number, made in a session of the race with the dice of that number.
template <typename Make>
int PrintMany(const ListCommand& command, Streams& streams, const Make& make) {
    Display nobody;
    Session session(DataFolder(RuleFolder(command.data), DataFolder::Reading::Once), {nullptr, nullptr, &nobody});
    LoadRaceNamed(session, command.race);
    ClockDice clock;
    for (std::uint64_t number = 1; number <= command.count; ++number) {
        SeededDice seeded(command.seed ? command.seed->value() : 0, number);
        session.seams.dice = command.seed ? static_cast<Dice*>(&seeded) : &clock;
        const auto line = make(session);
        if (line.empty())
            return kFailure;
        streams.out << line << '\n';
    }
    return kSuccess;
}

}  // namespace

int PrintNames(const ListCommand& command, Streams& streams) {
    const int status = PrintMany(command, streams, [](Session& session) { return RollNameOf(session); });
    if (status != kSuccess)
        streams.err << "korvane-cli: the data folder has no syllables of names\n";
    return status;
}

int PrintWorlds(const ListCommand& command, Streams& streams) {
    const int status = PrintMany(command, streams, [](Session& session) {
        RollHomeWorld(session);
        return HomeWorldText(session.character);
    });
    if (status != kSuccess)
        streams.err << "korvane-cli: the data folder has no tables of home worlds\n";
    return status;
}

}  // namespace korvane::cli
