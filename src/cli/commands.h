// The commands of the command line. Each gives the exit status.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "cli/pages.h"
#include "play/life_plan.h"

namespace korvane::cli {

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;
inline constexpr int kDivergence = 2;
inline constexpr int kInterrupted = 130;  // by Ctrl+C

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    int width = 0;  // of the terminal that the output goes to, in characters; 0 for none
    // From now on Ctrl+C ends nothing, but sets what this gives. Empty: nobody listens.
    std::function<const std::atomic<bool>&()> listen = {};
};

enum class Format { Text, Json, FirstJson, Html, Sarif, None, Markdown, Csv, TabletopJournal, TabletopActor };

// How characters come by their names. A page always has one.
struct NameOrder {
    std::optional<std::string> given;  // as typed
    bool rolled = false;

    bool operator==(const NameOrder&) const = default;
};

struct GenerateCommand {
    std::string data;
    play::LifePlan plan;
    std::uint64_t count = 1;
    Format format = Format::Text;
    NameOrder name;
    PageOrder page;                    // how a page is made
    std::string outFolder;             // empty: standard output; pages need one
    std::string journalFolder;         // empty: no journals
    bool progress = false;             // a progress line on the error stream
    bool luck = false;                 // tell how lucky each life was
    std::uint64_t first = 1;           // the number of the first character
    std::vector<std::string> wants;    // expressions that all must hold; none: any character will do
    std::uint64_t tries = 10'000'000;  // lives at most, where something is wanted
    unsigned jobs = std::max(1U, std::thread::hardware_concurrency());  // threads
};
int Generate(GenerateCommand command, Streams& streams);

struct PlayCommand {
    std::string data;
    std::string race;
    std::string career;
    std::string assignment;
    RollingMethod method = RollingMethod::True2D;
    Options options;
    std::optional<Seed> seed;  // none: the clock's dice
    std::string journal;       // empty: none
};
int Play(const PlayCommand& command, Streams& streams);

struct ReplayCommand {
    std::vector<std::string> journals;  // "-" for standard input
    std::string data;
    Format format = Format::Text;
    NameOrder name;
    PageOrder page;
    std::string outFolder;  // for a page
    bool luck = false;      // tell how lucky the life was
};
int Replay(const ReplayCommand& command, Streams& streams);

// Says of each journal whether its life was honestly lived.
struct VerifyCommand {
    std::vector<std::string> journals;
    std::string data;
    std::optional<Seed> seed;  // that the dice must be of
    Format format = Format::Text;
};
int Verify(const VerifyCommand& command, Streams& streams);

// Finds the mistakes in a folder of rule data.
struct CheckCommand {
    std::string folder;   // empty: the configured one, else the shipped rules
    std::string explain;  // a kind of mistake to be explained; empty: none
    bool strict = false;  // warnings fail too
    Format format = Format::Text;
};
int Check(const CheckCommand& command, Streams& streams);

// Measures what the rule data make of lives, for each assignment.
struct BalanceCommand {
    std::string data;
    std::string race;              // empty: all
    std::string career;            // the same
    std::uint64_t count = 10'000;  // lives a career
    int terms = 4;
    std::optional<Seed> seed;
    Format format = Format::Text;
    std::string outFolder;  // for a page, "balance.md", with its pictures; empty: none
};
int MeasureBalance(const BalanceCommand& command, Streams& streams);

// Tells what careers hold for a character: for an average one, but for what is set.
struct OddsCommand {
    std::string data;
    std::string race;              // empty: the one that is offered first
    std::string career;            // empty: all
    std::vector<std::string> set;  // characteristics, as "Dex=9"
    Options options;
    int terms = 4;
    std::uint64_t lives = 2000;  // in each assignment
    Format format = Format::Text;
};
int CompareCareers(const OddsCommand& command, Streams& streams);

// Prints names, or home worlds, a line each.
struct ListCommand {
    std::string data;
    std::string race;  // empty: the one that is offered first
    std::uint64_t count = 10;
    std::optional<Seed> seed;  // none: the clock's dice
};
int PrintNames(const ListCommand& command, Streams& streams);
int PrintWorlds(const ListCommand& command, Streams& streams);

// Prints the script by which a shell completes the command line.
struct CompletionCommand {
    std::string shell;
};
int PrintCompletion(const CompletionCommand& command, Streams& streams);

// Writes the files of a new career, to be filled in.
struct NewCareerCommand {
    std::string data;
    std::string race;
    std::string career;
};
int NewCareer(const NewCareerCommand& command, Streams& streams);

// Lists the codes that rule data may carry, in their order; with a count, how often lives carried each out; or
// describes them, as docs/codes.md does.
struct CodesCommand {
    std::string data;
    std::uint64_t count = 0;
    std::optional<Seed> seed;
    bool describe = false;
};
int Codes(const CodesCommand& command, Streams& streams);

// Reads the arguments after the program's name and runs the command that they name. Errors are told on the error
// stream.
int RunCommandLine(const std::vector<std::string>& arguments, Streams& streams);

}  // namespace korvane::cli
