// A player who answers as a test says, and who holds the engine to the questions that the test expects.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "character/player.h"

namespace korvane::test {

// Questions must come in the order in which they were expected, and with the texts given; anything else fails the test.
class ScriptedPlayer : public Player {
  public:
    ~ScriptedPlayer() override;

    // `options` are the alternatives joined by "/"; `pick` counts from 1.
    ScriptedPlayer& ExpectChoice(const std::string& title, const std::string& options, int pick);
    // `items` are joined by "/", in the list's own order; `marks` count from 1, none for Cancel.
    ScriptedPlayer& ExpectList(const std::string& prompt, const std::string& items, const std::vector<int>& marks);
    // The same, with the limits checked too, and without the items.
    ScriptedPlayer& ExpectListLimits(const std::string& prompt, int maximum, int minimum,
                                     const std::vector<int>& marks);
    ScriptedPlayer& ExpectAsk(const std::string& text, bool answer);
    ScriptedPlayer& ExpectTell(const std::string& text);
    ScriptedPlayer& ExpectTable(int column);
    ScriptedPlayer& ExpectEndOfTerm(EndOfTermChoice choice);
    ScriptedPlayer& ExpectEndOfTerm(EndOfTermChoice choice, const Options& options);
    ScriptedPlayer& ExpectTransfer(const std::string& career, const std::string& assignment);
    ScriptedPlayer& ExpectEndCareer();
    ScriptedPlayer& ExpectMuster(MusterButton button, bool gambler = false);
    // The next question that needs an answer is answered by scrapping the character.
    ScriptedPlayer& ExpectScrap();

    // All expected questions were put; fails the test otherwise. The destructor checks it too.
    void ExpectDone();

    // Copies of what was last shown.
    TableQuestion lastTable;
    std::vector<std::string> lastTableRows;  // of each column, from the first, joined by "/"
    MusterQuestion lastMuster;
    YesNoQuestion lastAsk;
    Icon lastNoticeIcon = Icon::None;
    int lastFocus = 0;

    int Choose(const ChoiceQuestion& question) override;
    std::vector<int> Select(const ListQuestion& question) override;
    bool Ask(const YesNoQuestion& question) override;
    void Tell(const Notice& notice) override;
    int PickTable(const TableQuestion& question) override;
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override;
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override;
    MusterPress Muster(const MusterQuestion& question) override;

  private:
    struct Step {
        std::string kind;
        std::string text;   // title, prompt or notice
        std::string items;  // joined by "/"; "*" for any
        int number = 0;
        std::vector<int> numbers;
        bool yes = false;
        std::optional<Options> options;
        TransferAnswer transfer;
    };

    ScriptedPlayer& Expect(Step step);
    Step Next(const std::string& kind, const std::string& text, const std::string& items);

    std::deque<Step> script_;
};

}  // namespace korvane::test
