// A player of sense: answers every question as a person would who wants a character that is good to play.
#pragma once

#include "play/players.h"
#include "play/sense.h"

namespace korvane::play {

// Takes skills that fit the career and the characteristics and add to what is held, gambles when the odds and the
// stakes are good, lets go of what is missed least, and takes cash and benefits in turn. Serves the terms asked for as
// the policy does, and never scraps a character. Between equals chance decides, so that two characters differ.
class SensiblePlayer : public PolicyPlayer {
  public:
    // The life is the session's.
    SensiblePlayer(const Session& session, RandomStream stream, int terms)
        : PolicyPlayer(session, stream, terms), sense_(session) {}

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    int PickTable(const TableQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    // A small chance that makes a choice between things of like worth.
    int Whim() { return stream().Below(7); }
    int ChooseEducation(const ChoiceQuestion& question);
    int ChooseSpeciality(const ChoiceQuestion& question, std::string_view skill);
    int ChooseLoss(const ChoiceQuestion& question, int amount);
    int ChooseStake(const ChoiceQuestion& question);
    int ChooseByWorth(const ChoiceQuestion& question);
    bool PaysForCare(std::string_view question) const;

    Sense sense_;
};

}  // namespace korvane::play
