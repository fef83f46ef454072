#include "output/journal/replayer.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"

namespace korvane::journal {

namespace {

// A line of the journal, or a part of one, for a message.
std::string Shown(const Json& line) {
    constexpr std::size_t kMostHeld = 80;
    return Printable(line.dump(-1, ' ', false, Json::error_handler_t::replace), kMostHeld);
}

// Whether brackets of a line stand deeper in each other than a journal's do. What reads JSON may do it by recursion.
bool NestsTooDeep(std::string_view line) {
    constexpr int kMostDepth = 16;
    int depth = 0;
    bool in_text = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (in_text && c == '\\')
            ++i;
        else if (c == '"')
            in_text = !in_text;
        else if (!in_text && (c == '[' || c == '{') && ++depth > kMostDepth)
            return true;
        else if (!in_text && (c == ']' || c == '}'))
            --depth;
    }
    return false;
}

}  // namespace

Replayer::Replayer(std::string name, std::string text) : name_(std::move(name)), text_(std::move(text)) {
    ReadStart();
}

void Replayer::ReadStart() {
    NextLine();
    Number("journal", 1, 1);
    start_.race = Text("race");
    start_.career = Text("career");
    start_.assignment = Text("assignment");
    const auto method = MethodOfCaption(Text("method"));
    if (!method)
        Reject("a method of rolling", Shown(Member("method")));
    start_.method = *method;
    start_.options = Boxes();
}

Json Replayer::Parsed(std::string_view line) const {
    constexpr std::size_t kMostLine = std::size_t{1} << 20U;
    if (line.size() > kMostLine)
        Reject("a line of at most 1 MB", Concat("one of ", line.size() >> 20U, " MB"));
    if (NestsTooDeep(line))
        Reject("a JSON object whose brackets stand at most 16 deep in each other", Quoted(line));
    auto parsed = Json::parse(line, nullptr, false);
    if (!parsed.is_object())
        Reject("a JSON object", Quoted(line));
    return parsed;
}

const Json& Replayer::NextLine() {
    ++read_;
    if (AtEnd())
        Reject("another line of the journal", "the end of the file");
    const auto line = PeekLine();
    next_ += line.size() + 1;
    line_ = Parsed(line);
    return line_;
}

const Json& Replayer::Match(const Json& request) {
    NextLine();
    for (const auto& [key, value] : request.items())
        if (!line_.contains(key) || line_[key] != value)
            Diverge(request.dump(-1, ' ', false, Json::error_handler_t::replace));
    return line_;
}

bool Replayer::EndsScrapped() const {
    constexpr std::size_t kMostEnd = 1000;
    const auto line = PeekLine();
    if (AtEnd() || line.size() > kMostEnd || NestsTooDeep(line))
        return false;
    const auto next = Json::parse(line, nullptr, false);
    return next.is_object() && next.contains("end") && next["end"] == kScrapped;
}

const Json& Replayer::MatchOrScrapped(const Json& request) {
    if (EndsScrapped())
        throw CharacterScrapped();
    return Match(request);
}

void Replayer::ExpectLast(const Json& end) {
    Match(end);
    if (!AtEnd()) {
        ++read_;
        Reject("the end of the journal", "another line");
    }
}

void Replayer::ExpectEnd(LifeEnd end) {
    ExpectLast({{"end", end == LifeEnd::MusteredOut ? kMusteredOut : kScrapped}});
}

void Replayer::ExpectErrorEnd(std::string_view kind) {
    ExpectLast({{"end", kError}, {"kind", kind}});
}

void Replayer::Diverge(std::string_view asked) const {
    constexpr std::size_t kMostAsked = 300;
    throw Divergence(Concat(Printable(name_, 300), ":", read_, ": the journal holds ", Shown(line_),
                            ", the engine asked ", Printable(asked, kMostAsked)));
}

void Replayer::Reject(std::string_view expected, std::string_view found) const {
    throw JournalError(name_, read_, expected, found);
}

const Json& Replayer::Member(std::string_view key) const {
    const auto place = line_.find(std::string(key));
    if (place == line_.end())
        Reject(Concat("the member \"", key, "\""), Shown(line_));
    return *place;
}

int Replayer::Number(std::string_view key, int least, int most) const {
    const auto& value = Member(key);
    const auto number = value.is_number_integer() ? value.get<std::int64_t>() : std::int64_t{least} - 1;
    if (number < least || number > most)
        Reject(Concat("\"", key, "\" as a number from ", least, " to ", most), Shown(value));
    return static_cast<int>(number);
}

bool Replayer::Truth(std::string_view key) const {
    const auto& value = Member(key);
    if (!value.is_boolean())
        Reject(Concat("\"", key, "\" as true or false"), Shown(value));
    return value.get<bool>();
}

std::string Replayer::Text(std::string_view key) const {
    const auto& value = Member(key);
    if (!value.is_string())
        Reject(Concat("\"", key, "\" as a text"), Shown(value));
    return value.get<std::string>();
}

Options Replayer::Boxes() const {
    const auto& captions = Member("options");
    Options options;
    if (!captions.is_array())
        Reject("\"options\" as a list", Shown(captions));
    for (const auto& caption : captions) {
        const auto option = caption.is_string() ? OptionOfCaption(caption.get<std::string>()) : std::nullopt;
        if (!option)
            Reject("the caption of an option", Shown(caption));
        options.Set(*option);
    }
    return options;
}

std::size_t Replayer::OneOf(std::string_view key, std::span<const std::string_view> allowed) const {
    const auto text = Text(key);
    const auto place = std::ranges::find(allowed, text);
    if (place == allowed.end())
        Reject(Concat("\"", key, "\" as one of the answers there are"), Quoted(text));
    return static_cast<std::size_t>(place - allowed.begin());
}

int Replayer::Roll(int count, int sides) {
    Match(RollRequest(count, sides));
    return Number("result", count, count * sides);
}

int Replayer::Draw(int n) {
    Match(DrawRequest(n));
    return Number("result", 0, n - 1);
}

int Replayer::Choose(const ChoiceQuestion& question) {
    MatchOrScrapped(ChooseRequest(question));
    return Number("picked", 1, static_cast<int>(question.options.size()));
}

std::vector<int> Replayer::Select(const ListQuestion& question) {
    Match(SelectRequest(question));
    const auto& marks = Member("marked");
    std::vector<int> marked;
    const auto most = static_cast<int>(question.items.size());
    for (const auto& mark : marks.is_array() ? marks : Json::array({0})) {
        const int least = marked.empty() ? 1 : marked.back() + 1;
        const auto item = mark.is_number_integer() ? mark.get<std::int64_t>() : 0;
        if (item < least || item > most)
            Reject(Concat("\"marked\" as ascending numbers from 1 to ", most), Shown(marks));
        marked.push_back(static_cast<int>(item));
    }
    const auto count = static_cast<int>(marked.size());
    if (count != 0 && (count < question.minimum || count > question.maximum))
        Reject(Concat("none or ", question.minimum, " to ", question.maximum, " marks"), Shown(marks));
    return marked;
}

bool Replayer::Ask(const YesNoQuestion& question) {
    constexpr std::array<std::string_view, 2> kAnswers = {"yes", "no"};
    Match(AskRequest(question));
    return OneOf("answer", kAnswers) == 0;
}

void Replayer::Tell(const Notice& notice) {
    Match(TellRequest(notice));
}

int Replayer::PickTable(const TableQuestion& question) {
    MatchOrScrapped(TableRequest(question));
    const int picked = Number("picked", 1, static_cast<int>(question.columns.size()) - 1);
    if (!question.columns.at(static_cast<std::size_t>(picked)).enabled)
        Reject("a column that is enabled", Concat(picked));
    return picked;
}

EndOfTermAnswer Replayer::EndOfTerm(const EndOfTermQuestion& question) {
    MatchOrScrapped(EndOfTermRequest(question));
    return {static_cast<EndOfTermChoice>(Number("answer", 1, 4)), Boxes()};
}

std::optional<TransferAnswer> Replayer::Transfer(const TransferQuestion& question) {
    if (EndsScrapped())
        throw CharacterScrapped();
    NextLine();
    if (!line_.contains(kTransferKind))
        Diverge("{\"transfer\"}");
    if (!Truth(kTransferKind))
        return std::nullopt;
    TransferAnswer answer{Text("career"), Text("assignment")};
    const auto offered = [](const Names& names, const std::string& name) {
        return name.empty() || std::ranges::find(names, name) != names.end();
    };
    if (!offered(question.careers, answer.career))
        Reject("a career that the transfer offers", Quoted(answer.career));
    if (!offered(*question.assignmentsOf(answer.career), answer.assignment))
        Reject("an assignment that the transfer offers", Quoted(answer.assignment));
    return answer;
}

MusterPress Replayer::Muster(const MusterQuestion& question) {
    Match(MusterRequest(question));
    const auto button = static_cast<MusterButton>(OneOf("press", kMusterCaptions));
    const bool gambler = Truth("gambler");
    if (!question.Enabled(button) || (gambler && !question.gamblerEnabled))
        Reject("a control that is enabled", Shown(line_));
    return {button, gambler};
}

}  // namespace korvane::journal
