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
        COMPREPLY+=("$(printf '%q' "$word")")
    done < <("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -o default -o nosort -F _korvane_cli korvane-cli
)SCRIPT";

constexpr std::string_view kZsh = R"SCRIPT(#compdef korvane-cli
# Completion of korvane-cli for zsh.
_korvane_cli() {
    local -a fitting
    fitting=("${(@f)$("${words[1]}" complete -- "${(@Q)words[2,CURRENT]}" 2>/dev/null)}")
    if [[ -n "${fitting[1]}" ]]; then
        compadd -U -a fitting
    else
        _files
    fi
}
if [[ "${funcstack[1]}" = _korvane_cli ]]; then
    _korvane_cli "$@"
else
    compdef _korvane_cli korvane-cli
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

// The value that an option has among words, the last that counts; empty for none.
std::string ValueOf(const std::vector<std::string>& words, std::string_view option) {
    std::string value;
    for (std::size_t i = 0; i + 1 < words.size(); ++i)
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
    if (words.front() == "completion")
        all = {"bash", "zsh", "fish"};
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

std::vector<std::string> Completions(const CLI::App& app, const std::vector<std::string>& words) {
    auto all = AllFor(app, words);
    const auto begun = words.empty() ? std::string() : words.back();
    std::erase_if(all, [&](const std::string& each) { return !BeginsIgnoringCase(each, begun); });
    return all;
}

}  // namespace korvane::cli
