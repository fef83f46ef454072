#include "cli/terminal_player.h"

#include <algorithm>
#include <sstream>

#include "base/text.h"
#include "character/player_texts.h"

namespace korvane::cli {

namespace {

// The number that a text is; 0 for anything else.
int NumberIn(std::string_view text) {
    try {
        return StrictCount(text);
    } catch (const RuleError&) {
        return 0;
    }
}

std::string Joined(std::span<const std::string_view> rows) {
    std::string joined;
    for (const auto row : rows)
        AppendAll(joined, joined.empty() ? "" : ", ", row);
    return joined;
}

}  // namespace

void TerminalDisplay::HistoryChanged() {
    const auto lines = character_->History.lines();
    if (lines.size() < shown_)
        shown_ = 0;
    for (; shown_ < lines.size(); ++shown_)
        out_ << "  | " << lines[shown_] << '\n';
}

std::string TerminalPlayer::Read(std::string_view prompt) {
    out_ << prompt << std::flush;
    std::string line;
    if (!std::getline(in_, line))
        throw UsageError("the input ended in the middle of a character");
    if (line.ends_with('\r'))
        line.pop_back();
    return std::string(Trim(line));
}

void TerminalPlayer::OfferScrapping() {
    if (Ask({kScrapQuestion, {}, Icon::Question, false}))
        throw CharacterScrapped();
}

int TerminalPlayer::PickLine(std::string_view title, const std::vector<Line>& lines, bool mayScrap) {
    out_ << '\n' << title << '\n';
    for (std::size_t i = 0; i < lines.size(); ++i)
        out_ << "  " << i + 1 << ") " << lines[i].text << (lines[i].enabled ? "" : "  (not now)") << '\n';
    while (true) {
        const auto answer = Read("> ");
        if (mayScrap && answer == "scrap")
            OfferScrapping();
        const int number = NumberIn(answer);
        if (number >= 1 && number <= static_cast<int>(lines.size()) &&
            lines[static_cast<std::size_t>(number - 1)].enabled)
            return number;
        out_ << "Please type one of the numbers" << (mayScrap ? ", or \"scrap\"." : ".") << '\n';
    }
}

int TerminalPlayer::PickName(std::string_view title, const Names& names, bool mayScrap) {
    std::vector<Line> lines;
    for (const auto& name : names)
        lines.push_back({name});
    return PickLine(title, lines, mayScrap);
}

int TerminalPlayer::Choose(const ChoiceQuestion& question) {
    std::vector<Line> lines;
    for (const auto option : question.options)
        lines.push_back({std::string(option)});
    return PickLine(question.title, lines, true);
}

std::vector<int> TerminalPlayer::Select(const ListQuestion& question) {
    out_ << '\n' << question.prompt << " (";
    if (question.minimum != question.maximum)
        out_ << question.minimum << " to ";
    out_ << question.maximum << "; numbers with blanks between them, or \"cancel\")\n";
    for (std::size_t i = 0; i < question.items.size(); ++i)
        out_ << "  " << i + 1 << ") " << question.items[i] << '\n';
    while (true) {
        const auto answer = Read("> ");
        if (answer == "cancel")
            return {};
        std::vector<int> marked;
        std::istringstream words(answer);
        for (std::string word; words >> word;)
            marked.push_back(NumberIn(word));
        std::ranges::sort(marked);
        marked.erase(std::unique(marked.begin(), marked.end()), marked.end());
        const auto count = static_cast<int>(marked.size());
        if (count == 0)
            out_ << kNoItems << '\n';
        else if (marked.front() < 1 || marked.back() > static_cast<int>(question.items.size()))
            out_ << "Please type numbers of the list.\n";
        else if (count > question.maximum)
            out_ << kTooManyItems << question.maximum << '\n';
        else if (count < question.minimum)
            out_ << kTooFewItems << question.minimum << '\n';
        else
            return marked;
    }
}

bool TerminalPlayer::Ask(const YesNoQuestion& question) {
    while (true) {
        const auto answer = Upper(Read(Concat("\n", question.text, question.defaultYes ? " [Y/n] " : " [y/N] ")));
        if (answer.empty())
            return question.defaultYes;
        if (answer == "Y" || answer == "YES")
            return true;
        if (answer == "N" || answer == "NO")
            return false;
        out_ << "Please answer y or n.\n";
    }
}

void TerminalPlayer::Tell(const Notice& notice) {
    out_ << "\n*** " << notice.text << '\n';
}

int TerminalPlayer::PickTable(const TableQuestion& question) {
    std::vector<Line> lines;
    for (const auto& column : std::span(question.columns).subspan(1))
        if (!column.caption.empty() || column.enabled)
            lines.push_back({column.caption + ": " + Joined(column.rows), column.enabled});
    return PickLine(question.instruction, lines, true);
}

Options TerminalPlayer::ChangeOptions(Options options) {
    while (true) {
        std::vector<Line> lines;
        for (std::size_t i = 0; i < kOptionCaptions.size(); ++i)
            lines.push_back({Concat(options[static_cast<Option>(i)] ? "[x] " : "[ ] ", kOptionCaptions.at(i))});
        lines.push_back({"Back"});
        const int number = PickLine("Options", lines, false);
        if (number == static_cast<int>(lines.size()))
            return options;
        const auto option = static_cast<Option>(number - 1);
        options.Set(option, !options[option]);
    }
}

EndOfTermAnswer TerminalPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    auto options = question.options;
    while (true) {
        std::vector<Line> lines;
        lines.reserve(kEndOfTermCaptions.size() + 1);
        for (const auto caption : kEndOfTermCaptions)
            lines.push_back({std::string(caption)});
        lines.push_back({"Change options"});
        const int number = PickLine(Concat(kEndOfTermHeading, " (", question.termsTotal, " terms)"), lines, true);
        if (number < static_cast<int>(lines.size()))
            return {static_cast<EndOfTermChoice>(number), options};
        options = ChangeOptions(options);
    }
}

std::optional<TransferAnswer> TerminalPlayer::Transfer(const TransferQuestion& question) {
    Tell({kTransferNotice});
    while (true) {
        auto careers = question.careers;
        careers.emplace_back(kEndCareer);
        const auto picked = static_cast<std::size_t>(PickName("Career", careers, true));
        if (picked == careers.size())
            return std::nullopt;
        const auto& career = careers[picked - 1];
        auto assignments = *question.assignmentsOf(career);
        assignments.emplace_back("(another career)");
        const auto number = static_cast<std::size_t>(PickName("Assignment", assignments, true));
        if (number < assignments.size())
            return TransferAnswer{career, assignments[number - 1]};
    }
}

MusterPress TerminalPlayer::Muster(const MusterQuestion& question) {
    out_ << "\nMuster Out for " << question.career << ' ' << question.rolls << " rolls remaining; " << question.bonuses
         << " times you can add +1\n";
    for (const auto results : {question.cash, question.benefits})
        for (const auto& result : results)
            out_ << "  " << result << '\n';
    std::vector<Line> lines;
    for (std::size_t i = 0; i < kMusterCaptions.size(); ++i)
        lines.push_back({std::string(kMusterCaptions.at(i)), question.Enabled(static_cast<MusterButton>(i))});
    const int number = PickLine("Benefit", lines, false);
    const auto button = static_cast<MusterButton>(number - 1);
    const bool rolls_cash = button == MusterButton::Cash || button == MusterButton::ThreeCashRestMaterial;
    return {button, rolls_cash && question.gamblerEnabled && Ask({kGamblerQuestion, {}, Icon::Question, false})};
}

}  // namespace korvane::cli
