#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/ordered_jobs.h"
#include "cli/rendering.h"
#include "output/journal/lines.h"
#include "play/vocabulary.h"
#include "play/wish.h"

namespace korvane::cli {

namespace {

// "0007" in a run of 1000.
std::string Padded(std::uint64_t number, std::uint64_t last) {
    auto digits = Concat(number);
    const auto width = Concat(last).size();
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// The file name of one of several characters, without its ending.
std::string StemOf(const GenerateCommand& command, std::uint64_t number) {
    const auto lives = command.wants.empty() ? command.count : command.tries;
    return "character-" + Padded(number, command.first + lives - 1);
}

// A progress line that is drawn over itself, about a hundred times in a run.
class Progress {
  public:
    Progress(std::ostream& err, std::uint64_t count, bool shown)
        : err_(err), count_(count), shown_(shown && count > 1) {}
    ~Progress() {
        if (drawn_)
            err_ << '\n';
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    template <typename Tell>
    void Done(std::uint64_t lives, const Tell& tell) {
        const auto step = std::max<std::uint64_t>(count_ / 100, 1);
        if (!shown_ || (lives % step != 0 && lives != count_))
            return;
        err_ << '\r' << tell() << std::flush;
        drawn_ = true;
    }

  private:
    std::ostream& err_;
    std::uint64_t count_;
    bool shown_;
    bool drawn_ = false;
};

// What became of a life.
struct Lived {
    std::uint64_t number = 0;
    bool finished = false;
    bool fits = false;         // it finished, and is what was wished for
    std::string error;         // of the rules, that ended it
    std::exception_ptr fault;  // of a file: it ends the run
    std::string shown;         // the character, as it is to be printed
    std::string name;          // where it has one
    std::string journal;       // where one is wanted
    MadePage page;             // the same
};

// Lives characters, in a session of its own.
class Liver {
  public:
    Liver(const GenerateCommand& command, const std::vector<play::Wish>& wishes)
        : command_(command),
          wishes_(wishes),
          session_(DataFolder(ChooseDataLocation(command.data), DataFolder::Reading::Once),
                   {nullptr, nullptr, &display_}) {
        if (command.plan.options[Option::SelectSkillPackage] && !session_.data.Packages())
            throw UsageError(Concat("\"", CaptionOf(Option::SelectSkillPackage),
                                    "\" needs packages: the data folder has no ", kSkillPackagesFile));
        if (command.format == Format::Html)
            pages_.emplace(session_, command.page.templateName);
    }

    Lived Live(std::uint64_t number) {
        const bool keeps = !command_.journalFolder.empty();
        journal::Tape tape;
        const auto outcome = play::Live(session_, command_.plan, number, keeps ? &tape : nullptr);
        Lived lived;
        lived.number = number;
        lived.finished = outcome.finished();
        lived.fits = lived.finished && std::ranges::all_of(wishes_, [this](const auto& w) { return w.Fits(session_); });
        if (outcome.endedInFileError())
            lived.fault = outcome.cause;
        else if (!outcome.end)
            lived.error = Concat(outcome.kind, " error: ", outcome.error);
        // A journal is written also for a life that an error ends.
        if (keeps && (lived.fits || wishes_.empty()))
            lived.journal = journal::JournalText(tape);
        if (lived.fits && command_.format != Format::Html && command_.format != Format::None)
            Render(lived);
        if (lived.fits && pages_)
            lived.page = command_.count == 1 ? pages_->Make(*NameOf(number))
                                             : pages_->MakeListed(*NameOf(number), StemOf(command_, number));
        return lived;
    }
    std::optional<std::string> NameOf(std::uint64_t number) {
        return NameFor(session_, command_.name, command_.format,
                       command_.count == 1 ? std::string("Character") : Concat("Character ", number));
    }
    Session& session() { return session_; }

  private:
    void Render(Lived& lived) {
        const auto number = lived.number;
        const auto name = NameOf(number);
        lived.name = name.value_or("");
        lived.shown =
            Rendered(session_, command_.format, {name, number, Origin{command_.plan.seed, number}, 0, command_.luck});
        if (command_.format == Format::Text && !wishes_.empty())
            lived.shown.insert(0, Concat("Character ", number, " of seed ", command_.plan.seed->given(), "\n"));
    }

    const GenerateCommand& command_;
    const std::vector<play::Wish>& wishes_;
    Display display_;
    Session session_;
    std::optional<PageMaker> pages_;  // where they are wanted
};

class Generator {
  public:
    Generator(const GenerateCommand& command, Streams& streams)
        : command_(command), streams_(streams), here_(command, wishes_) {
        if (!command.wants.empty()) {
            const auto known = play::VocabularyOf(here_.session());
            for (const auto& want : command.wants)
                wishes_.emplace_back(want, known);
        }
        if (command.format == Format::Html)
            pages_.emplace(command.page, command.outFolder, command.count > 1);
    }

    int Run() {
        const bool wishes = !wishes_.empty();
        const auto lives = wishes ? command_.tries : command_.count;
        {
            Progress progress(streams_.err, lives, command_.progress);
            try {
                LiveAll(lives, progress);
            } catch (const std::exception&) {
                FinishWhatThereIs();
                throw;
            }
        }
        FinishFiles();
        streams_.out.flush();
        if (wishes)
            TellHowRare();
        else if (shown_ < command_.count && !interrupted_)
            streams_.err << "korvane-cli: " << shown_ << " of " << command_.count
                         << " characters lived to the end; the others were scrapped or ended in an error\n";
        return interrupted_ ? kInterrupted : status_;
    }

  private:
    void LiveAll(std::uint64_t lives, Progress& progress) {
        const auto* const interrupted = streams_.listen ? &streams_.listen() : nullptr;
        const auto take = [&, interrupted](Lived&& lived) {
            Take(std::move(lived));
            ++lived_;
            progress.Done(lived_, [&] {
                return wishes_.empty()
                           ? Concat(lived_, " of ", lives, " characters")
                           : Concat(shown_, " found in ", FormatThousands(static_cast<double>(lived_)), " lives");
            });
            interrupted_ = interrupted != nullptr && *interrupted;
            return !interrupted_ && (wishes_.empty() || shown_ < command_.count);
        };
        if (command_.jobs == 1 || lives < kPiece) {
            for (std::uint64_t i = 0; i < lives; ++i)
                if (!take(here_.Live(command_.first + i)))
                    return;
            return;
        }
        OrderedJobs<std::vector<Lived>> jobs(command_.jobs, (lives + kPiece - 1) / kPiece);
        jobs.Run([&] { return WorkerOf(lives); },
                 [&](std::vector<Lived>&& piece) {
                     return std::ranges::all_of(piece, [&](Lived& lived) { return take(std::move(lived)); });
                 });
    }
    OrderedJobs<std::vector<Lived>>::Worker WorkerOf(std::uint64_t lives) const {
        const auto liver = std::make_shared<Liver>(command_, wishes_);
        return [this, liver, lives](std::uint64_t piece) {
            std::vector<Lived> lived;
            for (auto i = piece * kPiece; i < std::min((piece + 1) * kPiece, lives); ++i)
                if (lived.push_back(LivedBy(*liver, command_.first + i)); lived.back().fault)
                    break;
            return lived;
        };
    }

    // What can't be shown ends the run after those before it.
    static Lived LivedBy(Liver& liver, std::uint64_t number) {
        try {
            return liver.Live(number);
        } catch (const std::exception&) {
            Lived lived;
            lived.number = number;
            lived.fault = std::current_exception();
            return lived;
        }
    }

    void Take(Lived&& lived) {
        if (!lived.journal.empty())
            ReplaceFile(FileName(command_.journalFolder, lived.number, ".jsonl"), lived.journal, Sync::Later);
        if (lived.fault)
            std::rethrow_exception(lived.fault);
        if (!lived.error.empty()) {
            streams_.err << "korvane-cli: character " << lived.number << ": " << lived.error << '\n';
            status_ = kFailure;
        }
        if (!lived.fits)
            return;
        ++shown_;
        if (!wishes_.empty() && lived.shown.empty())
            streams_.err << "character " << lived.number << " of seed " << command_.plan.seed->given() << '\n';
        if (pages_)
            pages_->Write(lived.page);
        else if (!lived.shown.empty())
            Show(lived);
    }

    // The same after an error, which is the one to be told.
    void FinishWhatThereIs() {
        try {
            FinishFiles();
        } catch (const std::exception&) {
            status_ = kFailure;
        }
    }
    // The end of what stands in one stream, the list of what was written, and all of it on the disk.
    void FinishFiles() {
        if (command_.outFolder.empty() && shown_ > 0)
            streams_.out << FrameOf(command_.format, {}).after;
        if (pages_)
            pages_->Finish();
        for (const auto& folder : {command_.outFolder, command_.journalFolder})
            if (!folder.empty() && !interrupted_)
                SyncFolder(folder);
    }
    void TellHowRare() {
        streams_.err << shown_ << " found in " << FormatThousands(static_cast<double>(lived_))
                     << (lived_ == 1 ? " life" : " lives");
        if (shown_ > 0)
            streams_.err << ": about 1 in "
                         << FormatThousands(static_cast<double>(lived_) / static_cast<double>(shown_));
        streams_.err << '\n';
        status_ = shown_ < command_.count ? kFailure : kSuccess;
    }

    void Show(const Lived& lived) {
        const bool alone = !command_.outFolder.empty() || command_.count == 1;
        const auto frame = FrameOf(command_.format, alone ? lived.name : "Characters");
        if (!command_.outFolder.empty()) {
            ReplaceFile(FileName(command_.outFolder, lived.number, EndingOf(command_.format)),
                        Concat(frame.before, lived.shown, frame.after), Sync::Later);
            return;
        }
        // Runs that go on from each other read as one.
        const bool goes_on = command_.first > 1 && command_.count > 1 && frame.after.empty();
        if (shown_ == 1 && !goes_on)
            streams_.out << frame.before;
        if (shown_ > 1 || goes_on)
            streams_.out << frame.between;
        streams_.out << lived.shown << (alone ? "" : frame.end);
    }

    std::filesystem::path FileName(const std::string& folder, std::uint64_t number, std::string_view ending) const {
        return std::filesystem::path(folder) / (StemOf(command_, number).append(ending));
    }

    static constexpr std::uint64_t kPiece = 64;  // lives that a thread takes at a time

    const GenerateCommand& command_;
    Streams& streams_;
    std::vector<play::Wish> wishes_;
    Liver here_;
    std::optional<PageWriter> pages_;
    std::uint64_t lived_ = 0;
    std::uint64_t shown_ = 0;  // finished, and what was wished for
    int status_ = kSuccess;
    bool interrupted_ = false;
};

}  // namespace

int Generate(GenerateCommand command, Streams& streams) {
    auto& plan = command.plan;
    KnowNames(RuleFolder(command.data), plan.race, plan.career, plan.assignment);
    if (!command.wants.empty() && !command.plan.seed) {
        // What is found is to be made again.
        std::random_device chance;
        command.plan.seed.emplace(std::uint64_t{chance()});
        streams.err << "the seed is " << command.plan.seed->given() << '\n';
    }
    return Generator(command, streams).Run();
}

}  // namespace korvane::cli
