// Replays damaged journals: lives are recorded, their journals damaged at random (bytes changed, lines cut, doubled,
// swapped, nested), and each is handed to the command in this process. Build it with the sanitizers: the status must be
// 0, 1 or 2, the memory bounded.
//
// usage: korvane_damage COUNT [SEED]

#include <array>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "cli/commands.h"
#include "output/journal/lines.h"
#include "play/life_plan.h"

namespace korvane {

namespace {

using Lines = std::vector<std::string>;

Lines Record(Session& session, std::uint64_t number) {
    play::LifePlan plan;
    plan.seed = Seed(5);
    plan.player = number % 2 == 0 ? play::PlayerKind::Automatic : play::PlayerKind::Random;
    journal::Tape tape;
    play::Live(session, plan, number, &tape);
    Lines lines;
    for (const auto line : SplitAll(journal::JournalText(tape), '\n'))
        if (!line.empty())
            lines.emplace_back(line);
    return lines;
}

class Damager {
  public:
    explicit Damager(std::uint64_t seed) : chance_(seed) {}

    std::string Damage(Lines lines) {
        const int times = 1 + chance_.Below(3);
        for (int i = 0; i < times; ++i)
            DamageOnce(lines);
        std::string text;
        for (const auto& line : lines)
            text += line + (chance_.Below(50) == 0 ? "\r\n" : "\n");
        if (chance_.Below(10) == 0)
            text.resize(static_cast<std::size_t>(chance_.Below(static_cast<int>(text.size()) + 1)));
        return text;
    }

  private:
    std::string& Any(Lines& lines) {
        return lines[static_cast<std::size_t>(chance_.Below(static_cast<int>(lines.size())))];
    }

    void DamageOnce(Lines& lines) {
        if (lines.empty())
            return;
        const auto place = lines.begin() + chance_.Below(static_cast<int>(lines.size()));
        switch (chance_.Below(8)) {
            case 0:
                lines.erase(place);
                break;
            case 1:
                lines.insert(place, Any(lines));
                break;
            case 2:
                std::swap(*place, Any(lines));
                break;
            case 3:
                *place = Nested(*place);
                break;
            case 4:
                ReplaceNumber(*place);
                break;
            case 5:
                lines.resize(static_cast<std::size_t>(place - lines.begin()));
                break;
            default:
                ReplaceByte(*place);
                break;
        }
    }
    std::string Nested(const std::string& line) {
        const auto depth = static_cast<std::size_t>(1 + chance_.Below(chance_.Below(20) == 0 ? 70000 : 40));
        return Concat("{\"a\":", std::string(depth, '['), line, chance_.Below(2) == 0 ? std::string(depth, ']') : "",
                      "}");
    }
    void ReplaceNumber(std::string& line) {
        static constexpr std::array<std::string_view, 8> kNumbers = {
            "0", "-1", "99", "1e9", "18446744073709551615", "-9223372036854775809", "2.5", "null"};
        const auto digit = line.find_first_of("0123456789");
        if (digit == std::string::npos)
            return;
        const auto end = line.find_first_not_of("0123456789", digit);
        line.replace(digit, end - digit, kNumbers.at(static_cast<std::size_t>(chance_.Below(8))));
    }
    void ReplaceByte(std::string& line) {
        if (line.empty())
            return;
        line[static_cast<std::size_t>(chance_.Below(static_cast<int>(line.size())))] =
            static_cast<char>(chance_.Below(256));
    }

    RandomStream chance_;
};

// The command's exit status, and how it put it when that isn't 0.
std::string Replay(const std::string& file, int& faults) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    cli::Streams streams{in, out, err};
    const int status = cli::RunCommandLine({"replay", file, "--data", KORVANE_RULES}, streams);
    const auto told = err.str();
    if (status < 0 || status > 2 || (status != 0) == told.empty() || told.size() > 1000) {
        ++faults;
        std::cout << "status " << status << ": " << told << '\n';
    }
    return Concat("status ", status);
}

}  // namespace

}  // namespace korvane

int main(int argc, char** argv) {
    using namespace korvane;
    if (argc < 2) {
        std::cerr << "usage: korvane_damage COUNT [SEED]\n";
        return 1;
    }
    const auto count = std::stoull(argv[1]);
    Damager damager(argc > 2 ? std::stoull(argv[2]) : 1);
    Display display;
    Session session(DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display});
    std::map<std::string, std::uint64_t> ends;
    int faults = 0;
    std::vector<Lines> journals;
    for (std::uint64_t number = 1; number <= 200; ++number)
        journals.push_back(Record(session, number));
    const auto file = std::filesystem::temp_directory_path() / Concat("korvane-damaged-", getpid(), ".jsonl");
    for (std::uint64_t i = 0; i < count; ++i) {
        ReplaceFile(file, damager.Damage(journals[i % journals.size()]), Sync::Later);
        ++ends[Replay(file.string(), faults)];
    }
    std::filesystem::remove(file);
    for (const auto& [end, times] : ends)
        std::cout << end << ": " << times << '\n';
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << "peak memory: " << usage.ru_maxrss / 1024 << " MB\n";
    constexpr long kMostMemory = 1024;  // MB, with the sanitizers' own
    return faults == 0 && usage.ru_maxrss / 1024 < kMostMemory ? 0 : 1;
}
