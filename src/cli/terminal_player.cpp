#include "cli/terminal_player.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "base/text.h"
#include "character/player_texts.h"
#include "output/character_text.h"
#include "output/question_texts.h"
#include "output/summary_texts.h"

namespace korvane::cli {

namespace {

constexpr std::string_view kHelp = R"(
Answer with the number of a line, with its words, or with so much of them that no other line begins with.
At every question these words are understood too:
  back     asks the last question again; what came after it never happened
  forward  takes a step back back
  sheet    shows the character so far
  scrap    scraps the character
  quit     leaves the program; a life that a journal keeps can be gone on with
  help     shows this
)";

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

bool IsNoTable(const TableColumn& column) {
    return !column.enabled && column.caption.empty() && std::ranges::all_of(column.rows, IsBlank);
}

// The numbers of a list's items that an answer names: by numbers, or by texts with commas between them.
std::vector<int> NumbersIn(const std::string& answer, std::span<const std::string_view> items) {
    std::vector<int> numbers;
    std::istringstream words(answer);
    for (std::string word; words >> word;)
        numbers.push_back(NumberIn(word.ends_with(',') ? word.substr(0, word.size() - 1) : word));
    if (std::ranges::find(numbers, 0) == numbers.end())
        return numbers;
    numbers.clear();
    for (const auto part : SplitAll(answer, ',')) {
        const auto wanted = Trim(part);
        const auto is_it = [&](std::string_view item) { return BeginsIgnoringCase(item, wanted); };
        const auto same = std::ranges::find_if(items, [&](auto item) { return EqualsIgnoringCase(item, wanted); });
        const auto first = same != items.end() ? same : std::ranges::find_if(items, is_it);
        const bool is_one = first != items.end() && !wanted.empty() &&
                            (same != items.end() || std::find_if(first + 1, items.end(), is_it) == items.end());
        numbers.push_back(is_one ? static_cast<int>(first - items.begin()) + 1 : 0);
    }
    return numbers;
}

}  // namespace

std::string TerminalPlayer::Read(std::string_view prompt) {
    ShowStanding();
    while (true) {
        out_.Write(prompt);
        out_.Flush();
        std::string line;
        if (!std::getline(in_, line))
            throw UsageError("the input ended in the middle of a character");
        if (line.ends_with('\r'))
            line.pop_back();
        auto answer = std::string(Trim(line));
        if (!Obey(answer))
            return answer;
    }
}

bool TerminalPlayer::Obey(const std::string& answer) {
    struct Word {
        std::string_view word;
        void (TerminalPlayer::*obey)();
    };
    constexpr std::array<Word, 5> kWords = {{{"back", &TerminalPlayer::GoBack},
                                             {"forward", &TerminalPlayer::GoForward},
                                             {"sheet", &TerminalPlayer::ShowSheet},
                                             {"scrap", &TerminalPlayer::OfferScrapping},
                                             {"quit", &TerminalPlayer::OfferQuitting}}};
    if (EqualsIgnoringCase(answer, "help")) {
        out_.Write(kHelp);
        return true;
    }
    const auto word =
        std::ranges::find_if(kWords, [&](const Word& each) { return EqualsIgnoringCase(each.word, answer); });
    if (word == kWords.end())
        return false;
    (this->*word->obey)();
    return true;
}

void TerminalPlayer::GoBack() {
    if (!living_ || confirming_ != Confirming::Nothing || steps == nullptr || !steps->MayGoBack()) {
        out_.Write("There is no answer to go back to.\n");
        return;
    }
    if (goingElsewhere)
        goingElsewhere();
    out_.Write("<- back\n");
    throw WentBack{steps->MomentCount() - 1};
}

void TerminalPlayer::GoForward() {
    if (!living_ || confirming_ != Confirming::Nothing || steps == nullptr || !steps->MayGoForward()) {
        out_.Write("There is nothing to go forward to.\n");
        return;
    }
    if (goingElsewhere)
        goingElsewhere();
    out_.Write("-> forward\n");
    throw WentForward();
}

void TerminalPlayer::OfferScrapping() {
    if (!living_ || confirming_ != Confirming::Nothing) {
        out_.Write(living_ ? "Please answer y or n.\n" : "There is no character yet.\n");
        return;
    }
    if (Confirms(Confirming::Scrapping, kScrapQuestion))
        throw CharacterScrapped();
}

void TerminalPlayer::OfferQuitting() {
    const bool is_lost = living_ && (steps == nullptr || !steps->IsKept());
    if (is_lost && confirming_ != Confirming::Quitting && !ConfirmsLeaving())
        return;
    throw PlayerLeft();
}

bool TerminalPlayer::ConfirmsLeaving() {
    try {
        return Confirms(Confirming::Quitting, "No journal keeps this life. Leave it for good?");
    } catch (const UsageError&) {
        return true;  // who has hung up can't be asked
    }
}

bool TerminalPlayer::Confirms(Confirming what, std::string_view question) {
    const auto before = std::exchange(confirming_, what);
    const bool yes = Ask({question, {}, Icon::Question, false});
    confirming_ = before;
    return yes;
}

void TerminalPlayer::ShowSheet() {
    out_.Write(living_ ? "\n" + CharacterText(session_) : "There is no character yet.\n");
}

// Age and characteristics, where they have changed.
void TerminalPlayer::ShowStanding() {
    if (!living_ || confirming_ != Confirming::Nothing)
        return;
    auto standing = AgeLabel(session_.character);
    for (const auto& line : CharacteristicLines(session_.character))
        AppendAll(standing, "; ", Trim(line));
    if (standing == standing_)
        return;
    standing_ = standing;
    out_.Write(Concat("  = ", standing, "\n"));
}

int TerminalPlayer::Meant(const std::string& answer, const std::vector<Line>& lines) {
    int number = NumberIn(answer);
    int begin = 0;
    int alike = 0;
    for (std::size_t i = 0; i < lines.size() && number == 0 && !answer.empty(); ++i) {
        if (EqualsIgnoringCase(lines[i].text, answer))
            number = static_cast<int>(i) + 1;
        else if (BeginsIgnoringCase(lines[i].text, answer) && alike++ == 0)
            begin = static_cast<int>(i) + 1;
    }
    if (number == 0 && alike == 1)
        number = begin;
    if (number < 1 || number > static_cast<int>(lines.size())) {
        out_.Write(alike > 1
                       ? "More than one line begins so.\n"
                       : "Please answer with a number or the words of a line; \"help\" tells what else you can do.\n");
        return 0;
    }
    const auto& refusal = lines[static_cast<std::size_t>(number - 1)].refusal;
    if (refusal.empty())
        return number;
    out_.Write(Concat("Not now: ", refusal, ".\n"));
    return 0;
}

int TerminalPlayer::PickLine(std::string_view title, const std::vector<Line>& lines) {
    out_.Write(Concat("\n", title, "\n"));
    for (std::size_t i = 0; i < lines.size(); ++i)
        out_.Write(Concat(i < 9 ? "  " : " ", i + 1, ") ", lines[i].text, lines[i].more,
                          lines[i].refusal.empty() ? "" : "  (not now)", "\n"));
    while (true)
        if (const int number = Meant(Read("> "), lines); number > 0)
            return number;
}

int TerminalPlayer::PickName(std::string_view title, const Names& names) {
    std::vector<Line> lines;
    for (const auto& name : names)
        lines.push_back({name});
    return PickLine(title, lines);
}

int TerminalPlayer::Choose(const ChoiceQuestion& question) {
    std::vector<Line> lines;
    for (const auto option : question.options)
        lines.push_back({std::string(option)});
    return PickLine(question.title, lines);
}

std::vector<int> TerminalPlayer::Select(const ListQuestion& question) {
    out_.Write(Concat("\n", question.prompt, " (",
                      question.minimum != question.maximum ? Concat(question.minimum, " to ") : std::string(),
                      question.maximum, "; numbers with blanks, or names with commas between them, or \"cancel\")\n"));
    for (std::size_t i = 0; i < question.items.size(); ++i)
        out_.Write(Concat(i < 9 ? "  " : " ", i + 1, ") ", question.items[i], "\n"));
    while (true) {
        const auto answer = Read("> ");
        if (EqualsIgnoringCase(answer, "cancel"))
            return {};
        auto marked = NumbersIn(answer, question.items);
        std::ranges::sort(marked);
        marked.erase(std::unique(marked.begin(), marked.end()), marked.end());
        const auto count = static_cast<int>(marked.size());
        if (count == 0)
            out_.Write(Concat(kNoItems, "\n"));
        else if (marked.front() < 1 || marked.back() > static_cast<int>(question.items.size()))
            out_.Write("Please name items of the list.\n");
        else if (count > question.maximum)
            out_.Write(Concat(kTooManyItems, question.maximum, "\n"));
        else if (count < question.minimum)
            out_.Write(Concat(kTooFewItems, question.minimum, "\n"));
        else
            return marked;
    }
}

bool TerminalPlayer::Ask(const YesNoQuestion& question) {
    while (true) {
        const auto answer = Upper(Read(Concat("\n", question.text, question.defaultYes ? " [Y/n] " : " [y/N] ")));
        if (answer.empty())
            return question.defaultYes;
        if (std::string_view("YES").starts_with(answer))
            return true;
        if (std::string_view("NO").starts_with(answer))
            return false;
        out_.Write("Please answer y or n.\n");
    }
}

bool TerminalPlayer::AskBeside(const YesNoQuestion& question) {
    const bool lived = std::exchange(living_, false);
    const bool yes = Ask(question);
    living_ = lived;
    return yes;
}

void TerminalPlayer::Tell(const Notice& notice) {
    out_.Write(Concat("\n*** ", notice.text, "\n"));
}

int TerminalPlayer::PickTable(const TableQuestion& question) {
    std::vector<Line> lines;
    for (const auto& column : std::span(question.columns).subspan(1))
        lines.push_back({column.caption, column.enabled ? "" : "your character doesn't meet what the table asks for",
                         ": " + Joined(column.rows)});
    // The last columns may hold nothing; the numbers of the others stay what they are.
    while (lines.size() > 1 && IsNoTable(question.columns.at(lines.size())))
        lines.pop_back();
    return PickLine(question.instruction, lines);
}

Options TerminalPlayer::ChangeOptions(Options options) {
    while (true) {
        std::vector<Line> lines;
        for (std::size_t i = 0; i < kOptionCaptions.size(); ++i)
            lines.push_back(
                {std::string(kOptionCaptions.at(i)), {}, options[static_cast<Option>(i)] ? "  [x]" : "  [ ]"});
        lines.push_back({"Done"});
        const int number = PickLine("Options", lines);
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
        const int number = PickLine(Concat(kEndOfTermHeading, " (", question.termsTotal, " terms)"), lines);
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
        const auto picked = static_cast<std::size_t>(PickName("Career", careers));
        if (picked == careers.size())
            return std::nullopt;
        const auto& career = careers[picked - 1];
        auto assignments = *question.assignmentsOf(career);
        assignments.emplace_back("(another career)");
        const auto number = static_cast<std::size_t>(PickName("Assignment", assignments));
        if (number < assignments.size())
            return TransferAnswer{career, assignments[number - 1]};
    }
}

MusterPress TerminalPlayer::Muster(const MusterQuestion& question) {
    out_.Write(
        Concat("\n", MusterTitle(question.career, question.rolls), "; ", question.bonuses, " times you can add +1\n"));
    for (const auto results : {question.cash, question.benefits})
        for (const auto& result : results)
            out_.Write(Concat("  ", result, "\n"));
    std::vector<Line> lines;
    for (std::size_t i = 0; i < kMusterCaptions.size(); ++i) {
        const bool enabled = question.Enabled(static_cast<MusterButton>(i));
        lines.push_back({std::string(kMusterCaptions.at(i)), enabled ? ""
                                                             : question.rolls <= 0
                                                                 ? "no rolls are left"
                                                                 : "no more rolls for cash are allowed"});
    }
    const auto button = static_cast<MusterButton>(PickLine("Benefit", lines) - 1);
    const bool rolls_cash = button == MusterButton::Cash || button == MusterButton::ThreeCashRestMaterial;
    return {button, rolls_cash && question.gamblerEnabled && Ask({kGamblerQuestion, {}, Icon::Question, false})};
}

}  // namespace korvane::cli
