// What the main window controls: the set-up of the next character, the life that runs, and the one that has ended.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "character/KVNDeclare.h"
#include "engine/term_loop.h"
#include "play/recorded_life.h"

namespace korvane {

// Carries out what the window's controls ask for and notes what has changed, for the window to show when it likes.
// Every operation throws what its rules throw; none may be called while a life runs, but `SetOptions`.
class GenerationController : public Display {
  public:
    enum class State {
        Idle,     // a new character waits for its start
        Running,  // a life runs
        Ended,    // a life has ended: its character is kept, while the session's is the next one already
        Failed,   // an error stopped a life: what there is of the character stays in the session, to be read
    };
    // What is told of a character beside its lists.
    struct Labels {
        std::string age;
        std::string rank;
        std::string allies;
        std::string enemies;
        std::string contacts;
        std::string rivals;
        std::string medicalDebt;
    };
    // A character whose life has ended, with the rules' records that it ended with.
    struct EndedLife {
        LifeEnd end = LifeEnd::MusteredOut;
        CharacterRecord record;
        Selection selection;
        RaceRecord race;
        CareerRecord career;
        AssignmentRecord assignment;
        Labels labels;
        std::vector<std::string> details;
        std::string open;  // what is still to be decided, in one line; empty for nothing
    };
    struct Changes {
        bool history = false;
        bool skills = false;
        bool summary = false;
        bool selection = false;
        bool options = false;
        bool state = false;
    };

    GenerationController(Session& session, Dice& dice, Player& player);
    GenerationController(const GenerationController&) = delete;
    GenerationController& operator=(const GenerationController&) = delete;

    // The tape of the life that runs, or of the one that has ended, and what leads back in it.
    play::RecordedLife& life() { return life_; }
    const play::RecordedLife& life() const { return life_; }

    State state() const { return state_; }
    // The last life, from its end to the next start.
    const std::optional<EndedLife>& ended() const { return ended_; }
    // The character whose skills and history are to be seen.
    const CharacterRecord& shown() const { return ended_ ? ended_->record : session_.character; }
    const RaceRecord& shownRace() const { return ended_ ? ended_->race : session_.race; }
    Labels labels() const { return ended_ ? ended_->labels : LabelsOf(session_); }
    // Who is shown, in a line: "Finished: Imperial Human, Scout (Courier), age 34".
    std::string heading() const;
    // Puts the ended character into the session for as long as something is done with it. There must be one.
    void WithEnded(const std::function<void()>& action);
    // While that lasts nothing of the session is the window's to show.
    bool showsEnded() const { return showsEnded_; }
    bool mayRoll() const { return !session_.selection.race.empty(); }
    bool mayStart() const;
    // What has changed since this was asked last.
    Changes TakeChanges();
    // Has the next `TakeChanges` name everything.
    void ChangeAll();

    // Lists the races and loads the default one.
    void Load();
    void SelectRace(const std::string& race);
    void SelectCareer(const std::string& career);
    void SelectAssignment(const std::string& assignment);
    void Roll(RollingMethod method);
    void ScrapAndRestart();
    void SetOptions(const Options& options);
    // Lives the character's life to its end and starts the next one. `finished` is called with a finished character,
    // still in the session, and says whether the player goes back into the life. Returns how the life ended.
    LifeEnd StartCareer(const play::RecordedLife::Finished& finished);
    // The same for a journal's life: goes on where it ends.
    LifeEnd GoOn(journal::Journal journal, const play::RecordedLife::Finished& finished);

    // The same for a life that is new but for its beginning.
    LifeEnd LiveOther(journal::Tape tape, const play::RecordedLife::Finished& finished);
    // Rolls the home world of the character that waits for its start anew. Whether there are tables of them.
    bool RollHomeWorldAnew();
    // The same for the character that has ended, whose life and journal are as they were in all else. Throws what
    // LiveAgain throws, and changes nothing then.
    bool RollEndedHomeWorldAnew();

    void HistoryChanged() override { changes_.history = true; }
    void SkillsChanged() override { changes_.skills = true; }
    void SummaryChanged() override { changes_.summary = true; }
    void SelectionChanged() override { changes_.selection = true; }
    void OptionsChanged() override { changes_.options = true; }
    void ControlsLocked(bool locked) noexcept override;

  private:
    static Labels LabelsOf(const Session& session);
    // Exchanges the session's character and records for those that ended.
    void SwapEnded();
    LifeEnd Run(const std::function<play::LifeOutcome()>& live);
    // A prisoner's life ends with the prison selected, which nobody chooses.
    void LeavePrison(const journal::Start& chosen);
    void Enter(State state);
    // A new character has been started: what an error left is in the session no more.
    void LeaveFailure();

    Session& session_;
    play::RecordedLife life_;
    State state_ = State::Idle;
    Changes changes_;
    std::optional<EndedLife> ended_;
    bool showsEnded_ = false;
};

}  // namespace korvane
