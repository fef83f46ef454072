#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "cli/command_options.h"
#include "cli/completion.h"

namespace korvane::cli {

namespace {

// A message whose lines show as they are and have an end.
std::string Bounded(const std::string& message) {
    constexpr std::size_t kMostShown = 2000;
    std::string bounded;
    for (const auto line : SplitAll(message, '\n'))
        AppendAll(bounded, bounded.empty() ? "" : "\n", Printable(line, kMostShown));
    return bounded;
}

// The arguments as the library takes them rightly: it would take the next one as the value of an empty "--name=".
std::vector<std::string> Words(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    for (const auto& argument : arguments) {
        const bool empty_value = argument.starts_with("--") && argument.find('=') == argument.size() - 1;
        words.push_back(empty_value ? argument.substr(0, argument.size() - 1) : argument);
        if (empty_value)
            words.emplace_back();
    }
    return words;
}

// What the command line says, of whichever command.
struct Order {
    RawOptions raw;
    GenerateCommand generate;
    PlayCommand play;
    ReplayCommand replay;
    VerifyCommand verify;
    CheckCommand check;
    BalanceCommand balance;
    OddsCommand odds;
    ListCommand list;
    CompletionCommand completion;
    NewCareerCommand newCareer;
    CodesCommand codes;
};

// Completes a command and carries it out.
template <auto Command, auto CarryOut>
int Run(Order& order, Streams& streams) {
    Settle(order.*Command, order.raw);
    return CarryOut(order.*Command, streams);
}

// A command: what it takes, and what carries it out.
struct Verb {
    const char* name;
    const char* help;
    void (*add)(CLI::App& app, Order& order);
    int (*run)(Order& order, Streams& streams);
};
constexpr std::array<Verb, 12> kVerbs = {{
    {"generate", "Generate characters without a person",
     [](CLI::App& app, Order& order) { AddGenerate(app, order.generate, order.raw); }, Run<&Order::generate, Generate>},
    {"play", "Play a character's life at the terminal",
     [](CLI::App& app, Order& order) { AddPlay(app, order.play, order.raw); }, Run<&Order::play, Play>},
    {"replay", "Play a journal again, die by die",
     [](CLI::App& app, Order& order) { AddReplay(app, order.replay, order.raw); }, Run<&Order::replay, Replay>},
    {"verify", "Say whether journals were honestly lived",
     [](CLI::App& app, Order& order) { AddVerify(app, order.verify, order.raw); }, Run<&Order::verify, Verify>},
    {"check", "Find the mistakes in a folder of rule data",
     [](CLI::App& app, Order& order) { AddCheck(app, order.check, order.raw); }, Run<&Order::check, Check>},
    {"balance", "Measure what rule data make of lives",
     [](CLI::App& app, Order& order) { AddBalance(app, order.balance, order.raw); },
     Run<&Order::balance, MeasureBalance>},
    {"odds", "Compare careers: what each holds for a character",
     [](CLI::App& app, Order& order) { AddOdds(app, order.odds, order.raw); }, Run<&Order::odds, CompareCareers>},
    {"names", "Print names", [](CLI::App& app, Order& order) { AddNames(app, order.list); },
     [](Order& order, Streams& streams) { return PrintNames(order.list, streams); }},
    {"worlds", "Print home worlds", [](CLI::App& app, Order& order) { AddWorlds(app, order.list); },
     [](Order& order, Streams& streams) { return PrintWorlds(order.list, streams); }},
    {"completion", "Print the script by which a shell completes this command line",
     [](CLI::App& app, Order& order) { AddCompletion(app, order.completion); },
     [](Order& order, Streams& streams) { return PrintCompletion(order.completion, streams); }},
    {"new-career", "Write the files of a new career, to be filled in",
     [](CLI::App& app, Order& order) { AddNewCareer(app, order.newCareer); },
     [](Order& order, Streams& streams) { return NewCareer(order.newCareer, streams); }},
    {"codes", "List the codes of mishaps and events", [](CLI::App& app, Order& order) { AddCodes(app, order.codes); },
     [](Order& order, Streams& streams) { return Codes(order.codes, streams); }},
}};

// Throws UsageError for a word that is no command.
void CheckVerb(const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments[0].starts_with("-"))
        return;
    std::array<std::string_view, kVerbs.size()> known;
    std::ranges::transform(kVerbs, known.begin(), [](const Verb& verb) { return verb.name; });
    if (std::ranges::find(known, arguments[0]) == known.end())
        throw UsageError(Concat("unknown command ", Quoted(arguments[0]), DidYouMean(arguments[0], known),
                                "; there are: ", Listed(known)));
}

// What options that the command doesn't know are likely to mean, a line each.
std::string MeantOptions(const CLI::App& verb, const std::vector<std::string>& arguments) {
    std::vector<std::string> names;
    for (const auto* const option : verb.get_options())
        names.push_back(option->get_name());
    const std::vector<std::string_view> known(names.begin(), names.end());
    std::string told;
    for (const auto& argument : arguments) {
        const auto name = std::string_view(argument).substr(0, argument.find('='));
        if (name.starts_with("--") && std::ranges::find(known, name) == known.end())
            if (const auto meant = DidYouMean(name, known); !meant.empty())
                AppendAll(told, "unknown option ", name, meant, "\n");
    }
    return told;
}

int Dispatch(const std::vector<std::string>& arguments, Streams& streams) {
    CLI::App app("Plays the lives of Farwend characters from editable rule data.", "korvane-cli");
    app.set_version_flag("--version", "korvane-cli " KORVANE_VERSION);
    app.require_subcommand(1);
    Order order;
    for (const auto& verb : kVerbs)
        verb.add(*app.add_subcommand(verb.name, verb.help), order);
    // What the scripts of the shells ask.
    if (!arguments.empty() && arguments[0] == "complete") {
        const auto begin = std::ranges::find(arguments, "--");
        const bool typed = arguments.size() > 1 && arguments[1] == "--typed";
        if (begin != arguments.end())
            for (const auto& word : Completions(app, {begin + 1, arguments.end()}, typed))
                streams.out << word << '\n';
        return kSuccess;
    }
    CheckVerb(arguments);
    auto words = Words(arguments);
    std::ranges::reverse(words);  // as the library wants them
    try {
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        std::ostringstream told;
        const bool good = app.exit(error, streams.out, told) == 0;
        if (!good && !arguments.empty() && !arguments[0].starts_with("-"))
            told << MeantOptions(*app.get_subcommand(arguments[0]), arguments);
        streams.err << Bounded(told.str());
        return good ? kSuccess : kFailure;
    }
    const auto verb = std::ranges::find_if(kVerbs, [&](const Verb& each) { return app.got_subcommand(each.name); });
    return verb->run(order, streams);
}

// What a selection asked for, and what there is.
std::string Told(const Missing& missing) {
    const auto file = Concat(Printable(missing.file, 300), ": no such file");
    if (missing.known.empty())
        return Concat("there is no ", missing.kind, " (", file, ")");
    const std::vector<std::string_view> known(missing.known.begin(), missing.known.end());
    auto told = missing.name.empty() ? Concat("no ", missing.kind, " to pick")
                                     : Concat("unknown ", missing.kind, " ", Quoted(missing.name), " (", file, ")",
                                              DidYouMean(missing.name, known));
    AppendAll(told, missing.known.size() == 1 ? "; there is: " : "; there are: ", Listed(missing.known));
    return told;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, Streams& streams) {
    try {
        const int status = Dispatch(arguments, streams);
        if (streams.out.flush())
            return status;
        streams.err << "korvane-cli: the output can't be written\n";
    } catch (const play::MissingSelection& selection) {
        streams.err << "korvane-cli: " << Bounded(Told(selection.missing())) << '\n';
    } catch (const RuleError& error) {
        streams.err << "korvane-cli: " << NameOf(error.kind()) << " error: " << Bounded(error.what()) << '\n';
    } catch (const FileError& error) {
        streams.err << "korvane-cli: file error: " << Bounded(error.what()) << '\n';
    } catch (const std::exception& error) {
        streams.err << "korvane-cli: " << Bounded(error.what()) << '\n';
    }
    return kFailure;
}

}  // namespace korvane::cli
