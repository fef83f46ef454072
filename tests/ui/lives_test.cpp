// Whole lives through the windows: what the engine lives without them is lived again at the real dialogs, and must come
// out the same.

#include <QToolButton>
#include <gtest/gtest.h>
#include <sstream>

#include "base/files.h"
#include "output/character_document.h"
#include "output/journal/lines.h"
#include "output/journal/read_journal.h"
#include "play/life_plan.h"
#include "support/temp_folder.h"
#include "support_ui/desk.h"
#include "support_ui/journal_robot.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;

struct Life {
    Lines journal;
    std::string document;  // none when the character was scrapped
};

// Lives without windows.
Life LiveHeadless(const play::LifePlan& plan, std::uint64_t number) {
    Display display;
    Session session(DataFolder(HeldPath(KORVANE_RULES)), {nullptr, nullptr, &display});
    journal::Tape tape;
    const auto outcome = play::Live(session, plan, number, &tape);
    const bool finished = outcome.end == LifeEnd::MusteredOut;
    return {test::LinesOf(journal::JournalText(tape)), finished ? CharacterDocument(session) : ""};
}

void SetUp(const test::Desk& desk, const journal::Start& start) {
    test::ChooseInCombo(desk.Get<QComboBox>("career"), QString::fromStdString(start.career));
    test::ChooseInCombo(desk.Get<QComboBox>("assignment"), QString::fromStdString(start.assignment));
    desk.Click(start.method == RollingMethod::True2D ? "true2D" : "roll3Drop1");
    for (const auto caption : journal::TickedCaptions(start.options))
        desk.Click(QString::fromUtf8(caption.data()));
}

// Has the odds of each question reckoned before it is answered.
class CuriousRobot : public test::JournalRobot {
  public:
    CuriousRobot(const Lines& journal, bool curious) : JournalRobot(journal), curious_(curious) {}

  protected:
    void Respond(QWidget& dialog) override {
        auto* const odds = dialog.findChild<QToolButton*>("oddsButton");
        if (curious_ && odds != nullptr && odds->isEnabled() && !odds->isChecked())
            odds->click();
        JournalRobot::Respond(dialog);
    }

  private:
    bool curious_;
};

// Lives the same life at the windows, with its dice. Its own journal must tell the same, and the finished character be
// the same. Returns the kinds of questions that were put.
std::set<std::string> ExpectTheSameLife(const Life& life, bool withOdds = false) {
    test::Desk desk(HeldPath(KORVANE_RULES));
    CuriousRobot robot(life.journal, withOdds);
    auto dice_tape = journal::ReadJournal("dice", test::DiceOf(life.journal)).tape;
    journal::TapeDeck dice(desk.session, dice_tape, nullptr, nullptr, "dice");
    std::string document;
    desk.window.characterFinished = [&] {
        document = CharacterDocument(desk.session);
        return false;
    };
    SetUp(desk, dice_tape.start);
    desk.window.life().UseDice(dice);
    desk.Click("roll");
    desk.Click("startCareer");
    EXPECT_TRUE(robot.AllAnswered());
    EXPECT_EQ(document, life.document);
    const auto lines = test::LinesOf(journal::JournalText(*desk.window.life().ended()));
    EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), Lines(life.journal.begin() + 1, life.journal.end() - 1));
    EXPECT_TRUE(desk.Get<QWidget>("startCareer").isEnabled());
    return robot.kinds();
}

TEST(Lives, AtTheWindowsAreThoseWithoutThem) {
    std::set<std::string> kinds;
    int finished = 0;
    for (std::uint64_t number = 1; number <= 16; ++number) {
        SCOPED_TRACE(number);
        play::LifePlan plan;
        plan.seed = Seed(7);
        plan.player = play::PlayerKind::Random;
        plan.method = number % 2 == 0 ? RollingMethod::True2D : RollingMethod::Roll3Drop1;
        plan.options.Set(Option::CapSkillsAt4, number % 3 == 0);
        plan.options.Set(Option::SortSkillsByValue, number % 4 == 0);
        plan.options.Set(Option::ForceNoEjectionOnMishap, number % 5 == 0);
        const auto life = LiveHeadless(plan, number);
        finished += life.document.empty() ? 0 : 1;
        kinds.merge(ExpectTheSameLife(life, number % 4 == 0));
    }
    EXPECT_GE(finished, 5);
    for (const auto* const kind : {"choose", "select", "ask", "tell", "table", "end of term", "transfer", "muster"})
        EXPECT_TRUE(kinds.contains(kind)) << kind;
}

TEST(Lives, AutomaticOnesLeaveThreeDialogs) {
    play::LifePlan plan;
    plan.seed = Seed(3);
    plan.career = "Scout";
    const auto life = LiveHeadless(plan, 1);
    EXPECT_FALSE(life.document.empty());
    ExpectTheSameLife(life);
}

TEST(Lives, ScrappedAtAQuestionEndThere) {
    play::LifePlan plan;
    plan.seed = Seed(3);
    plan.player = play::PlayerKind::Random;
    auto life = LiveHeadless(plan, 1);
    const auto is_table = [](const std::string& line) { return line.starts_with("{\"table\""); };
    const auto place = std::ranges::find_if(life.journal, is_table);
    ASSERT_NE(place, life.journal.end());
    life.journal.erase(place, life.journal.end());
    life.journal.emplace_back(R"({"end":"scrapped"})");
    life.document.clear();
    ExpectTheSameLife(life);
}

}  // namespace
}  // namespace korvane
