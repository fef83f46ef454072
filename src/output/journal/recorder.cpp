#include "output/journal/recorder.h"

namespace korvane::journal {

void Recorder::Write(const Json& line) {
    sink_(line.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Recorder::Begin(const Session& session) {
    Write(Header(session));
}

void Recorder::End(LifeEnd end) {
    Write({{"end", end == LifeEnd::MusteredOut ? kMusteredOut : kScrapped}});
}

void Recorder::EndInError(std::string_view kind, std::string_view message) {
    Write({{"end", kError}, {"kind", kind}, {"message", message}});
}

int Recorder::Roll(int count, int sides) {
    auto line = RollRequest(count, sides);
    const int result = dice_.Roll(count, sides);
    line["result"] = result;
    Write(line);
    return result;
}

int Recorder::Draw(int n) {
    auto line = DrawRequest(n);
    const int result = dice_.Draw(n);
    line["result"] = result;
    Write(line);
    return result;
}

int Recorder::Choose(const ChoiceQuestion& question) {
    auto line = ChooseRequest(question);
    const int picked = player_.Choose(question);
    line["picked"] = picked;
    Write(line);
    return picked;
}

std::vector<int> Recorder::Select(const ListQuestion& question) {
    auto line = SelectRequest(question);
    auto marked = player_.Select(question);
    line["marked"] = marked;
    Write(line);
    return marked;
}

bool Recorder::Ask(const YesNoQuestion& question) {
    auto line = AskRequest(question);
    const bool answer = player_.Ask(question);
    line["answer"] = answer ? "yes" : "no";
    Write(line);
    return answer;
}

void Recorder::Tell(const Notice& notice) {
    player_.Tell(notice);
    Write(TellRequest(notice));
}

int Recorder::PickTable(const TableQuestion& question) {
    auto line = TableRequest(question);
    const int picked = player_.PickTable(question);
    line["picked"] = picked;
    Write(line);
    return picked;
}

EndOfTermAnswer Recorder::EndOfTerm(const EndOfTermQuestion& question) {
    auto line = EndOfTermRequest(question);
    const auto answer = player_.EndOfTerm(question);
    line["answer"] = static_cast<int>(answer.choice);
    line["options"] = TickedCaptions(answer.options);
    Write(line);
    return answer;
}

std::optional<TransferAnswer> Recorder::Transfer(const TransferQuestion& question) {
    auto answer = player_.Transfer(question);
    Json line = {{kTransferKind, answer.has_value()}};
    if (answer) {
        line["career"] = answer->career;
        line["assignment"] = answer->assignment;
    }
    Write(line);
    return answer;
}

MusterPress Recorder::Muster(const MusterQuestion& question) {
    auto line = MusterRequest(question);
    const auto press = player_.Muster(question);
    line["press"] = kMusterCaptions.at(static_cast<std::size_t>(press.button));
    line["gambler"] = press.gambler;
    Write(line);
    return press;
}

}  // namespace korvane::journal
