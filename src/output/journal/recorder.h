// Writes a journal: stands before the dice and the player of a session and notes each request with its answer.
#pragma once

#include <functional>
#include <string_view>

#include "character/KVNDeclare.h"
#include "engine/term_loop.h"
#include "output/journal/requests.h"

namespace korvane::journal {

class Recorder : public Dice, public Player {
  public:
    // Takes each line of the journal as it comes to be, without its end.
    using Sink = std::function<void(std::string_view line)>;

    Recorder(Sink sink, Dice& dice, Player& player) : sink_(std::move(sink)), dice_(dice), player_(player) {}

    // The first line, for the session's selection and options; to be written before the new character is started.
    void Begin(const Session& session);
    // The last line: how the life ended, or the error that ended it.
    void End(LifeEnd end);
    void EndInError(std::string_view kind, std::string_view message);

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

  private:
    void Write(const Json& line);

    Sink sink_;
    Dice& dice_;
    Player& player_;
};

}  // namespace korvane::journal
