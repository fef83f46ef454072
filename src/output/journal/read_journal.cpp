#include "output/journal/read_journal.h"

#include <algorithm>
#include <utility>

#include "base/digest.h"
#include "base/encoding.h"
#include "base/text.h"
#include "output/journal/lines.h"
#include "output/journal/read_lines.h"

namespace korvane::journal {

namespace {

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
            tape.lines.push_back(ReadLine(object));
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

Divergence DivergenceAt(const std::string& name, std::size_t place, std::string_view held, std::string_view asked) {
    constexpr std::size_t kMostHeld = 80;
    constexpr std::size_t kMostOfAsked = 300;
    const int line = JournalLine(place);
    return {line, Concat(Printable(name, 300), ":", line, ": the journal holds ", Printable(held, kMostHeld),
                         ", the engine asked ", Printable(asked, kMostOfAsked))};
}

void RefuseLine(const std::string& name, std::size_t place, const Line& held, const std::string& asked) {
    if (const auto* const odd = std::get_if<OddLine>(&held); odd != nullptr && !odd->expected.empty()) {
        const auto line = Json::parse(odd->text, nullptr, false);
        const auto request = Json::parse(asked, nullptr, false);
        if (!line.is_object() || (request.is_object() && Holds(line, request)))
            throw JournalError(name, JournalLine(place), odd->expected, odd->found);
    }
    std::string text;
    AppendLine(text, held);
    throw DivergenceAt(name, place, text, asked);
}

}  // namespace korvane::journal
