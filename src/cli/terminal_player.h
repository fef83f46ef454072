// A player at a terminal: numbered alternatives, lists, Yes/No.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane::cli {

// Writes history lines as they come.
class TerminalDisplay : public Display {
  public:
    explicit TerminalDisplay(std::ostream& out) : out_(out) {}
    void Watch(const CharacterRecord& character) { character_ = &character; }
    void HistoryChanged() override;

  private:
    std::ostream& out_;
    const CharacterRecord* character_ = nullptr;
    std::size_t shown_ = 0;
};

// Every member throws UsageError when the input ends in the middle. "scrap" at a question that needs an answer scraps
// the character, after a confirmation.
class TerminalPlayer : public Player {
  public:
    TerminalPlayer(std::istream& in, std::ostream& out) : in_(in), out_(out) {}

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

    // One of the texts, counted from 1. A text that isn't enabled is shown, but not taken.
    struct Line {
        std::string text;
        bool enabled = true;
    };
    int PickLine(std::string_view title, const std::vector<Line>& lines, bool mayScrap);
    int PickName(std::string_view title, const Names& names, bool mayScrap);

  private:
    std::string Read(std::string_view prompt);
    void OfferScrapping();
    Options ChangeOptions(Options options);

    std::istream& in_;
    std::ostream& out_;
};

}  // namespace korvane::cli
