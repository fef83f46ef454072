// A player at a terminal: numbered alternatives, lists, Yes/No, and words that are understood at every question.
#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"
#include "cli/terminal_display.h"

namespace korvane::cli {

// Every member throws UsageError when the input ends in the middle.
class TerminalPlayer : public Player {
  public:
    TerminalPlayer(const Session& session, std::istream& in, WrappedOut& out) : session_(session), in_(in), out_(out) {}

    // What "back" and "forward" do; none: nothing.
    const LifeSteps* steps = nullptr;
    // Called before the life is lived again from its beginning.
    std::function<void()> goingElsewhere;
    // From now on there is a character: it can be looked at, gone back in and scrapped.
    void BeginLife() { living_ = true; }
    // A question that is none of the life's: there is no way back from it, and nothing is scrapped.
    bool AskBeside(const YesNoQuestion& question);

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

    // One of the texts, counted from 1. One with a refusal is shown, but not taken.
    struct Line {
        std::string text;
        std::string refusal = {};
        std::string more = {};  // shown behind the text
    };
    int PickLine(std::string_view title, const std::vector<Line>& lines);
    int PickName(std::string_view title, const Names& names);

  private:
    std::string Read(std::string_view prompt);
    // Does what a word asks for that is understood at every question. Returns whether it was one.
    bool Obey(const std::string& answer);
    void GoBack();
    void GoForward();
    void OfferScrapping();
    void OfferQuitting();
    bool ConfirmsLeaving();
    // What a player is asked once more about; the words that would lead elsewhere do nothing there.
    enum class Confirming { Nothing, Scrapping, Quitting };
    bool Confirms(Confirming what, std::string_view question);
    void ShowSheet();
    void ShowStanding();
    // The number of the line that an answer means: by its number, its text or the beginning of that; 0 for none, with
    // the reason written.
    int Meant(const std::string& answer, const std::vector<Line>& lines);
    Options ChangeOptions(Options options);

    const Session& session_;
    std::istream& in_;
    WrappedOut& out_;
    bool living_ = false;
    Confirming confirming_ = Confirming::Nothing;
    std::string standing_;  // as it was shown last
};

}  // namespace korvane::cli
