// The odds under a question, careers side by side, and lives of which something is rolled anew.

#include "ui/odds_panel.h"

#include <QAction>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <optional>
#include <utility>

#include "output/journal/lines.h"
#include "play/life.h"
#include "play/players.h"
#include "support_ui/desk.h"
#include "support_ui/dialog_stage.h"
#include "ui/kvn_careers.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;

constexpr int kLivesTime = 60000;  // in milliseconds; nothing takes it but a fault

QString NoteOf(const QWidget& dialog) {
    const auto* const note = dialog.findChild<QLabel*>("oddsNote");
    return note == nullptr ? QString() : note->text();
}

class OddsAtQuestions : public ::testing::Test {
  protected:
    OddsAtQuestions() { test::ChooseInCombo(desk.Get<QComboBox>("career"), "Drifter"); }
    void LiveOn() {
        play::PolicyPlayer policy(desk.session, RandomStream(5), 3);
        desk.window.life().UsePlayer(policy);
        desk.session.options.Set(Option::AutomaticGeneration);
        desk.Click("startCareer");
        desk.window.life().UsePlayer(desk.window.player());
        desk.session.options = {};
    }
    void Trigger(Qt::Key key) {
        for (auto* const action : desk.window.findChildren<QAction*>())
            if (action->shortcut() == QKeySequence(Qt::CTRL | key))
                action->trigger();
    }

    test::Desk desk{HeldPath(KORVANE_RULES)};
    test::Robot robot;
};

TEST_F(OddsAtQuestions, UnfoldByKeyAreReadByRowAndStayUnfolded) {
    int height = 0;
    robot.Then("SLIST1", [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
    robot.Then("SPICKBOX", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QWidget*>("odds"), nullptr) << "folded at first";
        height = dialog.height();
        PressKey(dialog, Qt::Key_D, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return NoteOf(dialog).startsWith("2,000 lives"); }, kLivesTime));
        auto& table = Child<QTreeWidget>(dialog, "oddsTable");
        EXPECT_EQ(table.headerItem()->text(1), "This roll");
        EXPECT_EQ(table.topLevelItemCount(), 3);
        const auto sentence = table.topLevelItem(1)->data(0, Qt::AccessibleTextRole).toString();
        EXPECT_TRUE(sentence.startsWith("University: this roll ")) << sentence.toStdString();
        EXPECT_TRUE(sentence.contains(" of 36)")) << sentence.toStdString();
        EXPECT_GT(dialog.height(), height);
        for (int i = 0; i < 9 && !table.hasFocus(); ++i)
            PressKey(dialog, Qt::Key_Tab);
        EXPECT_TRUE(table.hasFocus());
        PressKey(dialog, Qt::Key_Return);  // no answer is meant by that
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_1);
    });
    robot.Then("KVNTables", [](QWidget& dialog) {
        auto& button = Child<ui::OddsButton>(dialog, "oddsButton");
        EXPECT_TRUE(button.IsOpen()) << "remembered";
        PressKey(dialog, Qt::Key_D, Qt::ControlModifier);
        EXPECT_FALSE(button.IsOpen());
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("Scrap this character?", QMessageBox::Yes);
    desk.Click("startCareer");
}

TEST_F(OddsAtQuestions, AreDroppedByTheAnswer) {
    robot.Then("SLIST1", [](QWidget& dialog) {
        PressKey(dialog, Qt::Key_D, Qt::ControlModifier);
        PressKey(dialog, Qt::Key_Escape);  // before anything is found
    });
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return NoteOf(dialog).contains("lives for each"); }, kLivesTime));
        EXPECT_EQ(Child<QTreeWidget>(dialog, "oddsTable").topLevelItemCount(), 3) << "of this question";
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("Scrap this character?", QMessageBox::Yes);
    desk.Click("startCareer");
}

TEST_F(OddsAtQuestions, CareersAreComparedAndChosenByKeys) {
    robot.Then("KVNCareers", [](QWidget& dialog) {
        auto& table = Child<QTreeWidget>(dialog, "careers");
        ASSERT_TRUE(QTest::qWaitFor([&] { return table.topLevelItemCount() > 0; }, kLivesTime));
        EXPECT_TRUE(table.findItems("Prisoner", Qt::MatchExactly).isEmpty());
        const auto sentence = table.topLevelItem(0)->data(0, Qt::AccessibleTextRole).toString();
        EXPECT_TRUE(sentence.startsWith("Agent: Accepted ")) << sentence.toStdString();
        auto& sort = Child<QComboBox>(dialog, "sortBy");
        test::ChooseInCombo(sort, "Cash");
        const auto cash = [&](int row) { return table.topLevelItem(row)->data(8, Qt::UserRole).toDouble(); };
        EXPECT_GE(cash(0), cash(1));
        EXPECT_GE(cash(1), cash(2));
        table.setCurrentItem(table.findItems("Scout", Qt::MatchExactly).value(0));
        table.setFocus();
        PressKey(dialog, Qt::Key_Right);
        PressKey(dialog, Qt::Key_Down);
        EXPECT_NE(table.currentItem()->parent(), nullptr);
        PressKey(dialog, Qt::Key_Return);
    });
    Trigger(Qt::Key_K);
    EXPECT_EQ(desk.Get<QComboBox>("career").currentText(), "Scout");
    EXPECT_FALSE(desk.Get<QComboBox>("assignment").currentText().isEmpty());
}

TEST_F(OddsAtQuestions, AnotherLifeHasTheBeginningOfTheOld) {
    LiveOn();
    const auto old = *desk.window.life().ended();
    const auto history = desk.Shown("history");
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Live another life from");
        PressKey(dialog, Qt::Key_3);
    });
    robot.Then("KVNEndTerm", [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
    robot.ThenMessage("Scrap this character?", QMessageBox::Yes);
    Trigger(Qt::Key_T);
    const auto& other = *desk.window.life().ended();
    EXPECT_EQ(other.end->kind, journal::EndKind::Scrapped);
    EXPECT_FALSE(other.start.dice->seed.has_value());
    const auto third = std::ranges::find(history, "------ Term 3 ------");
    ASSERT_NE(third, history.end());
    const auto shown = desk.Shown("history");
    const auto kept = static_cast<std::size_t>(third - history.begin());
    ASSERT_GE(shown.size(), kept + 1);
    EXPECT_TRUE(std::equal(history.begin(), third + 1, shown.begin())) << "up to the heading of the third term";
}

// Whether the rules and the result of a life are proved.
void ExpectProved(const journal::Tape& tape) {
    Display display;
    Session session(DataFolder(HeldPath(KORVANE_RULES)), {nullptr, nullptr, &display});
    auto played = tape;
    journal::TapeDeck deck(session, played, nullptr, nullptr, "the life");
    ASSERT_NO_THROW(play::LiveAgain(session, tape, deck));
    EXPECT_TRUE(deck.changedFiles().empty());
    EXPECT_EQ(tape.end->document, play::DocumentDigest(session, tape));
    EXPECT_FALSE(tape.start.dice->seed.has_value());
}

TEST_F(OddsAtQuestions, HomeWorldIsRolledAnewAndNothingElse) {
    LiveOn();
    const auto history = desk.Shown("history");
    const auto old = *desk.window.life().ended();
    const auto details = desk.Shown("details");
    const auto waiting = desk.Shown("characteristics");
    test::ChooseInCombo(desk.Get<QComboBox>("career"), "Scout");
    Trigger(Qt::Key_W);
    EXPECT_EQ(desk.Shown("history"), history);
    const auto& again = *desk.window.life().ended();
    EXPECT_EQ(again.lines.size(), old.lines.size());
    EXPECT_EQ(again.backs, old.backs);
    // Seven rolls are new dice: that all of them fall as before happens to nobody.
    EXPECT_NE(desk.Shown("details"), details);
    ExpectProved(again);
    EXPECT_EQ(desk.Get<QComboBox>("career").currentText(), "Scout") << "the next one's";
    EXPECT_EQ(desk.Shown("characteristics"), waiting);
}

TEST_F(OddsAtQuestions, HomeWorldOfTheWaitingCharacterGoesIntoItsLife) {
    desk.window.life().UseSeed(Seed("a word"));
    desk.Click("roll");
    Trigger(Qt::Key_W);
    const auto world = desk.session.character.HomeWorld;
    desk.window.characterFinished = [&] {
        EXPECT_EQ(desk.session.character.HomeWorld, world);
        return false;
    };
    LiveOn();
    ExpectProved(*desk.window.life().ended());
}

class OneStep : public LifeSteps {
  public:
    std::size_t MomentCount() const override { return 1; }
    Moment MomentAt(std::size_t /*place*/) const override { return {}; }
    bool MayGoForward() const override { return false; }
    bool IsKept() const override { return false; }
};

// Counts what comes from the background.
class Calls : public QObject {
  public:
    Calls() { QCoreApplication::instance()->installEventFilter(this); }
    int count = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MetaCall && dynamic_cast<ui::Background*>(watched) != nullptr)
            ++count;
        return false;
    }
};

using OddsOfMessages = test::DialogStage;

TEST_F(OddsOfMessages, WhatComesAfterTheMessageHasGoneIsDropped) {
    const OneStep steps;
    player.steps = &steps;
    player.odds().openQuestion = [](std::vector<play::Alternative> alternatives) {
        return play::OpenQuestion{{}, std::move(alternatives)};  // of no life: that is told, a moment later
    };
    const Calls calls;
    player.chooseMoment = [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return calls.count > 0; }, kLivesTime));
        return std::nullopt;
    };
    robot.Then("QMessageBox", [](QWidget& dialog) {
        PressKey(dialog, Qt::Key_D, Qt::ControlModifier);
        PressKey(dialog, Qt::Key_H, Qt::ControlModifier);
    });
    robot.Then("QMessageBox", [](QWidget& dialog) {
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return NoteOf(dialog).startsWith("The odds can't be reckoned"); }, kLivesTime));
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(player.Ask({"Do you?"}));
}

}  // namespace
}  // namespace korvane
