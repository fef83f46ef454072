#include "play/recorded_life.h"

#include <algorithm>
#include <utility>

#include "play/other_life.h"

namespace korvane::play {

namespace {

// True as long as it lives.
class WhileLiving {
  public:
    explicit WhileLiving(bool& living) : living_(living) { living_ = true; }
    ~WhileLiving() { living_ = false; }
    WhileLiving(const WhileLiving&) = delete;
    WhileLiving& operator=(const WhileLiving&) = delete;

  private:
    bool& living_;
};

}  // namespace

RecordedLife::RecordedLife(Session& session, Dice& dice, Player& player)
    : session_(session), seams_(session.seams), dice_(&dice), deck_(session, tape_, &dice, &player) {
    deck_.recorded = [this](const journal::Line& line) { NoteRecorded(line); };
    deck_.playedOut = [this] {
        if (cameBack)
            cameBack();
    };
    Insert(deck_, session);
    deck_.observer = this;
}

void RecordedLife::UseDice(Dice& dice) {
    dice_ = &dice;
    deck_.UseDice(dice);
}

void RecordedLife::UseSeed(const Seed& seed) {
    seed_ = seed;
    number_ = 0;
}

void RecordedLife::CharacterBegins() {
    if (living_)
        return;
    tape_ = {};
    undone_.clear();
    session_.hasStepsBetween = true;
    deck_.Rewind();
    deck_.CompareWith(nullptr);
    ++number_;
    tape_.start.dice = Origin{seed_, seed_ ? number_ : 1};
    if (!seed_)
        return;
    deck_.UseDice(seeded_.emplace(seed_->value(), number_));
}

void RecordedLife::CharacterStarted() {
    if (!living_)
        opening_ = tape_.lines;
}

void RecordedLife::CheckRolled(const RolledCheck& rolled) {
    if (living_ && checkRolled)
        checkRolled(rolled);
}

// The opening was recorded before it was known what is selected at the start.
void RecordedLife::BeginTape() {
    tape_.lines.clear();
    deck_.CallIt({});
    tape_.start = StartOf(session_, tape_.start.dice.value_or(Origin{}));
    deck_.Rewind();
    deck_.NoteSelection();
    std::ranges::copy(opening_, std::back_inserter(tape_.lines));
    deck_.FastForward();
    if (keeper != nullptr)
        keeper->Begun(tape_);
}

void RecordedLife::BeginAgain() {
    session_.selection = before_->selection;
    session_.race = before_->race;
    session_.career = before_->career;
    session_.assignment = before_->assignment;
    session_.method = before_->method;
    session_.options = before_->options;
    session_.hasStepsBetween = tape_.start.version > 1;
    session_.choice = {};
    session_.musterResults = {};
    deck_.Rewind();
    if (const auto& dice = tape_.start.dice; dice && dice->seed) {
        deck_.UseDice(seeded_.emplace(dice->seed->value(), dice->number));
        deck_.CompareWith(&*seeded_);
    } else {
        deck_.UseDice(*dice_);
        deck_.CompareWith(nullptr);
    }
    deck_.NoteSelection();
    StartNewCharacter(session_);
}

LifeOutcome RecordedLife::Live(const Finished& finished) {
    const WhileLiving living(living_);
    ended_.reset();
    BeginTape();
    return LiveOn(finished, false);
}

LifeOutcome RecordedLife::GoOn(journal::Journal journal, const Finished& finished) {
    const WhileLiving living(living_);
    ended_.reset();
    undone_.clear();
    tape_ = std::move(journal.tape);
    deck_.CallIt(journal.name);
    if (!tape_.lines.empty() && std::holds_alternative<journal::OddLine>(tape_.lines.back()))
        tape_.lines.pop_back();
    SelectStartOf(session_, tape_.start);
    return LiveOn(finished, true);
}

LifeOutcome RecordedLife::LiveOther(journal::Tape tape, const Finished& finished) {
    if (keeper != nullptr)
        keeper->Begun(tape);
    journal::Journal journal;
    journal.tape = std::move(tape);
    return GoOn(std::move(journal), finished);
}

bool RecordedLife::RollHomeWorldAnew() {
    if (!play::RollHomeWorldAnew(session_, opening_, *dice_))
        return false;
    tape_.start.dice = Origin{};
    return true;
}

LifeOutcome RecordedLife::LiveOn(const Finished& finished, bool again) {
    before_ = Before{session_.selection,  session_.race,   session_.career,
                     session_.assignment, session_.method, session_.options};
    for (;; again = true) {
        std::optional<journal::Divergence> divergence;
        try {
            if (auto outcome = LiveOnce(finished, again))
                return *outcome;
        } catch (const WentBack& back) {
            GoBackTo(back.moment);
        } catch (const WentForward&) {
            GoForward();
        } catch (const journal::Divergence& met) {
            divergence = met;
        }
        if (!divergence)
            continue;
        if (!goesOn || !goesOn(*divergence))
            throw *divergence;
        undone_.clear();
        CutTo(deck_.position());
    }
}

// From the beginning, or from where the life stands, to the end; nothing when the player goes back out of the end.
std::optional<LifeOutcome> RecordedLife::LiveOnce(const Finished& finished, bool again) {
    auto outcome = LiveOut(session_, [&](Session&) {
        if (again)
            BeginAgain();
    });
    const bool was_ended = End(outcome);
    if (outcome.finished() && finished && finished() && MayGoBack()) {
        GoBackTo(MomentCount() - 1);
        return std::nullopt;
    }
    // A character is shown before files are written.
    if (!was_ended && keeper != nullptr)
        keeper->Ended(*tape_.end);
    ended_ = tape_;
    return outcome;
}

bool RecordedLife::End(const LifeOutcome& outcome) {
    auto end = EndOf(session_, tape_, outcome);
    if (tape_.end && tape_.end->kind == end.kind && tape_.end->document == end.document)
        return true;
    if (tape_.end)
        CutTo(tape_.lines.size());
    tape_.end = std::move(end);
    return false;
}

void RecordedLife::CutTo(std::size_t lines) {
    tape_.lines.resize(lines, journal::RollLine{});
    tape_.end.reset();
    if (keeper != nullptr)
        keeper->CutTo(lines);
}

void RecordedLife::GoBackTo(std::size_t moment) {
    const auto& answered = deck_.answered();
    auto until = tape_.lines.size();
    for (std::size_t i = answered.size(); i-- > moment;) {
        const auto from = answered[i].line;
        undone_.emplace_back(tape_.lines.begin() + static_cast<std::ptrdiff_t>(from),
                             tape_.lines.begin() + static_cast<std::ptrdiff_t>(until));
        until = from;
    }
    ++tape_.backs;
    CutTo(until);
}

void RecordedLife::GoForward() {
    if (undone_.empty())
        return;
    auto lines = std::move(undone_.back());
    undone_.pop_back();
    for (auto& line : lines) {
        tape_.lines.push_back(std::move(line));
        if (keeper != nullptr)
            keeper->Recorded(tape_.lines.back());
    }
}

void RecordedLife::NoteRecorded(const journal::Line& line) {
    if (journal::IsQuestion(line))
        undone_.clear();
    if (!living_)
        return;
    if (keeper != nullptr)
        keeper->Recorded(line);
    if (recorded)
        recorded(line);
}

}  // namespace korvane::play
