// Lives at a table: each is recorded on a tape as it is lived, and lived again from its beginning whenever the player
// goes back.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "character/seams_guard.h"
#include "play/life.h"

namespace korvane::play {

// Keeps what the tape of a life says somewhere else, as in a file, while it is lived.
class TapeKeeper {
  public:
    virtual ~TapeKeeper() = default;
    // A life has begun; the tape holds its opening.
    virtual void Begun(const journal::Tape& tape) = 0;
    virtual void Recorded(const journal::Line& line) = 0;
    // So many lines of the tape stand; the others, and the end, don't any more.
    virtual void CutTo(std::size_t lines) = 0;
    virtual void Ended(const journal::End& end) = 0;
};

class RecordedLife : public LifeSteps, private Observer {
  public:
    // Stands in the place of the session's dice, player and observer from now on. The dice fall, where no seed is used,
    // and the player answers.
    RecordedLife(Session& session, Dice& dice, Player& player);
    ~RecordedLife() override = default;
    RecordedLife(const RecordedLife&) = delete;
    RecordedLife& operator=(const RecordedLife&) = delete;

    void UseDice(Dice& dice);
    void UsePlayer(Player& player) { deck_.UsePlayer(player); }
    // The seed of the characters that are started from now on; the first has the number 1.
    void UseSeed(const Seed& seed);
    // None: what is lived stands in memory alone. It must outlive this.
    TapeKeeper* keeper = nullptr;
    // Asked where the rules have changed since the tape was recorded: whether the life goes on from there. Without it
    // the divergence is thrown.
    std::function<bool(const journal::Divergence& divergence)> goesOn;
    // Told of each line that is recorded, and of each check that is rolled, while the life goes on.
    std::function<void(const journal::Line& line)> recorded;
    std::function<void(const RolledCheck& rolled)> checkRolled;
    // Called when a life that is lived again has come to where it goes on.
    std::function<void()> cameBack;

    // Called with a finished character, still in the session; whether the player goes back into its life.
    using Finished = std::function<bool()>;
    // Lives the life of the character that was started last.
    LifeOutcome Live(const Finished& finished);
    // Lives a journal's life again and goes on where it ends; a finished one is handed over as it is.
    LifeOutcome GoOn(journal::Journal journal, const Finished& finished);

    // Lives a life that is new but for its beginning, which the tape holds; beyond it other dice fall.
    LifeOutcome LiveOther(journal::Tape tape, const Finished& finished);
    // Rolls the home world of the character that was started last anew, with dice that aren't the seed's. Whether there
    // is one to be rolled.
    bool RollHomeWorldAnew();
    // What is told of the life that ended last from now on.
    void ReplaceEnded(journal::Tape tape) { ended_ = std::move(tape); }

    const journal::Tape& tape() const { return tape_; }
    // The rule files that aren't those of the tape that was lived again.
    const std::vector<std::string>& changedFiles() const { return deck_.changedFiles(); }
    // The life that ended last, until the next one begins.
    const std::optional<journal::Tape>& ended() const { return ended_; }

    std::size_t MomentCount() const override { return deck_.answered().size(); }
    Moment MomentAt(std::size_t place) const override { return deck_.answered().at(place).moment; }
    bool MayGoForward() const override { return !undone_.empty(); }
    bool IsKept() const override { return keeper != nullptr; }

  private:
    // What a life starts from.
    struct Before {
        Selection selection;
        RaceRecord race;
        CareerRecord career;
        AssignmentRecord assignment;
        RollingMethod method;
        Options options;
    };

    void CharacterBegins() override;
    void CharacterStarted() override;
    void CheckRolled(const RolledCheck& rolled) override;
    void BeginTape();
    void BeginAgain();
    LifeOutcome LiveOn(const Finished& finished, bool again);
    std::optional<LifeOutcome> LiveOnce(const Finished& finished, bool again);
    // Puts the end onto the tape. Returns whether it stood there.
    bool End(const LifeOutcome& outcome);
    void GoBackTo(std::size_t moment);
    void GoForward();
    void CutTo(std::size_t lines);
    void NoteRecorded(const journal::Line& line);

    Session& session_;
    SeamsGuard seams_;  // nothing of this stays in the session
    Dice* dice_;
    std::optional<Seed> seed_;
    std::uint64_t number_ = 0;
    std::optional<SeededDice> seeded_;
    journal::Tape tape_;
    journal::TapeDeck deck_;
    std::vector<journal::Line> opening_;  // of the character that was started last
    std::optional<Before> before_;
    std::vector<std::vector<journal::Line>> undone_;  // the questions gone back over, the first of them last
    std::optional<journal::Tape> ended_;
    bool living_ = false;
};

}  // namespace korvane::play
