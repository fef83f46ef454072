#include "cli/completion.h"

#include <algorithm>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "character/options.h"
#include "check/finding.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "data/data_folder.h"
#include "output/page_export.h"

namespace korvane::cli {

namespace {

constexpr std::string_view kBash = R"SCRIPT(# Completion of korvane-cli for bash.
_korvane_cli() {
    local IFS=$'\n' word
    COMPREPLY=()
    while read -r word; do
        # Within a quote that is open, words stand as they are.
        [[ ${COMP_WORDS[COMP_CWORD]} == [\"\']* ]] || word=$(printf '%q' "$word")
        COMPREPLY+=("$word")
    done < <("${COMP_WORDS[0]}" complete --typed -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -o default -o nosort -F _korvane_cli korvane-cli
)SCRIPT";

constexpr std::string_view kZsh = R"SCRIPT(#compdef korvane-cli
# Completion of korvane-cli for zsh.
_korvane-cli() {
    local -a fitting
    fitting=("${(@f)$("${words[1]}" complete -- "${(@Q)words[2,CURRENT]}" 2>/dev/null)}")
    if [[ -n "${fitting[1]}" ]]; then
        compadd -U -a fitting
    else
        _files
    fi
}
if [[ "${funcstack[1]}" = _korvane-cli ]]; then
    _korvane-cli "$@"
else
    compdef _korvane-cli korvane-cli
fi
)SCRIPT";

constexpr std::string_view kFish = R"SCRIPT(# Completion of korvane-cli for fish.
function __korvane_cli
    set -l words (commandline -opc)
    set -l program $words[1]
    set -e words[1]
    $program complete -- $words (commandline -ct) 2>/dev/null
end
complete -c korvane-cli -a '(__korvane_cli)'
)SCRIPT";

// A word as the shell would pass it on, of one that somebody types: without quotes, of which the last may be open, and
// backslashes. Variables and commands in it stay as they are.
std::string Unquoted(std::string_view typed) {
    std::string word;
    char quote = 0;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const char letter = typed[i];
        if (quote == 0 && (letter == '"' || letter == '\''))
            quote = letter;
        else if (letter == quote)
            quote = 0;
        else if (letter == '\\' && quote != '\'' && i + 1 < typed.size())
            word += typed[++i];
        else
            word += letter;
    }
    return word;
}

// The words without quotes, and without the "=" that bash takes for a word.
std::vector<std::string> TypedWords(const std::vector<std::string>& typed) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < typed.size(); ++i)
        if (typed[i] != "=")
            words.push_back(Unquoted(typed[i]));
        else if (i + 1 == typed.size())
            words.emplace_back();
    return words;
}

// The words with "--option=value" as two.
std::vector<std::string> Separated(const std::vector<std::string>& words) {
    std::vector<std::string> separated;
    for (const auto& word : words) {
        const auto place = word.starts_with("--") ? word.find('=') : std::string::npos;
        separated.push_back(word.substr(0, place));
        if (place != std::string::npos)
            separated.push_back(word.substr(place + 1));
    }
    return separated;
}

// The value that an option has among the words before the last, which is being typed; empty for none.
std::string ValueOf(const std::vector<std::string>& words, std::string_view option) {
    std::string value;
    for (std::size_t i = 0; i + 2 < words.size(); ++i)
        if (words[i] == option)
            value = words[i + 1];
    return value;
}

template <typename Texts>
void Append(std::vector<std::string>& all, const Texts& texts) {
    for (const std::string_view text : texts)
        if (const std::string each(Trim(text)); std::ranges::find(all, each) == all.end())
            all.push_back(each);
}

// The careers or the assignments of the races and careers that the words name, else of all.
std::vector<std::string> NamesFor(std::string_view option, DataFolder& data, const std::vector<std::string>& words) {
    std::vector<std::string> names;
    const auto race_named = ValueOf(words, "--race");
    const auto career_named = ValueOf(words, "--career");
    for (const auto& race : *data.RaceNames()) {
        if (!race_named.empty() && !EqualsIgnoringCase(race, race_named))
            continue;
        if (option == "--race")
            Append(names, std::vector{race});
        else if (option == "--career")
            Append(names, *data.CareerNames(race));
        else
            for (const auto& career : *data.CareerNames(race))
                if (career_named.empty() || EqualsIgnoringCase(career, career_named))
                    Append(names, *data.AssignmentNames(race, career));
    }
    return names;
}

// The values that the option itself lists, as "TEXT:{text,json}".
std::vector<std::string> ListedBy(const CLI::Option& option) {
    const auto type = option.get_type_name();
    const auto listed = SplitFirst(SplitFirst(type, "{").second, "}").first;
    std::vector<std::string> values;
    if (!listed.empty())
        for (const auto value : SplitAll(listed, ','))
            values.emplace_back(Trim(value));
    return values;
}

std::vector<std::string> ValuesFor(const CLI::Option& option, const std::vector<std::string>& words) {
    const auto name = option.get_name();
    std::vector<std::string> values = ListedBy(option);
    if (name == "--option")
        Append(values, kOptionCaptions);
    else if (name == "--method")
        Append(values, kMethodCaptions);
    else if (name == "--explain")
        for (const auto& kind : check::Kinds())
            values.emplace_back(kind.code);
    if (name != "--race" && name != "--career" && name != "--assignment" && name != "--template")
        return values;
    DataFolder data(ChooseDataLocation(ValueOf(words, "--data")), DataFolder::Reading::Once);
    return name == "--template" ? TemplateNames(data.location()) : NamesFor(name, data, words);
}

// The option that waits for a value before the last word; none: none does.
const CLI::Option* Waiting(const CLI::App& verb, const std::vector<std::string>& words) {
    if (words.size() < 2)
        return nullptr;
    const auto* const option = verb.get_option_no_throw(words[words.size() - 2]);
    return option != nullptr && option->get_type_size() > 0 && words[words.size() - 2].starts_with("-") ? option
                                                                                                        : nullptr;
}

std::vector<std::string> AllFor(const CLI::App& app, const std::vector<std::string>& words) {
    std::vector<std::string> all;
    if (words.size() < 2) {
        all = {"--help", "--version"};
        for (const auto* const verb : app.get_subcommands([](const CLI::App*) { return true; }))
            all.push_back(verb->get_name());
        return all;
    }
    const auto verbs = app.get_subcommands([&](const CLI::App* each) { return each->get_name() == words.front(); });
    if (verbs.empty())
        return all;
    const auto* const verb = verbs.front();
    if (const auto* const option = Waiting(*verb, words))
        return ValuesFor(*option, words);
    if (words.back().starts_with("-"))
        for (const auto* const option : verb->get_options())
            if (option->get_name().starts_with("--"))
                all.push_back(option->get_name());
    if (words.size() > 2)
        return all;
    if (words.front() == "completion")
        Append(all, kShells);
    else if (words.front() == "new-career")
        Append(all, *DataFolder(ChooseDataLocation("")).RaceNames());
    return all;
}

}  // namespace

std::string CompletionScript(const std::string& shell) {
    return std::string(shell == "bash" ? kBash : shell == "zsh" ? kZsh : kFish);
}

int PrintCompletion(const CompletionCommand& command, Streams& streams) {
    streams.out << CompletionScript(command.shell);
    return kSuccess;
}

std::vector<std::string> Completions(const CLI::App& app, const std::vector<std::string>& words, bool typed) {
    const auto last = typed || words.empty() ? std::string() : words.back();
    const auto separated = Separated(typed ? TypedWords(words) : words);
    auto all = AllFor(app, separated);
    const auto begun = separated.empty() ? std::string() : separated.back();
    std::erase_if(all, [&](const std::string& each) { return !BeginsIgnoringCase(each, begun); });
    // Shells that don't part "--option=value" replace all of it.
    if (const auto option = last.substr(0, last.size() - begun.size()); option.ends_with("="))
        for (auto& each : all)
            each.insert(0, option);
    return all;
}

}  // namespace korvane::cli
