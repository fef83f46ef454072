#include "play/odds.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "character/player_texts.h"
#include "character/seams_guard.h"
#include "output/journal/tape_deck.h"
#include "play/sensible_player.h"

namespace korvane::play {

namespace {

// The dice and the players of lives that might be. No life's own are made of these.
constexpr std::uint64_t kDiceSeed = 0x6D696768742062E5;
constexpr std::uint64_t kPlayerSeed = 0x74686F7567687473;

// Gives one answer, and is a player of sense from then on.
class AnsweringPlayer : public SensiblePlayer {
  public:
    AnsweringPlayer(const Session& session, RandomStream stream, int terms, const GivenAnswer& answer, Witness& witness)
        : SensiblePlayer(session, stream, terms), answer_(&answer), witness_(witness) {}

    int Choose(const ChoiceQuestion& question) override {
        const auto* const chosen = Take<ChosenOption>();
        return chosen != nullptr ? chosen->place : SensiblePlayer::Choose(question);
    }
    std::vector<int> Select(const ListQuestion& question) override {
        const auto* const item = Take<MarkedItem>();
        auto marked = SensiblePlayer::Select(question);
        if (item == nullptr || std::ranges::find(marked, item->place) != marked.end())
            return marked;
        if (static_cast<int>(marked.size()) >= question.maximum && !marked.empty())
            marked.pop_back();
        marked.push_back(item->place);
        std::ranges::sort(marked);
        return marked;
    }
    bool Ask(const YesNoQuestion& question) override {
        if (const auto* const answer = Take<YesOrNo>())
            return answer->yes;
        // Who is done with rolls left means it.
        return std::exchange(done_, false) || SensiblePlayer::Ask(question);
    }
    int PickTable(const TableQuestion& question) override {
        const auto* const picked = Take<PickedTable>();
        return picked != nullptr ? picked->column : SensiblePlayer::PickTable(question);
    }
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override {
        if (const auto* const answer = Take<EndOfTermAnswer>())
            return *answer;
        witness_.TermEnds();
        return SensiblePlayer::EndOfTerm(question);
    }
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override {
        const auto* const answer = Take<std::optional<TransferAnswer>>();
        return answer != nullptr ? *answer : SensiblePlayer::Transfer(question);
    }
    MusterPress Muster(const MusterQuestion& question) override {
        const auto* const press = Take<MusterPress>();
        if (press == nullptr)
            return SensiblePlayer::Muster(question);
        done_ = press->button == MusterButton::Done && question.rolls > 0;
        return *press;
    }

  private:
    // The answer, if it hasn't been given: the life begins to be another's here.
    template <typename Kind>
    const Kind* Take() {
        const auto* const answer = std::exchange(answer_, nullptr);
        if (answer == nullptr)
            return nullptr;
        witness_.Begin();
        return &std::get<Kind>(*answer);
    }

    const GivenAnswer* answer_;
    Witness& witness_;
    bool done_ = false;
};

template <typename Texts>
std::vector<Alternative> OneEach(const Texts& texts, GivenAnswer (*answer)(int place)) {
    std::vector<Alternative> alternatives;
    for (const auto& text : texts)
        alternatives.push_back({std::string(text), answer(static_cast<int>(alternatives.size()) + 1)});
    return alternatives;
}

}  // namespace

std::vector<Alternative> AlternativesOf(const ChoiceQuestion& question) {
    if (question.mayLeave)
        return {};
    return OneEach(question.options, [](int place) { return GivenAnswer(ChosenOption{place}); });
}

std::vector<Alternative> AlternativesOf(const ListQuestion& question) {
    return OneEach(question.items, [](int place) { return GivenAnswer(MarkedItem{place}); });
}

std::vector<Alternative> AlternativesOf(const YesNoQuestion& /*question*/) {
    return {{"Yes", YesOrNo{true}}, {"No", YesOrNo{false}}};
}

std::vector<Alternative> AlternativesOf(const TableQuestion& question) {
    std::vector<Alternative> alternatives;
    for (std::size_t i = 1; i < question.columns.size(); ++i)
        if (const auto& column = question.columns.at(i); column.enabled)
            alternatives.push_back({column.caption, PickedTable{static_cast<int>(i)}});
    return alternatives;
}

std::vector<Alternative> AlternativesOf(const EndOfTermQuestion& question) {
    std::vector<Alternative> alternatives;
    for (const auto choice : {EndOfTermChoice::ReEnlist, EndOfTermChoice::Transfer, EndOfTermChoice::MusterOut})
        alternatives.push_back({std::string(kEndOfTermCaptions.at(static_cast<std::size_t>(choice) - 1)),
                                EndOfTermAnswer{choice, question.options}});
    return alternatives;
}

std::vector<Alternative> AlternativesOf(const TransferQuestion& question) {
    std::vector<Alternative> alternatives;
    for (const auto& career : question.careers)
        for (const auto& assignment : *question.assignmentsOf(career))
            alternatives.push_back(
                {Concat(career, " (", assignment, ")"), std::optional(TransferAnswer{career, assignment})});
    alternatives.push_back({std::string(kEndCareer), std::optional<TransferAnswer>()});
    return alternatives;
}

std::vector<Alternative> AlternativesOf(const MusterQuestion& question) {
    std::vector<Alternative> alternatives;
    for (std::size_t i = 0; i < kMusterCaptions.size(); ++i)
        if (const auto button = static_cast<MusterButton>(i); question.Enabled(button))
            alternatives.push_back({std::string(kMusterCaptions.at(i)), MusterPress{button, question.gamblerEnabled}});
    return alternatives;
}

OpenQuestion QuestionIn(const Session& session, const journal::Tape& tape, std::vector<Alternative> alternatives) {
    constexpr int kUsual = 4;
    return {tape, std::move(alternatives), std::max<int>(kUsual, session.character.TermsTotal), session.Automatic()};
}

Odds::Odds(Session& session, OpenQuestion question) : session_(session), question_(std::move(question)) {
    question_.tape.end.reset();
    for (const auto& alternative : question_.alternatives)
        figures_.captions.push_back(alternative.caption);
    figures_.outlooks.resize(question_.alternatives.size());
    figures_.terms = question_.terms;
    figures_.automatic = question_.automatic;
}

void Odds::LiveUpTo(std::uint64_t lives, const std::function<bool()>& stops) {
    std::vector<std::optional<Prospect>> prospects(figures_.outlooks.size());
    for (; figures_.lives < lives; ++figures_.lives) {
        for (std::size_t i = 0; i < prospects.size(); ++i) {
            if (stops && stops())
                return;
            prospects[i] = LiveOnce(i, figures_.lives + 1);
        }
        Add(prospects);
    }
}

// The others can be lived.
void Odds::NoteFault(std::size_t alternative, const LifeOutcome& outcome) {
    figures_.outlooks[alternative].fault = outcome.error;
    if (std::ranges::none_of(figures_.outlooks, [](const Outlook& each) { return each.fault.empty(); }))
        std::rethrow_exception(outcome.cause);
}

// Nothing for a life that an error of the rules ends.
std::optional<Prospect> Odds::LiveOnce(std::size_t alternative, std::uint64_t number) {
    if (!figures_.outlooks[alternative].fault.empty())
        return std::nullopt;
    const SeamsGuard guard(session_.seams);
    const auto recorded = question_.tape.lines.size();
    Witness witness(session_);
    SeededDice seeded(kDiceSeed, number);
    WitnessedDice dice(seeded, witness);
    AnsweringPlayer player(session_, RandomStream(RandomStream::Mix(kPlayerSeed) + RandomStream::Mix(number)),
                           question_.terms, question_.alternatives[alternative].answer, witness);
    session_.seams.display = &witness;
    SelectStartOf(session_, question_.tape.start);
    journal::TapeDeck deck(session_, question_.tape, &dice, &player, "the life");
    session_.seams.observer = &witness;
    Insert(deck, session_);
    deck.NoteSelection();
    const auto outcome = LiveOut(session_);
    question_.tape.lines.resize(recorded, journal::RollLine{});
    if (outcome.endedInFileError()) {
        NoteFault(alternative, outcome);
        return std::nullopt;
    }
    if (!outcome.end)
        return std::nullopt;
    auto& roll = figures_.outlooks[alternative].roll;
    if (number == 1)
        roll = witness.roll();
    else if (!witness.roll().empty() && roll != witness.roll())
        roll.clear();
    return witness.End();
}

void Odds::Add(const std::vector<std::optional<Prospect>>& prospects) {
    for (std::size_t figure = 0; figure < kFigures; ++figure) {
        double sum = 0;
        int count = 0;
        for (const auto& prospect : prospects)
            if (prospect && prospect->at(figure)) {
                sum += *prospect->at(figure);
                ++count;
            }
        for (std::size_t i = 0; i < prospects.size(); ++i)
            if (prospects[i] && prospects[i]->at(figure)) {
                const double value = *prospects[i]->at(figure);
                figures_.outlooks[i].figures.at(figure).Add(value);
                figures_.outlooks[i].leads.at(figure).Add(value - sum / count);
            }
    }
}

}  // namespace korvane::play
