// Players without a person: one that answers at random, and those that know how a life should end.
#pragma once

#include <functional>
#include <memory>

#include "character/KVNDeclare.h"
#include "character/dice.h"
#include "character/player.h"

namespace korvane::play {

// Any of the names but those left out; nothing when there is none.
const std::string* AnyOf(RandomStream& stream, const Names& names,
                         const std::function<bool(std::string_view)>& isLeftOut = {});

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
    RandomStream& stream() { return stream_; }

  private:
    RandomStream stream_;
};

// Answers the dialogs that automatic generation leaves to the player: re-enlists for a number of terms of service and
// then musters out. Thrown out of a career it goes into any other but prison, and not back while there is one; after
// the last term into none. Takes cash three times, then material benefits.
class PolicyPlayer : public RandomPlayer {
  public:
    // The life is the session's.
    PolicyPlayer(const Session& session, RandomStream stream, int terms)
        : RandomPlayer(stream), session_(session), terms_(terms) {}

    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  protected:
    const Session& session() const { return session_; }

  private:
    // Whether the terms asked for are served.
    bool HasServed(int termsTotal) const;

    const Session& session_;
    int terms_;
};

}  // namespace korvane::play
