// The player: everything that the rules ask of a person, or tell them. The engine waits for each answer.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "character/options.h"
#include "data/records.h"

namespace korvane {

// A choice among alternatives.
struct ChoiceQuestion {
    std::string_view title;
    std::span<const std::string_view> options;
    int focus = 0;          // the alternative that has the focus, counted from 0
    bool mayLeave = false;  // whether the player may go without an answer: the choice is none of the life's
};

// A choice of several items of a list, between a minimum and a maximum.
struct ListQuestion {
    std::string_view prompt;
    int maximum = 1;
    int minimum = 1;
    std::span<const std::string_view> items;
};

enum class Icon { None, Information, Question, Exclamation, Warning };

// A Yes/No question.
struct YesNoQuestion {
    std::string_view text;
    std::string_view title = {};  // empty: the program's title
    Icon icon = Icon::Question;
    bool defaultYes = true;
};

struct Notice {
    std::string_view text;
    Icon icon = Icon::None;
};

// The skill-tables dialog: six columns, numbered from 1.
struct TableColumn {
    std::string caption;
    std::span<const std::string_view> rows;
    bool enabled = true;
};
struct TableQuestion {
    std::string_view instruction;
    std::array<TableColumn, 7> columns;
};

enum class EndOfTermChoice { ReEnlist = 1, Transfer = 2, MusterOut = 3, Scrap = 4 };
struct EndOfTermQuestion {
    int termsTotal = 0;
    Options options;
};
struct EndOfTermAnswer {
    EndOfTermChoice choice = EndOfTermChoice::ReEnlist;
    Options options;  // as the boxes stood when the dialog closed
};

struct TransferQuestion {
    const Names& careers;
    std::function<std::shared_ptr<const Names>(std::string_view career)> assignmentsOf;
    // What a career is, in a sentence; nothing where its file doesn't say.
    std::function<std::string(std::string_view career)> descriptionOf = {};
};
struct TransferAnswer {
    std::string career;
    std::string assignment;
};

enum class MusterButton { Cash, Material, ThreeCashRestMaterial, Done };
struct MusterQuestion {
    std::string_view career;
    int rolls = 0;
    int bonuses = 0;
    bool cashEnabled = true;
    bool materialEnabled = true;
    bool threeCashEnabled = true;
    bool gamblerEnabled = false;
    std::span<const std::string> cash;  // what the rolls have brought so far
    std::span<const std::string> benefits;

    bool Enabled(MusterButton button) const;
};
inline bool MusterQuestion::Enabled(MusterButton button) const {
    switch (button) {
        case MusterButton::Cash:
            return cashEnabled;
        case MusterButton::Material:
            return materialEnabled;
        case MusterButton::ThreeCashRestMaterial:
            return threeCashEnabled;
        case MusterButton::Done:
            return true;
    }
    return false;
}
struct MusterPress {
    MusterButton button = MusterButton::Done;
    bool gambler = false;
};

class Player {
  public:
    virtual ~Player() = default;

    // The chosen alternative, counted from 1; 0 for none, where the question may be left.
    virtual int Choose(const ChoiceQuestion& question) = 0;
    // The marked items, counted from 1, ascending; none when the player cancelled.
    virtual std::vector<int> Select(const ListQuestion& question) = 0;
    virtual bool Ask(const YesNoQuestion& question) = 0;
    virtual void Tell(const Notice& notice) = 0;
    // The pressed column, counted from 1; one that is enabled.
    virtual int PickTable(const TableQuestion& question) = 0;
    virtual EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) = 0;
    // The new career and assignment; nothing for "End Career".
    virtual std::optional<TransferAnswer> Transfer(const TransferQuestion& question) = 0;
    // One press in the mustering-out dialog; a button that is enabled.
    virtual MusterPress Muster(const MusterQuestion& question) = 0;
};

// Thrown by a player who scraps the character at a question; the generation ends as by "Scrap and Restart".
struct CharacterScrapped {};

// Thrown by a player who leaves in the middle of a life, which isn't ended by that.
struct PlayerLeft {};

// A question that the player has answered: how much of the history was written when it was asked, and in which term.
struct Moment {
    std::size_t history = 0;
    int term = 0;
};
// Thrown by a player who goes back to a question that was answered, by its place among those: it is asked again, and
// what came after it never happened.
struct WentBack {
    std::size_t moment = 0;
};
// Thrown by a player who takes the last step back back.
struct WentForward {};

// What a player may do beside answering.
class LifeSteps {
  public:
    virtual ~LifeSteps() = default;
    // The questions that were answered, before the one that is asked.
    virtual std::size_t MomentCount() const = 0;
    virtual Moment MomentAt(std::size_t place) const = 0;
    virtual bool MayGoForward() const = 0;
    // Whether the life is kept, so that it can be left and gone on with.
    virtual bool IsKept() const = 0;

    bool MayGoBack() const { return MomentCount() > 0; }
};

}  // namespace korvane
