#include <exception>
#include <optional>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "character/characteristics.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/terminal_player.h"
#include "output/character_text.h"
#include "output/journal/recorder.h"
#include "output/summary_texts.h"
#include "play/life.h"

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
    play::Select(session, race, career,
                 Pick(player, "Assignment", command.assignment, *data.AssignmentNames(race, career)));
}

// The journal of a life that is played: each line is in the file before the next question comes. What the disk refuses
// is told once, and the life goes on without it.
class PlayedJournal {
  public:
    PlayedJournal(const std::string& path, std::ostream& err) : err_(err) {
        if (!path.empty())
            file_.emplace(path, Sync::Now);
    }

    void Write(std::string_view line) {
        Try([&] { file_->Write(line); });
    }
    void BeginAnew() {
        Try([&] { file_->Clear(); });
    }
    // Whether all of it was kept.
    bool whole() const { return whole_; }

  private:
    template <typename Action>
    void Try(const Action& action) {
        if (!file_)
            return;
        try {
            action();
        } catch (const IoError& error) {
            whole_ = false;
            file_.reset();
            err_ << "korvane-cli: file error: " << error.what() << "; the life goes on, its journal ends here\n";
        }
    }

    std::ostream& err_;
    std::optional<LineFile> file_;
    bool whole_ = true;
};

// Rolls characters until the player starts with one. The journal begins anew with each.
void RollCharacter(Session& session, journal::Recorder& recorder, PlayedJournal& journal, TerminalPlayer& player,
                   std::ostream& out) {
    int answer = 2;
    while (answer == 2) {
        journal.BeginAnew();
        recorder.Begin(session);
        StartNewCharacter(session);
        out << '\n';
        for (const auto& line : CharacteristicLines(session.character))
            out << line << '\n';
        answer = player.PickLine("Statistics", {{"Start Career"}, {"Roll"}}, false);
    }
}

}  // namespace

int Play(const PlayCommand& command, Streams& streams) {
    // Before the first question, as a journal that can't be kept is no news for the end of a life.
    PlayedJournal journal(command.journal, streams.err);
    TerminalPlayer player(streams.in, streams.out);
    TerminalDisplay display(streams.out);
    ClockDice dice;
    journal::Recorder recorder([&journal](std::string_view line) { journal.Write(line); }, dice, player);
    Session session(DataFolder(ChooseDataLocation(command.data)), {&recorder, &recorder, &display});
    display.Watch(session.character);
    session.method = command.method;
    session.options = command.options;
    Select(session, command, player);
    const auto roll = [&](Session& life) { RollCharacter(life, recorder, journal, player, streams.out); };
    const auto outcome = play::LiveRecorded(session, recorder, roll, [&] {
        streams.out << '\n' << CharacterText(session) << std::flush;
    });
    if (outcome.cause)
        std::rethrow_exception(outcome.cause);
    return journal.whole() ? kSuccess : kFailure;
}

}  // namespace korvane::cli
