#include "cli/command_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unistd.h>
#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "cli/completion.h"

namespace korvane::cli {

namespace {

constexpr std::uint64_t kMostLives = 1'000'000'000;

// The caption that is meant, in any case. Throws UsageError for none.
template <typename Captions>
std::string_view Caption(std::string_view kind, const std::string& given, const Captions& captions) {
    const auto known = std::ranges::find_if(
        captions, [&given](std::string_view each) { return EqualsIgnoringCase(Trim(each), Trim(given)); });
    if (known == captions.end())
        throw UsageError(Concat("unknown ", kind, " ", Quoted(given), DidYouMean(given, captions),
                                "; there are: ", Listed(captions)));
    return *known;
}

RollingMethod MethodNamed(const std::string& caption) {
    return caption.empty() ? RollingMethod::True2D : *MethodOfCaption(Caption("method", caption, kMethodCaptions));
}

Options OptionsNamed(const std::vector<std::string>& captions) {
    Options options;
    for (const auto& caption : captions)
        options.Set(*OptionOfCaption(Caption("option", caption, kOptionCaptions)));
    return options;
}

Format FormatNamed(const std::string& name) {
    constexpr std::array kNames = {std::pair("json", Format::Json),
                                   std::pair("html", Format::Html),
                                   std::pair("sarif", Format::Sarif),
                                   std::pair("none", Format::None),
                                   std::pair("json-1", Format::FirstJson),
                                   std::pair("md", Format::Markdown),
                                   std::pair("csv", Format::Csv),
                                   std::pair("foundry-journal", Format::TabletopJournal),
                                   std::pair("foundry-actor", Format::TabletopActor)};
    for (const auto& [known, format] : kNames)
        if (name == known)
            return format;
    return Format::Text;
}

void Assign(std::uint64_t& to, std::uint64_t number) {
    to = number;
}
void Assign(int& to, std::uint64_t number) {
    to = static_cast<int>(number);
}
void Assign(unsigned& to, std::uint64_t number) {
    to = static_cast<unsigned>(number);
}

// An option that takes a whole number between two others.
template <typename Number>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, Number& to, std::uint64_t least, std::uint64_t most,
                       const std::string& help) {
    const auto take = [&to, least, most, name](const std::string& text) {
        std::uint64_t number = 0;
        const auto* const end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, number);
        if (read.ec != std::errc() || read.ptr != end || number < least || number > most)
            throw CLI::ValidationError(name, Concat(Quoted(text), " is not a whole number from ", least, " to ", most));
        Assign(to, number);
    };
    return app.add_option_function<std::string>(name, take, help)->type_name("NUMBER");
}

// One of these words, in any case.
CLI::Validator OneOf(std::vector<std::string> words) {
    return CLI::IsMember(std::move(words), CLI::ignore_case);
}

void AddSeed(CLI::App& app, std::optional<Seed>& seed, const std::string& help) {
    const auto take = [&seed](const std::string& text) {
        try {
            seed.emplace(DecodeWord(text));
        } catch (const UsageError& error) {
            throw CLI::ValidationError("--seed", error.what());
        }
    };
    app.add_option_function<std::string>("--seed", take, help)->type_name("SEED");
}

void AddNameOptions(CLI::App& app, NameOrder& name) {
    auto* const given = app.add_option_function<std::string>(
        "--name", [&name](const std::string& typed) { name.given = DecodeWord(typed); },
        "Name of the character, exactly as typed (a page's default: one is rolled)");
    app.add_flag("--names", name.rolled, "Roll a name for each character, as for a page")->excludes(given);
}

void AddPageOptions(CLI::App& app, PageOrder& page) {
    app.add_option("--template", page.templateName,
                   "Template of the pages: a file of the data folder, or a path (default: template.htm)");
    app.add_flag("--pdf", page.pdf, "Have korvane-pdf make a PDF file of each page");
}

void AddLuck(CLI::App& app, bool& luck) {
    app.add_flag("--luck", luck, "Tell how lucky each life was, in its text or document");
}

void CheckPages(Format format, const PageOrder& page, const std::string& folder) {
    if (format == Format::Html && folder.empty())
        throw UsageError(R"("--format html" writes files: name their folder with "--out FOLDER")");
    if (format != Format::Html && page != PageOrder{})
        throw UsageError(R"("--template" and "--pdf" go with "--format html" alone)");
}

void AddSelection(CLI::App& app, std::string& data, std::string& race, std::string& career, std::string& assignment,
                  RawOptions& raw) {
    app.add_option("--data", data, "Folder of the rule data (default: the configured one, else the shipped rules)")
        ->take_last();
    app.add_option("--race", race, "Race, as its file is named");
    app.add_option("--career", career, "Career of the race");
    app.add_option("--assignment", assignment, "Assignment of the career");
    app.add_option("--method", raw.method, "Method of rolling: " + Listed(kMethodCaptions));
    app.add_option("--option", raw.options, "An option to tick; may be repeated: " + Listed(kOptionCaptions))
        ->allow_extra_args(false);
}

// The player of that name. The box "Automatic Generation" asks for the automatic one too.
play::PlayerKind PlayerNamed(const std::optional<std::string>& name, bool automatic) {
    if (!name)
        return automatic ? play::PlayerKind::Automatic : play::PlayerKind::Sensible;
    if (automatic && *name != "automatic")
        throw UsageError(
            Concat("the ", *name, " player never uses \"Automatic Generation\"; leave one of the two out"));
    return *name == "random"      ? play::PlayerKind::Random
           : *name == "automatic" ? play::PlayerKind::Automatic
                                  : play::PlayerKind::Sensible;
}

}  // namespace

void AddGenerate(CLI::App& app, GenerateCommand& command, RawOptions& raw) {
    auto& plan = command.plan;
    AddSelection(app, command.data, plan.race, plan.career, plan.assignment, raw);
    AddNumber(app, "--terms", plan.terms, 1, 100,
              "Terms of service before mustering out (not the random player; default: 4)");
    AddNumber(app, "--count", command.count, 1, kMostLives, "Number of characters (default: 1)");
    AddNumber(app, "--first", command.first, 1, 2 * kMostLives,
              "The number of the first character, so that several runs share a seed (default: 1)");
    auto* const want =
        app.add_option(
               "--want", command.wants,
               "Only characters that fit, as \"Pilot >= 2 and age < 40 and not was = Prisoner\"; may be repeated")
            ->allow_extra_args(false);
    AddNumber(app, "--tries", command.tries, 1, kMostLives, "Lives at most, with --want (default: 10000000)")
        ->needs(want);
    AddNumber(app, "--jobs", command.jobs, 1, 1024, "Threads (default: as many as there are processors)");
    AddSeed(app, plan.seed,
            "A number or a word that repeats a run exactly: character i depends on the seed and i alone");
    app.add_option("--player", raw.player,
                   "Who answers: somebody of sense (default), automatic generation, or a random answer to each dialog")
        ->check(OneOf({"sensible", "automatic", "random"}));
    app.add_option("--format", raw.format, "What is printed of each character")
        ->check(OneOf({"text", "json", "json-1", "md", "csv", "foundry-journal", "foundry-actor", "html", "none"}))
        ->capture_default_str();
    app.add_option("--out", command.outFolder, "Folder for a file of each character, in place of standard output");
    AddNameOptions(app, command.name);
    AddPageOptions(app, command.page);
    AddLuck(app, command.luck);
    app.add_option("--journal", command.journalFolder, "Folder for a journal of each character");
}

void AddPlay(CLI::App& app, PlayCommand& command, RawOptions& raw) {
    AddSelection(app, command.data, command.race, command.career, command.assignment, raw);
    AddSeed(app, command.seed, "A number or a word that the dice come from, so that the life can be proved");
    app.add_option("--journal", command.journal, "File for the character's journal; an unfinished one is gone on with");
}

void AddReplay(CLI::App& app, ReplayCommand& command, RawOptions& raw) {
    app.add_option("JOURNAL", command.journals, "The journals to replay; \"-\" for standard input")->required();
    app.add_option("--data", command.data, "Folder of the rule data that the journal was made with");
    app.add_option("--format", raw.format, "What is printed of the character")
        ->check(OneOf({"text", "json", "json-1", "md", "csv", "foundry-journal", "foundry-actor", "html"}))
        ->capture_default_str();
    app.add_option("--out", command.outFolder,
                   "Folder for a file of each character, called as its journal, in place of standard output");
    AddNameOptions(app, command.name);
    AddPageOptions(app, command.page);
    AddLuck(app, command.luck);
}

void AddVerify(CLI::App& app, VerifyCommand& command, RawOptions& raw) {
    app.add_option("JOURNAL", command.journals, "The journals; \"-\" for standard input")->required();
    app.add_option("--data", command.data, "Folder of the rule data that the lives were lived with");
    AddSeed(app, command.seed, "The seed that the dice must come from");
    app.add_option("--format", raw.format, "How the verdicts are printed")
        ->check(OneOf({"text", "json"}))
        ->capture_default_str();
}

void AddCheck(CLI::App& app, CheckCommand& command, RawOptions& raw) {
    app.add_option("DIR", command.folder, "The folder (default: the configured one, else the shipped rules)");
    app.add_option("--explain", command.explain, "Say what a kind of mistake, as \"check-counts-other\", is");
    app.add_flag("--strict", command.strict, "Exit status 1 for warnings too");
    app.add_option("--format", raw.format, "How the mistakes are printed")
        ->check(OneOf({"text", "json", "sarif"}))
        ->capture_default_str();
}

void AddBalance(CLI::App& app, BalanceCommand& command, RawOptions& raw) {
    app.add_option("--data", command.data, "Folder of the rule data");
    app.add_option("--race", command.race, "This race alone");
    app.add_option("--career", command.career, "This career alone");
    AddNumber(app, "--count", command.count, 1, kMostLives, "Lives of each career (default: 10000)");
    AddNumber(app, "--terms", command.terms, 1, 100, "Terms of service of each life (default: 4)");
    AddSeed(app, command.seed, "Seed of the lives (default: 1)");
    app.add_option("--format", raw.format, "How the figures are printed; md: as a page, into a folder")
        ->check(OneOf({"text", "json", "md"}))
        ->capture_default_str();
    app.add_option("--out", command.outFolder, "Folder for the page of \"--format md\" and its pictures");
}

void AddOdds(CLI::App& app, OddsCommand& command, RawOptions& raw) {
    app.add_option("--data", command.data, "Folder of the rule data");
    app.add_option("--race", command.race, "Race, as its file is named (default: the one that is offered first)");
    app.add_option("--career", command.career, "This career alone");
    app.add_option("--set", command.set, "A characteristic, as \"Dex=9\"; may be repeated (default: the average)")
        ->allow_extra_args(false);
    app.add_option("--option", raw.options, "An option to tick; may be repeated: " + Listed(kOptionCaptions))
        ->allow_extra_args(false);
    AddNumber(app, "--terms", command.terms, 1, 100, "Terms of service of each life (default: 4)");
    AddNumber(app, "--lives", command.lives, 1, kMostLives, "Lives in each assignment (default: 2000)");
    app.add_option("--format", raw.format, "How the figures are printed")
        ->check(OneOf({"text", "json"}))
        ->capture_default_str();
}

void AddWorlds(CLI::App& app, ListCommand& command) {
    app.add_option("--data", command.data, "Folder of the rule data");
    AddNumber(app, "--count", command.count, 1, kMostLives, "How many (default: 10)");
    AddSeed(app, command.seed, "A number or a word that repeats them (default: the clock's dice)");
}

void AddNames(CLI::App& app, ListCommand& command) {
    AddWorlds(app, command);
    app.add_option("--race", command.race, "Race, as its file is named (default: the one that is offered first)");
}

void AddCompletion(CLI::App& app, CompletionCommand& command) {
    app.add_option("SHELL", command.shell, "bash, zsh or fish")
        ->required()
        ->check(OneOf({kShells.begin(), kShells.end()}));
}

void AddNewCareer(CLI::App& app, NewCareerCommand& command) {
    app.add_option("RACE", command.race, "The race, as its file is named")->required();
    app.add_option("CAREER", command.career, "The name of the career")->required();
    app.add_option("--data", command.data, "Folder of the rule data");
}

void AddCodes(CLI::App& app, CodesCommand& command) {
    app.add_option("--data", command.data,
                   "Folder of the rule data (default: the configured one, else the shipped rules)");
    AddNumber(app, "--count", command.count, 0, kMostLives,
              "Live so many lives and count how often each code is carried out");
    AddSeed(app, command.seed, "Seed of the lives (default: 1)");
    app.add_flag("--describe", command.describe, "Say what each code does, as a page in Markdown");
}

void Settle(GenerateCommand& command, const RawOptions& raw) {
    auto& plan = command.plan;
    plan.method = MethodNamed(raw.method);
    plan.options = OptionsNamed(raw.options);
    plan.player = PlayerNamed(raw.player, plan.options[Option::AutomaticGeneration]);
    command.format = FormatNamed(raw.format);
    CheckPages(command.format, command.page, command.outFolder);
    command.progress = isatty(STDERR_FILENO) != 0;
}

void Settle(ReplayCommand& command, const RawOptions& raw) {
    command.format = FormatNamed(raw.format);
    CheckPages(command.format, command.page, command.outFolder);
    if (std::ranges::count(command.journals, "-") > 1)
        throw UsageError(R"(standard input, "-", holds one journal alone)");
}

void Settle(PlayCommand& command, const RawOptions& raw) {
    command.method = MethodNamed(raw.method);
    command.options = OptionsNamed(raw.options);
}

void Settle(VerifyCommand& command, const RawOptions& raw) {
    command.format = FormatNamed(raw.format);
}

void Settle(CheckCommand& command, const RawOptions& raw) {
    command.format = FormatNamed(raw.format);
}

void Settle(OddsCommand& command, const RawOptions& raw) {
    command.options = OptionsNamed(raw.options);
    command.format = FormatNamed(raw.format);
}

void Settle(BalanceCommand& command, const RawOptions& raw) {
    if ((raw.format == "md") == command.outFolder.empty())
        throw UsageError(R"("--format md" and "--out FOLDER" go together)");
    command.format = FormatNamed(raw.format);
}

}  // namespace korvane::cli
