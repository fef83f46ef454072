// What becomes of a life from a moment on: witnessed while it is lived.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane::play {

// What can be told of the rest of a life, as a number. Up to `Imprisoned` it is of the time to the end of the next
// term, the one of the next roll for survival, and a chance from 0 to 1; the others are of the whole life.
enum class Figure { Roll, Survives, Leaves, Promoted, Injured, Imprisoned, Levels, Cash, Benefits, Years };
inline constexpr std::size_t kFigures = 10;
constexpr bool IsChance(Figure figure) {
    return figure <= Figure::Imprisoned;
}
// Those of which each life tells the chance itself, and not how it fell.
constexpr bool IsKnownChance(Figure figure) {
    return figure <= Figure::Survives;
}
// Nothing where there is no such thing: no next term, say.
using Prospect = std::array<std::optional<double>, kFigures>;

// Looks on as the session's life is lived, in the place of its observer and its display.
class Witness : public Observer, public Display {
  public:
    explicit Witness(Session& session) : session_(session) {}

    // From now on it counts; what is yet to come is told anew. The history is cleared, as it holds a number of lines
    // alone, and is what tells of injuries.
    void Begin();
    // To be told of each roll of dice, and when the player is asked at a term's end.
    void DiceRolled() { ++rolls_; }
    void TermEnds();
    // What was rolled for at once; empty for nothing.
    const std::string& roll() const { return roll_; }
    // To be told when the life has ended.
    Prospect End();

    // Whether the next term hasn't ended.
    bool Watches() const { return begun_ && !termEnded_; }

    void CheckRolled(const RolledCheck& rolled) override;
    void HistoryChanged() override;
    void SummaryChanged() override;

  private:
    // What grows in the course of a life.
    struct Holdings {
        int levels = 0;
        std::int64_t cash = 0;
        std::size_t benefits = 0;
        int years = 0;
    };
    static Holdings HoldingsOf(const CharacterRecord& character);
    void NoteFirst(const RolledCheck& rolled);
    void NoteRank();
    void Set(Figure figure, double value) { prospect_.at(static_cast<std::size_t>(figure)) = value; }

    Session& session_;
    Prospect prospect_;
    bool begun_ = false;
    bool termEnded_ = false;
    int term_ = 0;  // the next one, once it is known
    int rolls_ = 0;
    int checks_ = 0;
    std::string roll_;
    int rank_ = 0;
    Holdings before_;
    bool left_ = false;
    bool promoted_ = false;
    bool injured_ = false;
    bool imprisoned_ = false;
};

// Dice that tell a witness.
class WitnessedDice : public Dice {
  public:
    WitnessedDice(Dice& dice, Witness& witness) : dice_(dice), witness_(witness) {}
    int Roll(int count, int sides) override {
        witness_.DiceRolled();
        return dice_.Roll(count, sides);
    }
    int Draw(int n) override {
        witness_.DiceRolled();
        return dice_.Draw(n);
    }

  private:
    Dice& dice_;
    Witness& witness_;
};

}  // namespace korvane::play
