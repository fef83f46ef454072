#include "output/journal/requests.h"

namespace korvane::journal {

namespace {

Json Texts(std::span<const std::string_view> texts) {
    Json list = Json::array();
    for (const auto text : texts)
        list.push_back(text);
    return list;
}

}  // namespace

Json Header(const Session& session) {
    const auto& selection = session.selection;
    return {{"journal", 1},
            {"race", selection.race},
            {"career", selection.career},
            {"assignment", selection.assignment},
            {"method", CaptionOf(session.method)},
            {"options", TickedCaptions(session.options)}};
}

Json RollRequest(int count, int sides) {
    return {{"roll", {count, sides}}};
}

Json DrawRequest(int n) {
    return {{"draw", n}};
}

Json ChooseRequest(const ChoiceQuestion& question) {
    return {{"choose", question.title}, {"options", Texts(question.options)}};
}

Json SelectRequest(const ListQuestion& question) {
    return {{"select", question.prompt},
            {"maximum", question.maximum},
            {"minimum", question.minimum},
            {"items", Texts(question.items)}};
}

Json AskRequest(const YesNoQuestion& question) {
    return {{"ask", question.text}};
}

Json TellRequest(const Notice& notice) {
    return {{"tell", notice.text}};
}

Json TableRequest(const TableQuestion& question) {
    Json enabled = Json::array();
    for (std::size_t i = 1; i < question.columns.size(); ++i)
        if (question.columns.at(i).enabled)
            enabled.push_back(i);
    return {{"table", enabled}};
}

Json EndOfTermRequest(const EndOfTermQuestion& question) {
    return {{"end of term", question.termsTotal}};
}

Json MusterRequest(const MusterQuestion& question) {
    return {{"muster", question.rolls}};
}

std::vector<std::string_view> TickedCaptions(const Options& options) {
    std::vector<std::string_view> captions;
    for (std::size_t i = 0; i < kOptionCaptions.size(); ++i)
        if (options[static_cast<Option>(i)])
            captions.push_back(kOptionCaptions.at(i));
    return captions;
}

}  // namespace korvane::journal
