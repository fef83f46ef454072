#include <filesystem>
#include <optional>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "output/character_document.h"
#include "output/character_text.h"

namespace korvane::cli {

namespace {

// "0007" in a run of 1000.
std::string Padded(std::uint64_t number, std::uint64_t count) {
    auto digits = Concat(number);
    const auto width = Concat(count).size();
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string Rendered(const Session& session, Format format) {
    return format == Format::Json ? CharacterDocument(session) + "\n" : CharacterText(session);
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
        if (command.format == Format::Html)
            pages_.emplace(session_, command.page, command.outFolder);
    }

    int Run() {
        Progress progress(streams_.err, command_.count, command_.progress);
        try {
            for (std::uint64_t number = 1; number <= command_.count; ++number) {
                RunOne(number);
                progress.Done(number);
            }
        } catch (const std::exception&) {
            FinishFiles();  // of what there is
            throw;
        }
        FinishFiles();
        return status_;
    }

  private:
    // The list of what was written, and all of it on the disk.
    void FinishFiles() {
        if (pages_ && command_.count > 1)
            pages_->WriteIndex();
        for (const auto& folder : {command_.outFolder, command_.journalFolder})
            if (!folder.empty())
                SyncFolder(folder);
    }

    void RunOne(std::uint64_t number) {
        const auto outcome = LiveJournaled(number);
        if (!outcome.end) {
            streams_.err << "korvane-cli: character " << number << ": " << outcome.error << '\n';
            status_ = kFailure;
        } else if (*outcome.end == LifeEnd::MusteredOut && command_.format != Format::None) {
            Show(number);
        }
    }

    // A journal is written also for a life that a malformed file ends.
    LifeOutcome LiveJournaled(std::uint64_t number) {
        if (command_.journalFolder.empty())
            return Live(session_, command_.plan, number, {});
        std::string journal;
        const auto write = [&] {
            ReplaceFile(FileName(command_.journalFolder, number, ".jsonl"), journal, Sync::Later);
        };
        try {
            auto outcome = Live(session_, command_.plan, number,
                                [&journal](std::string_view line) { AppendAll(journal, line, "\n"); });
            write();
            return outcome;
        } catch (const FileError&) {
            if (!journal.empty())
                write();
            throw;
        }
    }

    void Show(std::uint64_t number) {
        if (pages_)
            WritePage(number);
        else
            ShowText(number);
    }

    void WritePage(std::uint64_t number) {
        if (command_.count == 1)
            pages_->Write("Character");
        else
            pages_->WriteListed(Concat("Character ", number), Stem(number));
    }

    void ShowText(std::uint64_t number) {
        const auto text = Rendered(session_, command_.format);
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
    int status_ = kSuccess;
    bool shown_any_ = false;
};

}  // namespace

int Generate(const GenerateCommand& command, Streams& streams) {
    return Generator(command, streams).Run();
}

}  // namespace korvane::cli
