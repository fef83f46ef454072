// What follows from each answer to a question: found by living on from it, many times.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "character/KVNDeclare.h"
#include "output/journal/tape.h"
#include "play/estimate.h"
#include "play/life.h"
#include "play/prospect.h"

namespace korvane::play {

// The answers to the questions of a player.
struct ChosenOption {
    int place = 1;
};
// The item, and beside it those that a player of sense marks.
struct MarkedItem {
    int place = 1;
};
struct YesOrNo {
    bool yes = true;
};
struct PickedTable {
    int column = 1;
};
using GivenAnswer = std::variant<ChosenOption, MarkedItem, YesOrNo, PickedTable, EndOfTermAnswer,
                                 std::optional<TransferAnswer>, MusterPress>;
struct Alternative {
    std::string caption;
    GivenAnswer answer;
};

// The answers that a question may be given; none for one that is none of the life's. Nobody asks for the odds of
// scrapping a character.
std::vector<Alternative> AlternativesOf(const ChoiceQuestion& question);
std::vector<Alternative> AlternativesOf(const ListQuestion& question);
std::vector<Alternative> AlternativesOf(const YesNoQuestion& question);
std::vector<Alternative> AlternativesOf(const TableQuestion& question);
std::vector<Alternative> AlternativesOf(const EndOfTermQuestion& question);
std::vector<Alternative> AlternativesOf(const TransferQuestion& question);
std::vector<Alternative> AlternativesOf(const MusterQuestion& question);

// What there is to say of one alternative.
struct Outlook {
    std::array<Sample, kFigures> figures;
    // How much better than the mean of the alternatives, in lives whose dice fall alike.
    std::array<Sample, kFigures> leads;

    // What the roll that follows at once is for; empty where that isn't the same in all lives.
    std::string roll;
    // Why it can't be lived, by the rule files; empty where it can.
    std::string fault;

    const Sample& At(Figure figure) const { return figures.at(static_cast<std::size_t>(figure)); }
    const Sample& LeadAt(Figure figure) const { return leads.at(static_cast<std::size_t>(figure)); }
};

// What was found of a question.
struct OddsFigures {
    std::vector<std::string> captions;  // of the alternatives
    std::vector<Outlook> outlooks;      // the same in order
    std::uint64_t lives = 0;            // of each
    int terms = 0;                      // of service
    bool automatic = false;             // chance decides what follows, not a player of sense
};

// A question that a life has come to.
struct OpenQuestion {
    journal::Tape tape;  // up to the question
    std::vector<Alternative> alternatives;
    int terms = 4;           // of service, after which the player of sense musters out
    bool automatic = false;  // whether the life is lived by automatic generation
};
// For the question that a life is asked now: its tape, and the terms that leave it the next one.
OpenQuestion QuestionIn(const Session& session, const journal::Tape& tape, std::vector<Alternative> alternatives);

class Odds {
  public:
    // The session is one of its own, on the life's rules, and lives nothing else.
    Odds(Session& session, OpenQuestion question);

    // Lives more lives of each alternative, until there are so many or `stops` says so between two. The same dice fall
    // for each alternative, and none of the life's own do. Throws FileError where no alternative can be lived, and
    // journal::Divergence where the rules have changed under the tape.
    void LiveUpTo(std::uint64_t lives, const std::function<bool()>& stops = {});

    const OddsFigures& figures() const { return figures_; }

  private:
    void NoteFault(std::size_t alternative, const LifeOutcome& outcome);
    std::optional<Prospect> LiveOnce(std::size_t alternative, std::uint64_t number);
    void Add(const std::vector<std::optional<Prospect>>& prospects);

    Session& session_;
    OpenQuestion question_;
    OddsFigures figures_;
};

}  // namespace korvane::play
