#include "output/journal/lines.h"

#include <type_traits>

#include "base/digest.h"
#include "character/player_texts.h"
#include "output/json_writer.h"

namespace korvane::journal {

namespace {

void Write(JsonWriter& json, const RollRequest& request) {
    json.Key("roll").BeginArray();
    json.Number(request.count);
    json.Number(request.sides);
    json.EndArray();
}
void Write(JsonWriter& json, const DrawRequest& request) {
    json.Key("draw").Number(request.n);
}
void Write(JsonWriter& json, const ChooseRequest& request) {
    json.Key("choose").Text(request.title);
    json.Key("options").TextArray(request.options);
}
void Write(JsonWriter& json, const SelectRequest& request) {
    json.Key("select").Text(request.prompt);
    json.Key("maximum").Number(request.maximum);
    json.Key("minimum").Number(request.minimum);
    json.Key("items").TextArray(request.items);
}
void Write(JsonWriter& json, const AskRequest& request) {
    json.Key("ask").Text(request.text);
}
void Write(JsonWriter& json, const TellRequest& request) {
    json.Key("tell").Text(request.text);
}
void Write(JsonWriter& json, const TableRequest& request) {
    json.Key("table").NumberArray(request.enabled);
}
void Write(JsonWriter& json, const EndOfTermRequest& request) {
    json.Key("end of term").Number(request.termsTotal);
}
// Its value says whether the player accepted, so it is the answer's.
void Write(JsonWriter& /*json*/, const TransferRequest& /*request*/) {}
void Write(JsonWriter& json, const MusterRequest& request) {
    json.Key("muster").Number(request.rolls);
}
void Write(JsonWriter& json, const FileRequest& request) {
    json.Key("file").Text(request.name);
}

void WriteAnswer(JsonWriter& json, const RollLine& line) {
    json.Key("result").Number(line.answer);
}
void WriteAnswer(JsonWriter& json, const DrawLine& line) {
    json.Key("result").Number(line.answer);
}
void WriteAnswer(JsonWriter& json, const ChooseLine& line) {
    json.Key("picked").Number(line.answer);
}
void WriteAnswer(JsonWriter& json, const SelectLine& line) {
    json.Key("marked").NumberArray(line.answer);
}
void WriteAnswer(JsonWriter& json, const AskLine& line) {
    json.Key("answer").Text(line.answer ? "yes" : "no");
}
void WriteAnswer(JsonWriter& /*json*/, const TellLine& /*line*/) {}
void WriteAnswer(JsonWriter& json, const TableLine& line) {
    json.Key("picked").Number(line.answer);
}
void WriteAnswer(JsonWriter& json, const EndOfTermLine& line) {
    json.Key("answer").Number(static_cast<int>(line.answer.choice));
    json.Key("options").TextArray(TickedCaptions(line.answer.options));
}
void WriteAnswer(JsonWriter& json, const TransferLine& line) {
    json.Key("transfer").Truth(line.answer.has_value());
    if (!line.answer)
        return;
    json.Key("career").Text(line.answer->career);
    json.Key("assignment").Text(line.answer->assignment);
}
void WriteAnswer(JsonWriter& json, const MusterLine& line) {
    json.Key("press").Text(kMusterCaptions.at(static_cast<std::size_t>(line.answer.button)));
    json.Key("gambler").Truth(line.answer.gambler);
}
void WriteAnswer(JsonWriter& json, const FileLine& line) {
    json.Key("sha256").Text(line.answer);
}

void WriteOrigin(JsonWriter& json, const Origin& origin) {
    if (!origin.seed) {
        json.Text("clock");
        return;
    }
    json.BeginObject();
    json.Key("seed").Given(*origin.seed);
    json.Key("number").Unsigned(origin.number);
    json.EndObject();
}

// Calls a function with the line as what it is; not with one that is odd.
template <typename Action>
void ForEntry(const Line& line, const Action& action) {
    std::visit(
        [&](const auto& entry) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(entry)>, OddLine>)
                action(entry);
        },
        line);
}

std::string TextToTheEnd(const Tape& tape) {
    std::string text;
    AppendStart(text, tape.start);
    text += '\n';
    for (const auto& line : tape.lines) {
        AppendLine(text, line);
        text += '\n';
    }
    return text;
}

}  // namespace

std::string JournalDigest(const Tape& tape, End end) {
    end.journal.reset();
    auto text = TextToTheEnd(tape);
    AppendEnd(text, end);
    text += '\n';
    return Sha256Text(text);
}

void AppendStart(std::string& out, const Start& start) {
    JsonWriter json(out);
    json.BeginObject();
    json.Key("journal").Number(start.version);
    if (start.version > 1)
        json.Key("program").Text(start.program);
    json.Key("race").Text(start.race);
    json.Key("career").Text(start.career);
    json.Key("assignment").Text(start.assignment);
    json.Key("method").Text(CaptionOf(start.method));
    json.Key("options").TextArray(TickedCaptions(start.options));
    if (start.dice) {
        json.Key("dice");
        WriteOrigin(json, *start.dice);
    }
    json.EndObject();
}

void AppendLine(std::string& out, const Line& line) {
    if (const auto* const odd = std::get_if<OddLine>(&line)) {
        out += odd->text;
        return;
    }
    JsonWriter json(out);
    json.BeginObject();
    ForEntry(line, [&](const auto& entry) {
        Write(json, entry.request);
        WriteAnswer(json, entry);
    });
    json.EndObject();
}

void AppendEnd(std::string& out, const End& end) {
    JsonWriter json(out);
    json.BeginObject();
    switch (end.kind) {
        case EndKind::MusteredOut:
            json.Key("end").Text(kMusteredOut);
            break;
        case EndKind::Scrapped:
            json.Key("end").Text(kScrapped);
            break;
        case EndKind::Error:
            json.Key("end").Text(kError);
            json.Key("kind").Text(end.errorKind);
            json.Key("message").Text(end.message);
            break;
    }
    if (end.document)
        json.Key("document").Text(*end.document);
    if (end.backs)
        json.Key("backs").Number(*end.backs);
    if (end.journal)
        json.Key("sha256").Text(*end.journal);
    json.EndObject();
}

std::string RequestText(const Line& line) {
    if (std::holds_alternative<TransferLine>(line))
        return R"({"transfer"})";
    std::string text;
    JsonWriter json(text);
    json.BeginObject();
    ForEntry(line, [&](const auto& entry) { Write(json, entry.request); });
    json.EndObject();
    return text;
}

std::string JournalText(const Tape& tape) {
    auto text = TextToTheEnd(tape);
    if (tape.end) {
        AppendEnd(text, *tape.end);
        text += '\n';
    }
    return text;
}

std::vector<std::string_view> TickedCaptions(const Options& options) {
    std::vector<std::string_view> captions;
    for (std::size_t i = 0; i < kOptionCaptions.size(); ++i)
        if (options[static_cast<Option>(i)])
            captions.push_back(kOptionCaptions.at(i));
    return captions;
}

}  // namespace korvane::journal
