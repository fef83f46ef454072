#include <exception>
#include <memory>
#include <optional>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "character/characteristics.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/terminal_player.h"
#include "output/character_text.h"
#include "output/journal/read_journal.h"
#include "output/luck_line.h"
#include "output/summary_texts.h"
#include "play/kept_journal.h"

namespace korvane::cli {

namespace {

// The wanted name, or the one that the player picks from those there are.
std::string Pick(TerminalPlayer& player, std::string_view title, const std::string& wanted, const Names& names) {
    if (!wanted.empty() || names.empty())
        return wanted;
    return names[static_cast<std::size_t>(player.PickName(title, names) - 1)];
}

void Select(Session& session, const PlayCommand& command, TerminalPlayer& player) {
    auto& data = session.data;
    const auto race = Pick(player, "Race", command.race, *data.RaceNames());
    const auto career = Pick(player, "Career", command.career, *data.CareerNames(race));
    play::Select(session, race, career,
                 Pick(player, "Assignment", command.assignment, *data.AssignmentNames(race, career)));
}

// Rolls characters until the player starts with one.
void RollCharacter(Session& session, TerminalPlayer& player, std::ostream& out) {
    int answer = 2;
    while (answer == 2) {
        StartNewCharacter(session);
        out << '\n';
        for (const auto& line : CharacteristicLines(session.character))
            out << line << '\n';
        answer = player.PickLine("Statistics", {{"Start Career"}, {"Roll"}});
    }
}

class PlayedLife {
  public:
    PlayedLife(const PlayCommand& command, Streams& streams)
        : command_(command),
          streams_(streams),
          out_(streams.out, streams.width),
          session_(DataFolder(ChooseDataLocation(command.data)), {nullptr, nullptr, nullptr}),
          display_(session_, out_),
          player_(session_, streams.in, out_),
          life_(session_, dice_, player_) {
        session_.seams.display = &display_;
        if (command.seed)
            life_.UseSeed(*command.seed);
        player_.steps = &life_;
        player_.goingElsewhere = [this] { display_.Hush(); };
        life_.cameBack = [this] { display_.GoOn(); };
        life_.recorded = [this](const journal::Line& line) { display_.ShowDice(line); };
        life_.checkRolled = [this](const RolledCheck& rolled) { display_.ShowCheck(rolled); };
        life_.goesOn = [this](const journal::Divergence& divergence) {
            display_.GoOn();
            out_.Write(Concat("\n", divergence.what(), "\nThe rules have changed since then.\n"));
            const bool goes_on = player_.AskBeside({"Go on from the last answer that fits?"});
            display_.Hush();
            return goes_on;
        };
    }

    int Run() {
        const auto finished = [this] {
            const auto luck = LuckLine(session_.character.Luck);
            out_.Write(Concat("\n", CharacterText(session_), luck, luck.empty() ? "" : "\n"));
            streams_.out << std::flush;
            return false;
        };
        try {
            const auto unfinished = OpenJournal();
            const auto outcome = unfinished ? GoOn(*unfinished, finished) : Begin(finished);
            if (outcome.cause)
                std::rethrow_exception(outcome.cause);
            return !journal_ || journal_->whole() ? kSuccess : kFailure;
        } catch (const PlayerLeft&) {
            if (journal_)
                out_.Write(
                    Concat("\nThe life is kept in ", command_.journal, ". Go on with it by the same command.\n"));
            return kSuccess;
        }
    }

  private:
    void Report(const std::string& error) {
        streams_.err << "korvane-cli: file error: " << error << "; the life goes on, its journal ends here\n";
    }

    // Before the first question, as a journal that can't be kept is no news for the end of a life. Returns the life
    // that is to be gone on with.
    std::optional<journal::Journal> OpenJournal() {
        if (command_.journal.empty())
            return std::nullopt;
        const std::filesystem::path path(command_.journal);
        const auto report = [this](const std::string& error) { Report(error); };
        std::error_code error;
        if (command_.journal == "-")
            throw UsageError("a journal is kept in a file: \"-\" is none");
        const auto held =
            std::filesystem::is_regular_file(path, error) ? ReadBytes(path, "a journal", kMostJournal) : std::string();
        std::optional<journal::Journal> unfinished;
        if (HoldsNoAnswer(held))
            std::filesystem::resize_file(path, 0);
        else if (!held.empty())
            unfinished = ToGoOnWith(journal::ReadJournal(path.string(), held));
        if (unfinished)
            journal_.emplace(path, *unfinished, report);
        else
            journal_.emplace(path, report);
        life_.keeper = &*journal_;
        return unfinished;
    }
    // The journal, where its life isn't finished and the player goes on with it.
    std::optional<journal::Journal> ToGoOnWith(journal::Journal journal) {
        if (journal.tape.end || !WantsToGoOn(journal))
            return std::nullopt;
        return journal;
    }
    bool WantsToGoOn(const journal::Journal& journal) {
        out_.Write(Concat("\n", command_.journal, " holds a life that isn't finished: ", journal.tape.start.race, ", ",
                          journal.tape.start.career, ", ", journal.tape.lines.size(), " lines.\n"));
        if (command_.seed)
            out_.Write("Its dice are those of its own beginning, not of another seed.\n");
        if (journal.IsDamaged())
            out_.Write(Concat(command_.journal, ":", journal::JournalLine(journal.tape.lines.size() - 1),
                              ": the line is damaged; what follows it would be lost.\n"));
        return player_.AskBeside({"Go on with it?", {}, Icon::Question, !journal.IsDamaged()});
    }
    // Whether a file holds no more than a part of a first line, with which nothing was answered.
    static bool HoldsNoAnswer(std::string_view held) {
        return held.starts_with("{\"journal\"") && held.find('\n') == std::string_view::npos;
    }

    play::LifeOutcome Begin(const play::RecordedLife::Finished& finished) {
        session_.method = command_.method;
        session_.options = command_.options;
        Select(session_, command_, player_);
        RollCharacter(session_, player_, streams_.out);
        player_.BeginLife();
        return life_.Live(finished);
    }
    play::LifeOutcome GoOn(const journal::Journal& journal, const play::RecordedLife::Finished& finished) {
        display_.Hush(true);
        player_.BeginLife();
        return life_.GoOn(journal, finished);
    }

    const PlayCommand& command_;
    Streams& streams_;
    WrappedOut out_;
    Session session_;
    TerminalDisplay display_;
    TerminalPlayer player_;
    ClockDice dice_;
    play::RecordedLife life_;
    std::optional<play::KeptJournal> journal_;
};

}  // namespace

int Play(const PlayCommand& command, Streams& streams) {
    auto known = command;
    KnowNames(RuleFolder(known.data), known.race, known.career, known.assignment);
    return PlayedLife(known, streams).Run();
}

}  // namespace korvane::cli
