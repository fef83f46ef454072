// Players without a person: one that answers at random, and one with a simple policy for automatic generation.
#pragma once

#include "character/dice.h"
#include "character/player.h"

namespace korvane::play {

// Any of the names but the one left out; nothing when there is none.
const std::string* AnyOf(RandomStream& stream, const Names& names, std::string_view leftOut);

// Answers every question at random, evenly among what there is to answer. Of the boxes in the end-of-term dialog it
// changes one now and then, but never to automatic generation.
class RandomPlayer : public Player {
  public:
    explicit RandomPlayer(RandomStream stream) : stream_(stream) {}

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  protected:
    // One of the offered careers but the one left out, and one of its assignments; nothing when there is none.
    std::optional<TransferAnswer> AnyTransfer(const TransferQuestion& question, std::string_view leftOut);

  private:
    RandomStream stream_;
};

// Answers the dialogs that automatic generation leaves to the player: re-enlists for a number of terms of service and
// then musters out, transfers at random after an ejection, but not to "Prisoner", and takes cash three times, then
// material benefits.
class PolicyPlayer : public RandomPlayer {
  public:
    PolicyPlayer(RandomStream stream, int terms) : RandomPlayer(stream), terms_(terms) {}

    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    int terms_;
};

}  // namespace korvane::play
