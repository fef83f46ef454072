#include "support/scripted_player.h"

#include <gtest/gtest.h>

namespace korvane::test {

namespace {

std::string Joined(std::span<const std::string_view> texts) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i)
        joined += std::string(i == 0 ? "" : "/") + std::string(texts[i]);
    return joined;
}

}  // namespace

ScriptedPlayer::~ScriptedPlayer() {
    ExpectDone();
}

void ScriptedPlayer::ExpectDone() {
    for (const auto& step : script_)
        ADD_FAILURE() << "expected but not asked: " << step.kind << " \"" << step.text << "\"";
    script_.clear();
}

ScriptedPlayer& ScriptedPlayer::Expect(Step step) {
    script_.push_back(std::move(step));
    return *this;
}

ScriptedPlayer& ScriptedPlayer::ExpectChoice(const std::string& title, const std::string& options, int pick) {
    return Expect({"choose", title, options, pick, {}, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectList(const std::string& prompt, const std::string& items,
                                           const std::vector<int>& marks) {
    return Expect({"select", prompt, items, 0, marks, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectListLimits(const std::string& prompt, int maximum, int minimum,
                                                 const std::vector<int>& marks) {
    return Expect({"select",
                   prompt + " " + std::to_string(minimum) + ".." + std::to_string(maximum),
                   "*",
                   1,
                   marks,
                   false,
                   {},
                   {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectAsk(const std::string& text, bool answer) {
    return Expect({"ask", text, "*", 0, {}, answer, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectTell(const std::string& text) {
    return Expect({"tell", text, "*", 0, {}, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectTable(int column) {
    return Expect({"table", "", "*", column, {}, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectEndOfTerm(EndOfTermChoice choice) {
    return Expect({"end of term", "", "*", static_cast<int>(choice), {}, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectEndOfTerm(EndOfTermChoice choice, const Options& options) {
    return Expect({"end of term", "", "*", static_cast<int>(choice), {}, false, options, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectTransfer(const std::string& career, const std::string& assignment) {
    return Expect({"transfer", "", "*", 0, {}, true, {}, {career, assignment}});
}

ScriptedPlayer& ScriptedPlayer::ExpectEndCareer() {
    return Expect({"transfer", "", "*", 0, {}, false, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectMuster(MusterButton button, bool gambler) {
    return Expect({"muster", "", "*", static_cast<int>(button), {}, gambler, {}, {}});
}

ScriptedPlayer& ScriptedPlayer::ExpectScrap() {
    return Expect({"scrap", "", "*", 0, {}, false, {}, {}});
}

ScriptedPlayer::Step ScriptedPlayer::Next(const std::string& kind, const std::string& text, const std::string& items) {
    if (script_.empty()) {
        ADD_FAILURE() << "asked but not expected: " << kind << " \"" << text << "\" " << items;
        throw CharacterScrapped();
    }
    auto step = script_.front();
    script_.pop_front();
    if (step.kind == "scrap")
        throw CharacterScrapped();
    EXPECT_EQ(step.kind, kind) << "asked: \"" << text << "\" " << items;
    EXPECT_EQ(step.text, text);
    EXPECT_TRUE(step.items == "*" || step.items == items) << "expected: " << step.items << "\nasked:    " << items;
    if (step.kind != kind)
        throw CharacterScrapped();
    return step;
}

int ScriptedPlayer::Choose(const ChoiceQuestion& question) {
    lastFocus = question.focus;
    return Next("choose", std::string(question.title), Joined(question.options)).number;
}

std::vector<int> ScriptedPlayer::Select(const ListQuestion& question) {
    auto prompt = std::string(question.prompt);
    if (!script_.empty() && script_.front().kind == "select" && script_.front().number == 1)
        prompt += " " + std::to_string(question.minimum) + ".." + std::to_string(question.maximum);
    return Next("select", prompt, Joined(question.items)).numbers;
}

bool ScriptedPlayer::Ask(const YesNoQuestion& question) {
    lastAsk = question;
    lastAsk.text = {};
    return Next("ask", std::string(question.text), "").yes;
}

void ScriptedPlayer::Tell(const Notice& notice) {
    lastNoticeIcon = notice.icon;
    Next("tell", std::string(notice.text), "");
}

int ScriptedPlayer::PickTable(const TableQuestion& question) {
    lastTable = question;
    lastTableRows.clear();
    for (std::size_t i = 1; i < question.columns.size(); ++i)
        lastTableRows.push_back(Joined(question.columns.at(i).rows));
    return Next("table", "", "").number;
}

EndOfTermAnswer ScriptedPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    const auto step = Next("end of term", "", "");
    return {static_cast<EndOfTermChoice>(step.number), step.options.value_or(question.options)};
}

std::optional<TransferAnswer> ScriptedPlayer::Transfer(const TransferQuestion& /*question*/) {
    const auto step = Next("transfer", "", "");
    if (!step.yes)
        return std::nullopt;
    return step.transfer;
}

MusterPress ScriptedPlayer::Muster(const MusterQuestion& question) {
    lastMuster = question;
    const auto step = Next("muster", "", "");
    return {static_cast<MusterButton>(step.number), step.yes};
}

}  // namespace korvane::test
