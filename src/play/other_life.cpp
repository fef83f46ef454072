#include "play/other_life.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "character/home_world.h"
#include "character/seams_guard.h"
#include "output/journal/tape_deck.h"
#include "output/story.h"
#include "play/life.h"

namespace korvane::play {

namespace {

// Notes how far the deck has played as each term begins.
class TermWatch : public Display {
  public:
    explicit TermWatch(const Session& session) : session_(session) {}
    const journal::TapeDeck* deck = nullptr;
    std::vector<TermBeginning> terms;

    void HistoryChanged() override { Look(); }
    void SummaryChanged() override { Look(); }

  private:
    void Look() {
        const int term = session_.character.TermsTotal;
        if (deck != nullptr && term > static_cast<int>(terms.size()))
            terms.push_back({term, deck->position(), {}});
    }
    const Session& session_;
};

// A journal of the first version names no dice.
void ForgetSeed(journal::Tape& tape) {
    if (tape.start.version > 1)
        tape.start.dice = Origin{};
}

// Dice whose results are kept.
class KeptDice : public Dice {
  public:
    explicit KeptDice(Dice& dice) : dice_(dice) {}
    std::vector<int> rolls;

    int Roll(int count, int sides) override { return rolls.emplace_back(dice_.Roll(count, sides)); }
    int Draw(int n) override { return dice_.Draw(n); }

  private:
    Dice& dice_;
};

}  // namespace

std::vector<TermBeginning> TermBeginnings(Session& session, const journal::Tape& tape) {
    const SeamsGuard guard(session.seams);
    auto played = tape;
    TermWatch watch(session);
    session.seams.display = &watch;
    session.seams.observer = nullptr;
    journal::TapeDeck deck(session, played, nullptr, nullptr, "the life");
    watch.deck = &deck;
    LiveAgain(session, tape, deck);
    auto beginning = watch.terms.begin();
    for (const auto& line : StoryOf(session.character, session.race))
        if (line.kind == StoryKind::Term && beginning != watch.terms.end())
            (beginning++)->heading = line.heading;
    watch.terms.erase(beginning, watch.terms.end());  // of those the history had no room for
    return std::move(watch.terms);
}

journal::Tape UpTo(journal::Tape tape, std::size_t line) {
    tape.lines.resize(std::min(line, tape.lines.size()), journal::RollLine{});
    tape.end.reset();
    ForgetSeed(tape);
    return tape;
}

bool RollHomeWorldAnew(Session& session, std::vector<journal::Line>& lines, Dice& dice) {
    const auto& worlds = session.data.HomeWorlds();
    if (!worlds)
        return false;
    const auto name = std::filesystem::path(worlds->source->name()).filename().string();
    auto line = std::ranges::find_if(lines, [&](const journal::Line& each) {
        const auto* const file = std::get_if<journal::FileLine>(&each);
        return file != nullptr && file->request.name == name;
    });
    if (line == lines.end())
        return false;
    const SeamsGuard guard(session.seams);
    KeptDice kept(dice);
    session.seams.dice = &kept;
    session.seams.observer = nullptr;
    RollHomeWorld(session);
    // The tables may have changed since the life began.
    std::get<journal::FileLine>(*line).answer = worlds->source->digest();
    for (const int roll : kept.rolls)
        if (++line == lines.end())
            break;
        else if (auto* const held = std::get_if<journal::RollLine>(&*line))
            held->answer = roll;
    return true;
}

std::optional<journal::Tape> WithAnotherHomeWorld(Session& session, journal::Tape tape, Dice& dice) {
    if (!RollHomeWorldAnew(session, tape.lines, dice))
        return std::nullopt;
    ForgetSeed(tape);
    auto played = tape;
    journal::TapeDeck deck(session, played, nullptr, nullptr, "the life");
    const SeamsGuard guard(session.seams);
    const auto outcome = LiveAgain(session, tape, deck);
    tape.end = EndOf(session, tape, outcome);
    return tape;
}

}  // namespace korvane::play
