#include "base/error.h"
#include "base/text.h"
#include "character/home_world.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "engine/names.h"
#include "engine/selection.h"
#include "output/summary_texts.h"
#include "play/players.h"

namespace korvane::cli {

namespace {

// Prints one line for each number, made in a session of the race with the dice of that number.
template <typename Make>
int PrintMany(const ListCommand& command, Streams& streams, const Make& make) {
    Display nobody;
    play::RandomPlayer player{RandomStream()};
    SeededDice first(0, 0);
    Session session(DataFolder(ChooseDataLocation(command.data), DataFolder::Reading::Once),
                    {&first, &player, &nobody});
    ListRaces(session);
    if (!command.race.empty())
        LoadRace(session, KnownName(*session.selection.races, command.race));
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
