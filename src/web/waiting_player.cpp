#include "web/waiting_player.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "character/player_texts.h"
#include "output/journal/lines.h"
#include "output/json_writer.h"
#include "output/question_texts.h"

namespace korvane::web {

namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void Refuse(const Json& answer) {
    throw UsageError("the answer " + answer.dump(-1, ' ', false, Json::error_handler_t::replace) +
                     " is none to this question");
}

// A whole number from `least` to `most`.
int NumberIn(const Json& answer, int least, int most) {
    if (!answer.is_number_integer() || answer < least || answer > most)
        Refuse(answer);
    return answer.get<int>();
}

template <typename Rows>
void WriteRows(JsonWriter& json, std::string_view key, const Rows& rows) {
    json.Key(key).TextArray(rows);
}

void Write(JsonWriter& json, const Session& /*session*/, const ChoiceQuestion& question) {
    json.Key("kind").Text("choose");
    json.Key("title").Text(question.title);
    WriteRows(json, "options", question.options);
    json.Key("focus").Number(question.focus);
}

void Write(JsonWriter& json, const Session& /*session*/, const ListQuestion& question) {
    json.Key("kind").Text("select");
    json.Key("title").Text(question.prompt);
    json.Key("maximum").Number(question.maximum);
    json.Key("minimum").Number(question.minimum);
    WriteRows(json, "items", question.items);
}

void Write(JsonWriter& json, const Session& /*session*/, const YesNoQuestion& question) {
    json.Key("kind").Text("ask");
    json.Key("title").Text(question.text);
    json.Key("yes").Truth(question.defaultYes);
}

void Write(JsonWriter& json, const Session& /*session*/, const TableQuestion& question) {
    json.Key("kind").Text("table");
    json.Key("title").Text(question.instruction);
    json.Key("columns").BeginArray();
    for (std::size_t i = 1; i < question.columns.size(); ++i) {
        const auto& column = question.columns.at(i);
        json.BeginObject();
        json.Key("caption").Text(Trim(column.caption));
        WriteRows(json, "rows", column.rows);
        json.Key("enabled").Truth(column.enabled);
        json.EndObject();
    }
    json.EndArray();
}

void Write(JsonWriter& json, const Session& /*session*/, const EndOfTermQuestion& question) {
    json.Key("kind").Text("end of term");
    json.Key("title").Text(kEndOfTermHeading);
    json.Key("buttons").TextArray(kEndOfTermCaptions);
    json.Key("scrap").Text(kScrapQuestion);
    json.Key("terms").Number(question.termsTotal);
    json.Key("options").TextArray(journal::TickedCaptions(question.options));
}

void Write(JsonWriter& json, const Session& session, const TransferQuestion& question) {
    json.Key("kind").Text("transfer");
    json.Key("title").Text(kTransferHeading);
    json.Key("notice").Text(kTransferNotice);
    json.Key("end").Text(kEndCareer);
    json.Key("cost").Text(CostOfLeavingText(session));
    json.Key("careers").BeginArray();
    for (const auto& career : question.careers) {
        json.BeginObject();
        json.Key("name").Text(career);
        json.Key("description").Text(question.descriptionOf ? question.descriptionOf(career) : "");
        json.Key("assignments").TextArray(*question.assignmentsOf(career));
        json.EndObject();
    }
    json.EndArray();
}

void Write(JsonWriter& json, const Session& session, const MusterQuestion& question) {
    json.Key("kind").Text("muster");
    json.Key("title").Text(MusterTitle(question.career, question.rolls));
    json.Key("buttons").TextArray(kMusterCaptions);
    json.Key("use").Text(kGamblerQuestion);
    json.Key("table").BeginArray();
    for (std::size_t i = 1; i < session.career.otherBenefit.size(); ++i) {
        json.BeginArray();
        json.Text(Concat("Cr", Trim(session.career.cashLine.at(i))));
        json.Text(Trim(session.career.otherBenefit.at(i)));
        json.EndArray();
    }
    json.EndArray();
    json.Key("modifiers").Text(BenefitModifiersText(session.character, question));
    json.Key("forfeit").Text(ForfeitText(question.rolls));
    json.Key("enabled").BeginArray();
    for (const auto button :
         {MusterButton::Cash, MusterButton::Material, MusterButton::ThreeCashRestMaterial, MusterButton::Done})
        json.Truth(question.Enabled(button));
    json.EndArray();
    json.Key("gambler").Truth(question.gamblerEnabled);
    WriteRows(json, "cash", question.cash);
    WriteRows(json, "benefits", question.benefits);
}

}  // namespace

Options OptionsIn(const Json& captions) {
    Options options;
    for (const auto& caption : captions) {
        const auto option = caption.is_string() ? OptionOfCaption(caption.get_ref<const std::string&>()) : std::nullopt;
        if (!option)
            Refuse(caption);
        options.Set(*option);
    }
    return options;
}

template <typename Question, typename Write>
const Json& WaitingPlayer::AnswerTo(const Question& question, const Write& write) {
    if (const auto* const answer = std::exchange(answer_, nullptr); answer != nullptr) {
        if (*answer == "scrap")
            throw CharacterScrapped();
        return *answer;
    }
    JsonWriter writer(question_);
    writer.BeginObject();
    write(writer, session_, question);
    writer.EndObject();
    alternatives_ = play::AlternativesOf(question);
    throw PlayerLeft();
}

int WaitingPlayer::Choose(const ChoiceQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    return NumberIn(answer, question.mayLeave ? 0 : 1, static_cast<int>(question.options.size()));
}

std::vector<int> WaitingPlayer::Select(const ListQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    if (!answer.is_array())
        Refuse(answer);
    std::vector<int> marked;
    for (const auto& number : answer)
        marked.push_back(
            NumberIn(number, marked.empty() ? 1 : marked.back() + 1, static_cast<int>(question.items.size())));
    const auto count = static_cast<int>(marked.size());
    if (count != 0 && (count < question.minimum || count > question.maximum))
        Refuse(answer);
    return marked;
}

bool WaitingPlayer::Ask(const YesNoQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    if (!answer.is_boolean())
        Refuse(answer);
    return answer.get<bool>();
}

void WaitingPlayer::Tell(const Notice& notice) {
    notices_.emplace_back(notice.text);
}

int WaitingPlayer::PickTable(const TableQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    const int column = NumberIn(answer, 1, static_cast<int>(question.columns.size()) - 1);
    if (!question.columns.at(static_cast<std::size_t>(column)).enabled)
        Refuse(answer);
    return column;
}

EndOfTermAnswer WaitingPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    if (!answer.is_object() || !answer.contains("choice") || !answer.contains("options"))
        Refuse(answer);
    return {static_cast<EndOfTermChoice>(NumberIn(answer["choice"], 1, 4)), OptionsIn(answer["options"])};
}

std::optional<TransferAnswer> WaitingPlayer::Transfer(const TransferQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    if (answer.is_null())
        return std::nullopt;
    if (!answer.is_object() || !answer.contains("career") || !answer.contains("assignment"))
        Refuse(answer);
    const auto is_in = [](const Names& names, const Json& name) {
        return name.is_string() && std::ranges::find(names, name.get_ref<const std::string&>()) != names.end();
    };
    const auto& career = answer["career"];
    if (!is_in(question.careers, career) ||
        !is_in(*question.assignmentsOf(career.get<std::string>()), answer["assignment"]))
        Refuse(answer);
    return TransferAnswer{career.get<std::string>(), answer["assignment"].get<std::string>()};
}

MusterPress WaitingPlayer::Muster(const MusterQuestion& question) {
    const auto& answer = AnswerTo(question, [](auto&... all) { Write(all...); });
    if (!answer.is_object() || !answer.contains("press"))
        Refuse(answer);
    const auto button = static_cast<MusterButton>(NumberIn(answer["press"], 0, 3));
    const bool gambler = answer.value("gambler", false);
    if (!question.Enabled(button) || (gambler && !question.gamblerEnabled))
        Refuse(answer);
    return {button, gambler};
}

}  // namespace korvane::web
