#include <sstream>

#include "base/error.h"
#include "base/places.h"
#include "base/text.h"
#include "character/characteristics.h"
#include "character/summary.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/terminal_player.h"
#include "engine/selection.h"
#include "output/character_text.h"
#include "output/journal/recorder.h"

namespace korvane::cli {

namespace {

// The wanted name, or the one that the player picks from those there are.
std::string Pick(TerminalPlayer& player, std::string_view title, const std::string& wanted, const Names& names) {
    if (!wanted.empty() || names.empty())
        return wanted;
    return names[static_cast<std::size_t>(player.PickName(title, names, false) - 1)];
}

void Select(Session& session, const PlayCommand& command, TerminalPlayer& player) {
    auto& data = session.data;
    const auto race = Pick(player, "Race", command.race, *data.RaceNames());
    const auto career = Pick(player, "Career", command.career, *data.CareerNames(race));
    SelectStart(session, race, career,
                Pick(player, "Assignment", command.assignment, *data.AssignmentNames(race, career)));
}

// Rolls characters until the player starts with one. The journal begins anew with each.
void RollCharacter(Session& session, journal::Recorder& recorder, std::ostringstream& journal, TerminalPlayer& player,
                   std::ostream& out) {
    int answer = 2;
    while (answer == 2) {
        journal.str({});
        recorder.Begin(session);
        StartNewCharacter(session);
        out << '\n';
        for (const auto& line : CharacteristicLines(session.character))
            out << line << '\n';
        answer = player.PickLine("Statistics", {{"Start Career"}, {"Roll"}}, false);
    }
}

void WriteJournal(const PlayCommand& command, const std::ostringstream& journal) {
    if (!command.journal.empty())
        ReplaceFile(command.journal, journal.str());
}

}  // namespace

int Play(const PlayCommand& command, Streams& streams) {
    TerminalPlayer player(streams.in, streams.out);
    TerminalDisplay display(streams.out);
    ClockDice dice;
    std::ostringstream journal;
    journal::Recorder recorder(journal, dice, player);
    Session session(DataFolder(ChooseDataLocation(command.data)), {&recorder, &recorder, &display});
    display.Watch(session.character);
    session.method = command.method;
    session.options = command.options;
    Select(session, command, player);
    try {
        RollCharacter(session, recorder, journal, player, streams.out);
        const auto end = RunLife(session);
        recorder.End(end);
        WriteJournal(command, journal);
        if (end == LifeEnd::MusteredOut)
            streams.out << '\n' << CharacterText(session);
        return kSuccess;
    } catch (const RuleError& error) {
        recorder.EndInError(NameOf(error.kind()), error.what());
        WriteJournal(command, journal);
        throw;
    } catch (const FileError& error) {
        recorder.EndInError("file", error.what());
        WriteJournal(command, journal);
        throw;
    } catch (const UsageError&) {
        WriteJournal(command, journal);  // what there is of it
        throw;
    }
}

}  // namespace korvane::cli
