#include "output/journal/read_lines.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "character/player_texts.h"
#include "output/journal/lines.h"

namespace korvane::journal {

namespace {

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

}  // namespace

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

Line ReadLine(const Json& object) {
    const Members members(object);
    for (const auto& kind : kKinds)
        if (members.Has(kind.key))
            return kind.read(members);
    return OddLine{object.dump(-1, ' ', false, Json::error_handler_t::replace), {}, {}};
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

}  // namespace korvane::journal
