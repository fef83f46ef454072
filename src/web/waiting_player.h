// A player who isn't there: each request from the page brings one answer.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "play/odds.h"

namespace korvane::web {

// The boxes that a list of captions ticks. Throws UsageError for one that there isn't.
Options OptionsIn(const nlohmann::ordered_json& captions);

// Gives the one answer that it has to the first question, and leaves the life at the next, which it keeps.
class WaitingPlayer : public Player {
  public:
    // The life is the session's. `answer` is nullptr for none.
    WaitingPlayer(const Session& session, const nlohmann::ordered_json* answer) : session_(session), answer_(answer) {}

    // The question that waits, as a JSON object; empty for none.
    const std::string& question() const { return question_; }
    // The answers that it may be given.
    const std::vector<play::Alternative>& alternatives() const { return alternatives_; }
    // What was told since the answer.
    const std::vector<std::string>& notices() const { return notices_; }

    // Each throws PlayerLeft where there is no answer any more, and UsageError for one that can't be; with "scrap" for
    // an answer, CharacterScrapped.
    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    // The answer to a question, which waits without one.
    template <typename Question, typename Write>
    const nlohmann::ordered_json& AnswerTo(const Question& question, const Write& write);

    const Session& session_;
    const nlohmann::ordered_json* answer_;
    std::string question_;
    std::vector<play::Alternative> alternatives_;
    std::vector<std::string> notices_;
};

}  // namespace korvane::web
