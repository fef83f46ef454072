#include "output/journal/read_journal.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <span>
#include <utility>

#include "base/digest.h"
#include "base/encoding.h"
#include "base/text.h"
#include "character/player_texts.h"
#include "output/journal/lines.h"

namespace korvane::journal {

namespace {

using Json = nlohmann::ordered_json;

// What a line should hold, and what it does.
struct Fault {
    std::string expected;
    std::string found;
};

std::string Shown(const Json& value) {
    constexpr std::size_t kMostHeld = 80;
    return Printable(value.dump(-1, ' ', false, Json::error_handler_t::replace), kMostHeld);
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

Json Parsed(std::string_view line) {
    constexpr std::size_t kMostLine = std::size_t{1} << 20U;
    if (line.size() > kMostLine)
        throw Fault{"a line of at most 1 MB", Concat("one of ", line.size() >> 20U, " MB")};
    if (NestsTooDeep(line))
        throw Fault{"a JSON object whose brackets stand at most 16 deep in each other", Quoted(line)};
    auto parsed = Json::parse(line, nullptr, false);
    if (!parsed.is_object())
        throw Fault{"a JSON object", Quoted(line)};
    return parsed;
}

// The members of an object; each operation throws a fault for one that is missing, of another type or out of range.
class Members {
  public:
    explicit Members(const Json& object) : object_(object) {}

    bool Has(std::string_view key) const { return object_.contains(std::string(key)); }
    const Json& Get(std::string_view key) const {
        const auto place = object_.find(std::string(key));
        if (place == object_.end())
            throw Fault{Concat("the member \"", key, "\""), Shown(object_)};
        return *place;
    }
    int Number(std::string_view key, std::int64_t least, std::int64_t most) const {
        return static_cast<int>(Whole(Get(key), key, least, most));
    }
    static std::int64_t Whole(const Json& value, std::string_view key, std::int64_t least, std::int64_t most) {
        const auto number = value.is_number_integer() ? value.get<std::int64_t>() : least - 1;
        if (number < least || number > most)
            throw Fault{Concat("\"", key, "\" as a number from ", least, " to ", most), Shown(value)};
        return number;
    }
    bool Truth(std::string_view key) const {
        const auto& value = Get(key);
        if (!value.is_boolean())
            throw Fault{Concat("\"", key, "\" as true or false"), Shown(value)};
        return value.get<bool>();
    }
    std::string Text(std::string_view key) const {
        const auto& value = Get(key);
        if (!value.is_string())
            throw Fault{Concat("\"", key, "\" as a text"), Shown(value)};
        return value.get<std::string>();
    }
    const Json& List(std::string_view key) const {
        const auto& value = Get(key);
        if (!value.is_array())
            throw Fault{Concat("\"", key, "\" as a list"), Shown(value)};
        return value;
    }
    std::vector<std::string> Texts(std::string_view key) const {
        std::vector<std::string> texts;
        for (const auto& value : List(key)) {
            if (!value.is_string())
                throw Fault{Concat("\"", key, "\" as a list of texts"), Shown(value)};
            texts.push_back(value.get<std::string>());
        }
        return texts;
    }
    Options Boxes() const {
        Options options;
        for (const auto& caption : List("options")) {
            const auto option = caption.is_string() ? OptionOfCaption(caption.get<std::string>()) : std::nullopt;
            if (!option)
                throw Fault{"the caption of an option", Shown(caption)};
            options.Set(*option);
        }
        return options;
    }
    // The place, from 0, of a text among those allowed.
    std::size_t OneOf(std::string_view key, std::span<const std::string_view> allowed) const {
        const auto text = Text(key);
        const auto place = std::ranges::find(allowed, text);
        if (place == allowed.end())
            throw Fault{Concat("\"", key, "\" as one of the answers there are"), Quoted(text)};
        return static_cast<std::size_t>(place - allowed.begin());
    }

  private:
    const Json& object_;
};

constexpr std::int64_t kMostAsked = 1'000'000;  // of anything that a request counts

Line ReadRoll(const Members& members) {
    const auto& dice = members.List("roll");
    if (dice.size() != 2)
        throw Fault{"\"roll\" as two numbers", Shown(dice)};
    const auto count = Members::Whole(dice[0], "roll", 1, kMostAsked);
    const auto sides = Members::Whole(dice[1], "roll", 1, 1000);
    return RollLine{{static_cast<int>(count), static_cast<int>(sides)}, members.Number("result", count, count * sides)};
}

Line ReadDraw(const Members& members) {
    const int n = members.Number("draw", 1, kMostAsked);
    return DrawLine{{n}, members.Number("result", 0, n - 1)};
}

Line ReadChoose(const Members& members) {
    auto options = members.Texts("options");
    const auto most = static_cast<std::int64_t>(options.size());
    return ChooseLine{{members.Text("choose"), std::move(options)}, members.Number("picked", 1, most)};
}

std::vector<int> ReadMarks(const Json& marks, const SelectRequest& request) {
    std::vector<int> marked;
    const auto most = static_cast<int>(request.items.size());
    for (const auto& mark : marks) {
        const int least = marked.empty() ? 1 : marked.back() + 1;
        const auto item = mark.is_number_integer() ? mark.get<std::int64_t>() : 0;
        if (item < least || item > most)
            throw Fault{Concat("\"marked\" as ascending numbers from 1 to ", most), Shown(marks)};
        marked.push_back(static_cast<int>(item));
    }
    const auto count = static_cast<int>(marked.size());
    if (count != 0 && (count < request.minimum || count > request.maximum))
        throw Fault{Concat("none or ", request.minimum, " to ", request.maximum, " marks"), Shown(marks)};
    return marked;
}

Line ReadSelect(const Members& members) {
    SelectRequest request{members.Text("select"), members.Number("maximum", -kMostAsked, kMostAsked),
                          members.Number("minimum", -kMostAsked, kMostAsked), members.Texts("items")};
    auto marked = ReadMarks(members.List("marked"), request);
    return SelectLine{std::move(request), std::move(marked)};
}

Line ReadAsk(const Members& members) {
    constexpr std::array<std::string_view, 2> kAnswers = {"yes", "no"};
    return AskLine{{members.Text("ask")}, members.OneOf("answer", kAnswers) == 0};
}

Line ReadTell(const Members& members) {
    return TellLine{{members.Text("tell")}, {}};
}

Line ReadTable(const Members& members) {
    constexpr int kColumns = 6;
    TableRequest request;
    for (const auto& column : members.List("table"))
        request.enabled.push_back(static_cast<int>(Members::Whole(column, "table", 1, kColumns)));
    const int picked = members.Number("picked", 1, kColumns);
    if (std::ranges::find(request.enabled, picked) == request.enabled.end())
        throw Fault{"a column that is enabled", Concat(picked)};
    return TableLine{std::move(request), picked};
}

Line ReadEndOfTerm(const Members& members) {
    const int number = members.Number("end of term", 0, kMostAsked);
    return EndOfTermLine{{number}, {static_cast<EndOfTermChoice>(members.Number("answer", 1, 4)), members.Boxes()}};
}

Line ReadTransfer(const Members& members) {
    if (!members.Truth("transfer"))
        return TransferLine{};
    return TransferLine{{}, TransferAnswer{members.Text("career"), members.Text("assignment")}};
}

Line ReadMuster(const Members& members) {
    const int rolls = members.Number("muster", -kMostAsked, kMostAsked);
    const auto button = static_cast<MusterButton>(members.OneOf("press", kMusterCaptions));
    return MusterLine{{rolls}, {button, members.Truth("gambler")}};
}

Line ReadFile(const Members& members) {
    return FileLine{{members.Text("file")}, members.Text("sha256")};
}

// The kinds of lines by the key that tells them.
struct Kind {
    std::string_view key;
    Line (*read)(const Members&);
};
constexpr std::array<Kind, 11> kKinds = {{{"roll", ReadRoll},
                                          {"draw", ReadDraw},
                                          {"choose", ReadChoose},
                                          {"select", ReadSelect},
                                          {"ask", ReadAsk},
                                          {"tell", ReadTell},
                                          {"table", ReadTable},
                                          {"end of term", ReadEndOfTerm},
                                          {"transfer", ReadTransfer},
                                          {"muster", ReadMuster},
                                          {"file", ReadFile}}};

Line ReadKnownLine(const Json& object) {
    const Members members(object);
    for (const auto& kind : kKinds)
        if (members.Has(kind.key))
            return kind.read(members);
    return OddLine{object.dump(-1, ' ', false, Json::error_handler_t::replace), {}, {}};
}

std::optional<Origin> ReadOrigin(const Members& members, int version) {
    if (version == 1)
        return std::nullopt;
    const auto& dice = members.Get("dice");
    if (dice == "clock")
        return Origin{};
    if (!dice.is_object())
        throw Fault{R"("dice" as "clock", or as a seed and a number)", Shown(dice)};
    const Members origin(dice);
    const auto& seed = origin.Get("seed");
    const auto& number = origin.Get("number");
    if (!number.is_number_unsigned())
        throw Fault{"\"number\" as a whole number", Shown(number)};
    if (!seed.is_string() && !seed.is_number_unsigned())
        throw Fault{"\"seed\" as a word or a whole number", Shown(seed)};
    try {
        return Origin{seed.is_string() ? Seed(seed.get<std::string>()) : Seed(seed.get<std::uint64_t>()),
                      number.get<std::uint64_t>()};
    } catch (const UsageError& error) {
        throw Fault{"a seed", error.what()};
    }
}

Start ReadStart(const Json& object) {
    const Members members(object);
    Start start;
    start.version = members.Number("journal", 1, 2);
    start.program = start.version > 1 ? members.Text("program") : std::string();
    start.dice = ReadOrigin(members, start.version);
    start.race = members.Text("race");
    start.career = members.Text("career");
    start.assignment = members.Text("assignment");
    const auto method = MethodOfCaption(members.Text("method"));
    if (!method)
        throw Fault{"a method of rolling", Shown(members.Get("method"))};
    start.method = *method;
    start.options = members.Boxes();
    return start;
}

End ReadEnd(const Json& object, int version) {
    constexpr std::array kEnds = {kMusteredOut, kScrapped, kError};
    const Members members(object);
    End end;
    end.kind = static_cast<EndKind>(members.OneOf("end", kEnds));
    if (end.kind == EndKind::Error) {
        end.errorKind = members.Text("kind");
        end.message = members.Has("message") ? members.Text("message") : std::string();
    }
    if (version == 1)
        return end;
    if (end.kind == EndKind::MusteredOut)
        end.document = members.Text("document");
    end.backs = members.Number("backs", 0, kMostAsked);
    if (members.Has("sha256"))
        end.journal = members.Text("sha256");
    return end;
}

// The lines of a text as they come.
class TextLines {
  public:
    // A byte-order mark is no part of the first line.
    explicit TextLines(std::string_view text) : text_(text), next_(text.starts_with("\xEF\xBB\xBF") ? 3 : 0) {}
    bool AtEnd() const { return next_ >= text_.size(); }
    std::string_view Next() {
        const auto line = SplitFirst(text_.substr(next_), "\n").first;
        begin_ = next_;
        next_ = std::min(next_ + line.size() + 1, text_.size());
        return line;
    }
    std::size_t begin() const { return begin_; }  // of the line
    std::size_t next() const { return next_; }
    bool isCut() const { return !text_.ends_with('\n'); }

  private:
    std::string_view text_;
    std::size_t next_;
    std::size_t begin_ = 0;
};

constexpr std::size_t kMostLines = 200'000;  // of a life

// The digest of a journal up to a last line, without the digest that stands in it.
std::string DigestWithout(std::string_view before, std::string_view last, const std::string& digest) {
    auto line = std::string(last);
    const auto member = Concat(R"(,"sha256":")", digest, "\"");
    if (const auto place = line.find(member); place != std::string::npos)
        line.erase(place, member.size());
    return Sha256Text(Concat(before, line, "\n"));
}

// Takes a line: it is the tape's next, or its end.
void TakeLine(Tape& tape, std::string_view text) {
    Json object;
    try {
        object = Parsed(text);
        if (object.contains("end"))
            tape.end = ReadEnd(object, tape.start.version);
        else if (tape.lines.size() == kMostLines)
            throw Fault{Concat("at most ", kMostLines, " lines"), "another"};
        else
            tape.lines.push_back(ReadKnownLine(object));
    } catch (const Fault& fault) {
        tape.lines.emplace_back(
            OddLine{object.is_object() ? std::string(text) : std::string(), fault.expected, fault.found});
    }
}

bool EndsOddly(const Tape& tape) {
    return !tape.lines.empty() && std::holds_alternative<OddLine>(tape.lines.back());
}

void ReadLines(Journal& journal, TextLines& lines, std::string_view text) {
    auto& tape = journal.tape;
    while (!lines.AtEnd() && !tape.end && !EndsOddly(tape)) {
        const auto line = lines.Next();
        TakeLine(tape, line);
        if (EndsOddly(tape))
            break;
        journal.bytes = lines.next();
        if (!tape.end)
            journal.ends.push_back(journal.bytes);
        else if (tape.end->journal)
            journal.digest = DigestWithout(text.substr(0, lines.begin()), line, *tape.end->journal);
    }
    journal.goesOn = !lines.AtEnd();
}

// Whether all members of a request stand in a line.
bool Holds(const Json& line, const Json& request) {
    return std::ranges::all_of(request.items(), [&](const auto& member) {
        return line.contains(member.key()) && line[member.key()] == member.value();
    });
}

}  // namespace

Journal ReadJournal(std::string name, std::string_view text) {
    Journal journal;
    journal.name = std::move(name);
    TextLines lines(text);
    if (lines.AtEnd())
        throw JournalError(journal.name, 1, "another line of the journal", "the end of the file");
    try {
        journal.tape.start = ReadStart(Parsed(lines.Next()));
    } catch (const Fault& fault) {
        throw JournalError(journal.name, 1, fault.expected, fault.found);
    }
    journal.ends.push_back(journal.bytes = lines.next());
    journal.isCut = lines.isCut();
    ReadLines(journal, lines, text);
    if (journal.tape.end)
        journal.tape.backs = journal.tape.end->backs.value_or(0);
    return journal;
}

bool Journal::IsDamaged() const {
    return EndsOddly(tape) && (!isCut || goesOn);
}

void RefuseLine(const std::string& name, std::size_t place, const Line& held, const std::string& asked) {
    constexpr std::size_t kMostToldOfRequest = 300;
    constexpr std::size_t kMostToldOfLine = 80;
    std::string text;
    AppendLine(text, held);
    if (const auto* const odd = std::get_if<OddLine>(&held); odd != nullptr && !odd->expected.empty()) {
        const auto line = Json::parse(odd->text, nullptr, false);
        const auto request = Json::parse(asked, nullptr, false);
        if (!line.is_object() || (request.is_object() && Holds(line, request)))
            throw JournalError(name, JournalLine(place), odd->expected, odd->found);
    }
    throw Divergence(JournalLine(place), Concat(Printable(name, 300), ":", JournalLine(place), ": the journal holds ",
                                                Printable(text, kMostToldOfLine), ", the engine asked ",
                                                Printable(asked, kMostToldOfRequest)));
}

}  // namespace korvane::journal
