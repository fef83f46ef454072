#include "desktop/generation_controller.h"

#include <exception>
#include <utility>

#include "base/text.h"
#include "character/characteristics.h"
#include "character/summary.h"
#include "data/known_names.h"
#include "engine/selection.h"
#include "output/summary_texts.h"
#include "play/other_life.h"

namespace korvane {

GenerationController::GenerationController(Session& session, Dice& dice, Player& player)
    : session_(session), life_(session, dice, player) {
    // What was lived again is to be seen whole.
    life_.cameBack = [this] { ChangeAll(); };
}

bool GenerationController::mayStart() const {
    const auto& selection = session_.selection;
    return state_ != State::Running && !selection.career.empty() && !selection.assignment.empty();
}

GenerationController::Changes GenerationController::TakeChanges() {
    return std::exchange(changes_, {});
}

void GenerationController::ChangeAll() {
    changes_ = {true, true, true, true, true, true};
}

void GenerationController::Enter(State state) {
    state_ = state;
    changes_.state = true;
}

void GenerationController::Load() {
    ListRaces(session_);
    ChangeAll();
}

void GenerationController::SelectRace(const std::string& race) {
    LoadRace(session_, race);
    if (!session_.selection.careers->empty())
        LeaveFailure();
}

void GenerationController::SelectCareer(const std::string& career) {
    LoadCareer(session_, session_.selection.race, career);
}

void GenerationController::SelectAssignment(const std::string& assignment) {
    LoadAssignment(session_, session_.selection.race, session_.selection.career, assignment);
}

void GenerationController::Roll(RollingMethod method) {
    session_.method = method;
    StartNewCharacter(session_);
    LeaveFailure();
}

void GenerationController::LeaveFailure() {
    if (state_ != State::Failed)
        return;
    Enter(State::Idle);
    changes_.history = changes_.skills = true;  // those of the life that failed are gone
}

void GenerationController::ScrapAndRestart() {
    ended_.reset();
    Enter(State::Idle);
    changes_.history = changes_.skills = true;
    session_.character.Clear();
    ShowSummary(session_);
    StartNewCharacter(session_);
}

void GenerationController::SetOptions(const Options& options) {
    session_.options = options;
    changes_.options = changes_.skills = true;  // one of them orders the skills
}

LifeEnd GenerationController::StartCareer(const play::RecordedLife::Finished& finished) {
    // What an error left was kept to be read; it can't live on.
    if (state_ == State::Failed)
        StartNewCharacter(session_);
    return Run([&] { return life_.Live(finished); });
}

LifeEnd GenerationController::GoOn(journal::Journal journal, const play::RecordedLife::Finished& finished) {
    ChangeAll();
    return Run([&] { return life_.GoOn(std::move(journal), finished); });
}

LifeEnd GenerationController::LiveOther(journal::Tape tape, const play::RecordedLife::Finished& finished) {
    ChangeAll();
    return Run([&] { return life_.LiveOther(std::move(tape), finished); });
}

bool GenerationController::RollHomeWorldAnew() {
    changes_.summary = true;
    return life_.RollHomeWorldAnew();
}

bool GenerationController::RollEndedHomeWorldAnew() {
    Display nobody;
    ClockDice dice;
    Session other(DataFolder(session_.data.location()), {nullptr, nullptr, &nobody});
    auto tape = play::WithAnotherHomeWorld(other, *life_.ended(), dice);
    if (!tape)
        return false;
    ended_->record.HomeWorld = other.character.HomeWorld;
    ended_->details = EndedDetailLines(other);
    life_.ReplaceEnded(std::move(*tape));
    changes_.summary = true;
    return true;
}

LifeEnd GenerationController::Run(const std::function<play::LifeOutcome()>& live) {
    ended_.reset();
    changes_.history = changes_.skills = true;
    Enter(State::Failed);  // should an exception leave what follows
    auto ended = EndedLife{};
    RunCareer(session_, [&] {
        const auto outcome = live();
        if (outcome.cause)
            std::rethrow_exception(outcome.cause);
        ended = {*outcome.end,
                 session_.character,
                 session_.selection,
                 session_.race,
                 session_.career,
                 session_.assignment,
                 LabelsOf(session_),
                 EndedDetailLines(session_),
                 OpenPointsLine(session_.character)};
    });
    ended_ = std::move(ended);
    Enter(State::Ended);
    if (life_.ended())
        LeavePrison(life_.ended()->start);
    changes_.history = changes_.skills = changes_.summary = true;
    return ended_->end;
}

void GenerationController::LeavePrison(const journal::Start& chosen) {
    if (session_.selection.career != kPrisoner || chosen.career == kPrisoner)
        return;
    if (korvane::SelectCareer(session_, chosen.career))
        korvane::SelectAssignment(session_, chosen.assignment);
    changes_.selection = true;
}

GenerationController::Labels GenerationController::LabelsOf(const Session& session) {
    const auto& character = session.character;
    return {AgeLabel(character),        RankLabel(character, session.assignment),
            AlliesLabel(character),     EnemiesLabel(character),
            ContactsLabel(character),   RivalsLabel(character),
            MedicalDebtLabel(character)};
}

std::string GenerationController::heading() const {
    const auto& selection = ended_ ? ended_->selection : session_.selection;
    const auto& character = shown();
    const auto who =
        Concat(selection.race, ", ", selection.career, " (", selection.assignment, "), age ", character.Age);
    if (!ended_)
        return character.TermsTotal > 0 ? who : std::string();
    return Concat(ended_->end == LifeEnd::MusteredOut ? "Finished: " : "Scrapped: ", who);
}

void GenerationController::SwapEnded() {
    showsEnded_ = !showsEnded_;
    std::swap(session_.character, ended_->record);
    std::swap(session_.selection, ended_->selection);
    std::swap(session_.race, ended_->race);
    std::swap(session_.career, ended_->career);
    std::swap(session_.assignment, ended_->assignment);
}

void GenerationController::WithEnded(const std::function<void()>& action) {
    struct Swapped {
        GenerationController& controller;
        explicit Swapped(GenerationController& of) : controller(of) { controller.SwapEnded(); }
        ~Swapped() { controller.SwapEnded(); }
        Swapped(const Swapped&) = delete;
        Swapped& operator=(const Swapped&) = delete;
    };
    const Swapped swapped(*this);
    action();
}

void GenerationController::ControlsLocked(bool locked) noexcept {
    // What ends a life says how it ended itself; until then it has failed.
    Enter(locked ? State::Running : State::Failed);
}

}  // namespace korvane
