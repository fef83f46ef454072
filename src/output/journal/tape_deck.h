// Plays a tape and records on it: stands in the place of a session's dice, player and observer. What the tape holds is
// answered from it; beyond its end the real ones answer, and that is recorded.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "character/KVNDeclare.h"
#include "output/journal/read_journal.h"
#include "output/journal/tape.h"

namespace korvane::journal {

class TapeDeck : public Dice, public Player, public Observer {
  public:
    // The tape belongs to the session's life. Without dice and player the tape must hold all that is asked. `name` is
    // the journal's, for messages. All members throw Divergence where the tape holds another request, and JournalError
    // where it ends early or holds what can't be.
    TapeDeck(const Session& session, Tape& tape, Dice* dice, Player* player, std::string name = {})
        : session_(session), tape_(tape), dice_(dice), player_(player), name_(std::move(name)) {}

    // The journal's name, for messages.
    void CallIt(std::string name) { name_ = std::move(name); }
    // Stands at the tape's beginning again.
    void Rewind();
    // Stands at its end, as if it had been played.
    void FastForward();
    // Goes on from the tape's end with other dice.
    void UseDice(Dice& dice) { dice_ = &dice; }
    void UsePlayer(Player& player) { player_ = &player; }
    // Dice that fall along with the tape's, which are said to be theirs.
    void CompareWith(Dice* seeded) { seeded_ = seeded; }
    // Called with each line that is recorded, when it stands on the tape.
    std::function<void(const Line&)> recorded;
    // What the rules do beside is handed on, but for what the tape tells again.
    Observer* observer = nullptr;
    // Called when the tape is played to its end and something else is asked.
    std::function<void()> playedOut;

    // The files of what the session has selected.
    void NoteSelection();
    // Demands that the tape ends here, and in this way.
    void ExpectEnd(const End& end) const;

    std::size_t position() const { return position_; }
    // The questions that were answered, in order; each with the place of its line.
    struct Answered {
        Moment moment;
        std::size_t line = 0;
    };
    const std::vector<Answered>& answered() const { return answered_; }
    // The first line whose die isn't that of the dice that fall along.
    std::optional<std::size_t> foreignDie() const { return foreignDie_; }
    // The files whose bytes aren't those that the tape tells of.
    const std::vector<std::string>& changedFiles() const { return changedFiles_; }

    int Roll(int count, int sides) override;
    int Draw(int n) override;

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

    void CarriedOut(std::string_view chain, std::size_t row) override;
    void CharacterBegins() override;
    void CharacterStarted() override;
    void CheckRolled(const RolledCheck& rolled) override;
    void FileLoaded(const TextFile& file) override;

  private:
    // The answer to a request: the tape's, or what `live` gives, which is recorded.
    template <typename LineOf, typename Live>
    typename LineOf::Answer Take(typename LineOf::Request request, const Live& live);
    // The same for a question to the player.
    template <typename LineOf, typename Live>
    typename LineOf::Answer TakeAnswer(typename LineOf::Request request, const Live& live);
    // The line that the tape holds for a request, if it isn't at its end.
    template <typename LineOf>
    const LineOf* Held(const typename LineOf::Request& request);
    void Record(Line line);
    // At the end of the tape: whether anybody goes on. Throws when nobody does.
    void GoOn(bool live, const Line& asked);
    void CompareDie(int result, int seeded);
    // Refuses the answer of the line just played: when the life goes on, the rules have changed.
    [[noreturn]] void Reject(std::string_view expected, std::string_view found);

    const Session& session_;
    Tape& tape_;
    Dice* dice_;
    Player* player_;
    std::string name_;
    Dice* seeded_ = nullptr;
    std::size_t position_ = 0;
    bool played_ = false;  // lines of the tape since it was rewound
    std::vector<Answered> answered_;
    std::vector<std::pair<std::string, std::string>> loaded_;  // files and their digests
    std::vector<std::string> changedFiles_;
    std::optional<std::size_t> foreignDie_;
};

}  // namespace korvane::journal
