#include <exception>
#include <filesystem>
#include <optional>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/rendering.h"
#include "output/journal/lines.h"

namespace korvane::cli {

namespace {

// "0007" in a run of 1000.
std::string Padded(std::uint64_t number, std::uint64_t count) {
    auto digits = Concat(number);
    const auto width = Concat(count).size();
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// A progress line that is drawn over itself, about a hundred times in a run.
class Progress {
  public:
    Progress(std::ostream& err, std::uint64_t count, bool shown)
        : err_(err), count_(count), shown_(shown && count > 1) {}
    ~Progress() {
        if (shown_)
            err_ << '\n';
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Done(std::uint64_t number) {
        const auto step = std::max<std::uint64_t>(count_ / 100, 1);
        if (shown_ && (number % step == 0 || number == count_))
            err_ << '\r' << number << " of " << count_ << " characters" << std::flush;
    }

  private:
    std::ostream& err_;
    std::uint64_t count_;
    bool shown_;
};

class Generator {
  public:
    Generator(const GenerateCommand& command, Streams& streams)
        : command_(command),
          streams_(streams),
          session_(DataFolder(ChooseDataLocation(command.data), DataFolder::Reading::Once),
                   {nullptr, nullptr, &display_}) {
        if (command.plan.options[Option::SelectSkillPackage] && !session_.data.Packages())
            throw UsageError(Concat("\"", CaptionOf(Option::SelectSkillPackage),
                                    "\" needs packages: the data folder has no ", kSkillPackagesFile));
        if (command.format == Format::Html)
            pages_.emplace(session_, command.page, command.outFolder, command.count > 1);
    }

    int Run() {
        Progress progress(streams_.err, command_.count, command_.progress);
        try {
            for (std::uint64_t number = 1; number <= command_.count; ++number) {
                RunOne(number);
                progress.Done(number);
            }
        } catch (const std::exception&) {
            FinishWhatThereIs();
            throw;
        }
        FinishFiles();
        if (finished_ < command_.count)
            streams_.err << "korvane-cli: " << finished_ << " of " << command_.count
                         << " characters lived to the end; the others were scrapped or ended in an error\n";
        return status_;
    }

  private:
    // The same after an error, which is the one to be told.
    void FinishWhatThereIs() {
        try {
            FinishFiles();
        } catch (const std::exception&) {
            status_ = kFailure;
        }
    }
    // The list of what was written, and all of it on the disk.
    void FinishFiles() {
        if (pages_)
            pages_->Finish();
        for (const auto& folder : {command_.outFolder, command_.journalFolder})
            if (!folder.empty())
                SyncFolder(folder);
    }

    void RunOne(std::uint64_t number) {
        const auto outcome = LiveJournaled(number);
        if (outcome.endedInFileError())
            std::rethrow_exception(outcome.cause);
        if (!outcome.end) {
            streams_.err << "korvane-cli: character " << number << ": " << outcome.kind << " error: " << outcome.error
                         << '\n';
            status_ = kFailure;
        } else if (outcome.finished()) {
            ++finished_;
            if (command_.format != Format::None)
                Show(number);
        }
    }
    // A journal is written also for a life that an error ends.
    play::LifeOutcome LiveJournaled(std::uint64_t number) {
        if (command_.journalFolder.empty())
            return play::Live(session_, command_.plan, number);
        journal::Tape tape;
        auto outcome = play::Live(session_, command_.plan, number, &tape);
        ReplaceFile(FileName(command_.journalFolder, number, ".jsonl"), journal::JournalText(tape), Sync::Later);
        return outcome;
    }
    void Show(std::uint64_t number) {
        if (pages_)
            WritePage(number);
        else
            ShowText(number);
    }

    std::optional<std::string> NameOf(std::uint64_t number) {
        return NameFor(session_, command_.name, command_.format,
                       command_.count == 1 ? std::string("Character") : Concat("Character ", number));
    }

    void WritePage(std::uint64_t number) {
        if (command_.count == 1)
            pages_->Write(*NameOf(number));
        else
            pages_->WriteListed(*NameOf(number), Stem(number));
    }

    void ShowText(std::uint64_t number) {
        const auto text =
            Rendered(session_, command_.format, {NameOf(number), number, Origin{command_.plan.seed, number}, 0});
        if (!command_.outFolder.empty()) {
            ReplaceFile(FileName(command_.outFolder, number, command_.format == Format::Json ? ".json" : ".txt"), text,
                        Sync::Later);
            return;
        }
        if (command_.format == Format::Text && shown_any_)
            streams_.out << '\n';
        streams_.out << text;
        shown_any_ = true;
    }

    std::filesystem::path FileName(const std::string& folder, std::uint64_t number, std::string_view ending) const {
        return std::filesystem::path(folder) / (Stem(number).append(ending));
    }
    // The file name of one of several characters, without its ending.
    std::string Stem(std::uint64_t number) const { return "character-" + Padded(number, command_.count); }

    const GenerateCommand& command_;
    Streams& streams_;
    Display display_;
    Session session_;
    std::optional<PageWriter> pages_;
    std::uint64_t finished_ = 0;
    int status_ = kSuccess;
    bool shown_any_ = false;
};

}  // namespace

int Generate(const GenerateCommand& command, Streams& streams) {
    return Generator(command, streams).Run();
}

}  // namespace korvane::cli
