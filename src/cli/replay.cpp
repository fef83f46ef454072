#include <algorithm>
#include <exception>
#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/rendering.h"
#include "play/kept_journal.h"

namespace korvane::cli {

namespace {

class Replays {
  public:
    Replays(const ReplayCommand& command, Streams& streams)
        : command_(command),
          streams_(streams),
          session_(DataFolder(RuleFolder(command.data)), {nullptr, nullptr, &display_}) {}

    int Run() {
        bool failed = false;
        int status = kSuccess;
        for (const auto& path : command_.journals) {
            const int one = RunOne(path);
            failed |= one == kFailure;
            status = std::max(status, one);
        }
        if (shown_ > 0)
            streams_.out << FrameOf(command_.format, {}).after;
        return failed ? kFailure : status;
    }

  private:
    int RunOne(const std::string& path) {
        try {
            return Replay(play::ReadJournalFile(path));
        } catch (const journal::Divergence& divergence) {
            streams_.err << "korvane-cli: " << divergence.what() << '\n';
            return kDivergence;
        } catch (const std::exception& error) {
            if (command_.journals.size() == 1)
                throw;
            streams_.err << "korvane-cli: " << path << ": " << error.what() << '\n';
            return kFailure;
        }
    }

    int Replay(const journal::Journal& journal) {
        auto tape = journal.tape;
        journal::TapeDeck deck(session_, tape, nullptr, nullptr, journal.name);
        const auto outcome = Live(journal, deck);
        if (outcome.cause)
            std::rethrow_exception(outcome.cause);
        if (outcome.finished())
            Show(play::LabelsOf(tape), journal.name);
        return IsTheSame(journal) ? kSuccess : kDivergence;
    }
    // A divergence names the rule files that aren't those of the journal: they may be its cause.
    play::LifeOutcome Live(const journal::Journal& journal, journal::TapeDeck& deck) {
        try {
            auto outcome = play::LiveAgain(session_, journal.tape, deck);
            if (journal.goesOn)
                throw journal::JournalError(journal.name, journal::JournalLine(journal.tape.lines.size()) + 1,
                                            "the end of the journal", "another line");
            return outcome;
        } catch (const journal::Divergence& divergence) {
            if (deck.changedFiles().empty())
                throw;
            std::string files;
            for (const auto& file : deck.changedFiles())
                AppendAll(files, files.empty() ? "" : ", ", file);
            throw journal::Divergence(divergence.line(),
                                      Concat(divergence.what(), "; the rules differ from the journal's: ", files));
        }
    }
    // Whether the character is the one that the journal tells of.
    bool IsTheSame(const journal::Journal& journal) {
        const auto& end = journal.tape.end;
        if (!end || !end->document || *end->document == play::DocumentDigest(session_, journal.tape))
            return true;
        streams_.err << "korvane-cli: " << journal.name << ':' << journal::JournalLine(journal.tape.lines.size())
                     << ": the character isn't the one that the journal tells of; \"korvane-cli verify\" says why\n";
        return false;
    }

    // `journal`: its name.
    void Show(DocumentLabels labels, const std::string& journal) {
        if (command_.format == Format::Html) {
            PageWriter pages(command_.page, command_.outFolder, false);
            pages.Write(PageMaker(session_, command_.page.templateName)
                            .Make(*NameFor(session_, command_.name, command_.format, "Character")));
            pages.Finish();
            return;
        }
        labels.luck = command_.luck;
        labels.name = NameFor(session_, command_.name, command_.format, "Character");
        const bool alone = !command_.outFolder.empty() || command_.journals.size() == 1;
        const auto frame = FrameOf(command_.format, alone ? labels.name.value_or("") : "Characters");
        const auto shown = Rendered(session_, command_.format, labels);
        if (command_.outFolder.empty())
            streams_.out << (shown_++ > 0 ? frame.between : frame.before) << shown << (alone ? "" : frame.end);
        else
            ReplaceFile(FileFor(journal), Concat(frame.before, shown, frame.after));
    }
    // The file of a character: called as its journal.
    std::filesystem::path FileFor(const std::string& journal) const {
        const auto stem = std::filesystem::path(journal).stem().string();
        return std::filesystem::path(command_.outFolder) /
               Concat(stem.empty() || journal == "-" ? "character" : stem, EndingOf(command_.format));
    }

    const ReplayCommand& command_;
    Streams& streams_;
    Display display_;
    Session session_;
    int shown_ = 0;
};

}  // namespace

int Replay(const ReplayCommand& command, Streams& streams) {
    return Replays(command, streams).Run();
}

}  // namespace korvane::cli
