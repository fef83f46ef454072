#include <filesystem>
#include <iomanip>
#include <map>
#include <unistd.h>
#include <vector>

#include "base/error.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/every_code_data.h"
#include "engine/codes/chains.h"

namespace korvane::cli {

namespace {

namespace fs = std::filesystem;

// How often each row of each chain was carried out.
class Counter : public Display {
  public:
    void CodeCarriedOut(std::string_view chain, std::size_t row) override {
        auto& rows = chain == MishapChain().name() ? mishaps_ : events_;
        ++rows[row];
    }
    std::uint64_t Of(const Chain& chain, std::size_t row) const {
        return (chain.name() == MishapChain().name() ? mishaps_ : events_)[row];
    }

  private:
    std::vector<std::uint64_t> mishaps_ = std::vector<std::uint64_t>(MishapChain().rows().size());
    std::vector<std::uint64_t> events_ = std::vector<std::uint64_t>(EventChain().rows().size());
};

// A new folder among the temporary ones, that goes with this.
class ScratchFolder {
  public:
    ScratchFolder() {
        auto pattern = (fs::temp_directory_path() / "korvane-codes-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw IoError(pattern, "can't be made", errno);
        path_ = pattern;
    }
    ~ScratchFolder() {
        std::error_code error;
        fs::remove_all(path_, error);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    std::string path() const { return path_.string(); }

  private:
    fs::path path_;
};

// Lives the lives, by turns of both players, and counts the errors that ended one, by their texts.
void LiveAll(const CodesCommand& command, const HeldPath& location, Counter& counter,
             std::map<std::string, std::uint64_t>& errors) {
    Session session(DataFolder(location, DataFolder::Reading::Once), {nullptr, nullptr, &counter});
    for (std::uint64_t number = 1; number <= command.count; ++number) {
        LifePlan plan;
        plan.seed = command.seed;
        plan.player = number % 2 == 0 ? PlayerKind::Automatic : PlayerKind::Random;
        const auto outcome = Live(session, plan, number, {});
        if (!outcome.end)
            ++errors[outcome.error];
    }
}

void ListCodes(const Chain& chain, const Counter& counter, bool counted, std::ostream& out) {
    for (std::size_t row = 0; row < chain.rows().size(); ++row) {
        out << std::left << std::setw(7) << chain.name() << std::setw(counted ? 16 : 0) << chain.rows()[row].code;
        if (counted)
            out << std::right << std::setw(10) << counter.Of(chain, row);
        out << '\n';
    }
}

}  // namespace

int Codes(const CodesCommand& command, Streams& streams) {
    if (command.everyCode && command.count == 0)
        throw UsageError("--every-code says on what data lives are counted; it needs --count");
    Counter counter;
    std::map<std::string, std::uint64_t> errors;
    if (command.count > 0) {
        const ScratchFolder scratch;
        auto location = ChooseDataLocation(command.data);
        if (command.everyCode) {
            WriteEveryCodeData(NativePath(location).string(), scratch.path());
            location = HeldPath(scratch.path());
        }
        LiveAll(command, location, counter, errors);
    }
    ListCodes(MishapChain(), counter, command.count > 0, streams.out);
    ListCodes(EventChain(), counter, command.count > 0, streams.out);
    for (const auto& [text, count] : errors)
        streams.out << count << " lives ended in an error: " << text << '\n';
    return kSuccess;
}

}  // namespace korvane::cli
