// The main window: what it shows, what its controls do, and how it meets errors.

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

#include "base/files.h"
#include "output/summary_texts.h"
#include "support/temp_folder.h"
#include "support_ui/desk.h"
#include "ui/kvn_about.h"

namespace korvane {
namespace {

using test::PressKey;
using Lines = std::vector<std::string>;

// Dice that stop the first term of service with an error, once.
template <typename Error>
class FaultyDice : public Dice {
  public:
    FaultyDice(Session& session, Error error) : character_(session.character), error_(std::move(error)) {
        dice_ = std::exchange(session.seams.dice, this);
    }
    int Roll(int count, int sides) override {
        if (character_.TermsTotal == 2 && !std::exchange(failed_, true))
            throw error_;
        return dice_->Roll(count, sides);
    }
    int Draw(int n) override { return dice_->Draw(n); }

  private:
    const CharacterRecord& character_;
    Dice* dice_ = nullptr;
    Error error_;
    bool failed_ = false;
};

// Runs the program's event loop with something to do in it. Returns what it ends with.
int RunProgram(const std::function<void()>& action) {
    constexpr int kNeverEnded = 99;
    QTimer::singleShot(0, action);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [] { QCoreApplication::exit(kNeverEnded); });
    watch.start(5000);
    return QApplication::exec();
}

class MainWindow : public ::testing::Test {
  protected:
    void Tick(Option option) const { desk.Click(QString::fromUtf8(CaptionOf(option).data())); }
    // Lives a life that nobody decides: it ends with the first term.
    void LiveShortly() {
        Tick(Option::AutomaticGeneration);
        robot.ThenKey("KVNEndTerm", Qt::Key_3).ThenKey("KVNMuster", Qt::Key_4);
        desk.Click("startCareer");
    }
    bool SetUpEnabled() const {
        const bool enabled = desk.Get<QPushButton>("startCareer").isEnabled();
        for (const auto* const name : {"race", "career", "assignment", "roll", "true2D", "roll3Drop1"})
            EXPECT_EQ(desk.Get<QWidget>(name).isEnabled(), enabled) << name;
        return enabled;
    }
    bool IsBlank() const { return session.character.TermsTotal == 0 && session.character.Skills.Held().empty(); }

    test::Desk desk{HeldPath(KORVANE_RULES)};
    Session& session = desk.session;
    KVNGen& window = desk.window;
    test::Robot robot;
};

TEST_F(MainWindow, CombosLoadWhatIsChosen) {
    const Lines before = desk.Shown("characteristics");
    test::ChooseInCombo(desk.Get<QComboBox>("career"), "Scout");
    EXPECT_EQ(session.selection.career, "Scout");
    EXPECT_EQ(session.selection.assignment, "Courier");
    EXPECT_EQ(desk.Get<QComboBox>("assignment").currentText(), "Courier");
    test::ChooseInCombo(desk.Get<QComboBox>("assignment"), "Surveyor");
    EXPECT_EQ(session.selection.assignment, "Surveyor");
    EXPECT_EQ(desk.Get<QLabel>("rank").text().toStdString(), RankLabel(session.character, session.assignment));
    EXPECT_EQ(desk.Shown("characteristics"), before) << "the character stays";
    test::ChooseInCombo(desk.Get<QComboBox>("race"), "Imperial Human");
    EXPECT_EQ(session.selection.career, session.selection.careers->front());
    EXPECT_EQ(desk.Get<QComboBox>("career").currentText().toStdString(), session.selection.career);
    EXPECT_NE(desk.Shown("characteristics"), before) << "a race starts a new one";
}

TEST_F(MainWindow, RollAndBothMethodsStartANewCharacter) {
    const std::pair<const char*, RollingMethod> controls[] = {{"roll", RollingMethod::True2D},
                                                              {"roll3Drop1", RollingMethod::Roll3Drop1},
                                                              {"roll3Drop1", RollingMethod::Roll3Drop1},
                                                              {"roll", RollingMethod::Roll3Drop1},
                                                              {"true2D", RollingMethod::True2D}};
    for (const auto& [control, method] : controls) {
        const auto before = desk.Shown("characteristics");
        session.character.TermsTotal = 3;
        desk.Click(control);
        EXPECT_TRUE(IsBlank());
        EXPECT_EQ(session.method, method);
        EXPECT_NE(desk.Shown("characteristics"), before) << control;
        EXPECT_EQ(desk.Shown("characteristics"), CharacteristicLines(session.character));
    }
}

TEST_F(MainWindow, ControlsAreLockedWhileACareerRuns) {
    EXPECT_TRUE(SetUpEnabled());
    Tick(Option::AutomaticGeneration);
    robot
        .Then("KVNEndTerm",
              [this](QWidget& dialog) {
                  EXPECT_FALSE(SetUpEnabled());
                  EXPECT_TRUE(desk.Shows("history", "-- Term 1 --")) << "the window shows what has happened";
                  EXPECT_TRUE(desk.Get<QLabel>("age").text().endsWith(" 2 terms total"));
                  PressKey(dialog, Qt::Key_Escape);
              })
        .ThenMessage("Scrap this character?", QMessageBox::Yes);
    desk.Click("startCareer");
    EXPECT_TRUE(SetUpEnabled());
    EXPECT_TRUE(IsBlank()) << "the next character";
}

TEST_F(MainWindow, FinishedCharacterStaysInViewAndCanBeSorted) {
    CharacterRecord finished;
    window.characterFinished = [&] {
        finished = session.character;
        return false;
    };
    LiveShortly();
    EXPECT_TRUE(IsBlank());
    const auto lines = finished.History.lines();
    EXPECT_EQ(desk.Shown("history"), Lines(lines.begin(), lines.end()));
    EXPECT_EQ(desk.Shown("skills"), SkillLines(finished, false));
    EXPECT_EQ(desk.Shown("characteristics"), CharacteristicLines(session.character)) << "already the next one's";
    EXPECT_EQ(desk.Get<QLabel>("age").text().toStdString(), AgeLabel(finished))
        << "all but the set-up is the last one's";
    EXPECT_TRUE(desk.Get<QLabel>("heading").text().startsWith("Finished: Imperial Human, "));
    int exported = 0;
    window.exportAgain = [&] { exported += session.character.History.size() == finished.History.size() ? 1 : 0; };
    const auto actions = window.findChildren<QAction*>();
    (*std::ranges::find(actions, "&Export...", &QAction::text))->trigger();
    EXPECT_EQ(exported, 1) << "still exportable";
    EXPECT_TRUE(IsBlank());
    const auto open = "Still to decide: " + QString::fromStdString(OpenPointsLine(finished));
    EXPECT_TRUE(test::Child<QLabel>(window, "status").text().contains(open)) << OpenPointsLine(finished);
    desk.Click("roll");
    Tick(Option::SortSkillsByValue);
    EXPECT_EQ(desk.Shown("skills"), SkillLines(finished, true)) << "still there";
    EXPECT_NE(SkillLines(finished, true), SkillLines(finished, false)) << "nothing is tried otherwise";
    desk.Click("scrapAndRestart");
    EXPECT_TRUE(desk.Shown("history").empty() && desk.Shown("skills").empty());
    EXPECT_EQ(desk.Shown("details"), DetailLines(session.character));
    EXPECT_TRUE(IsBlank() && SetUpEnabled());
}

TEST_F(MainWindow, HistoryShowsItsNewestLineAndWrapsLongOnes) {
    window.resize(1024, 700);
    for (int i = 0; i < 90; ++i)
        session.character.History.Add("A line of the history");
    std::string last = "The last line";
    for (int i = 0; i < 60; ++i)
        last += " and on";
    session.character.History.Add(last);
    window.display().HistoryChanged();
    window.Refresh();
    const auto& history = desk.Get<ui::CopyList>("history");
    const auto newest_in_view = [&] {
        const auto rect = history.visualItemRect(history.item(history.count() - 1));
        return rect.bottom() <= history.viewport()->height() && rect.height() > 2 * history.sizeHintForRow(0);
    };
    EXPECT_TRUE(QTest::qWaitFor(newest_in_view, 2000));
    EXPECT_LE(history.visualItemRect(history.item(90)).width(), history.viewport()->width());
    EXPECT_FALSE(history.horizontalScrollBar()->isVisible());
}

TEST_F(MainWindow, CopyTakesTheMarkedLinesOrAll) {
    session.character.History.Add("-- Term 1 --");
    session.character.History.Add("Enlist Scout Courier");
    session.character.History.Add("Admin-0");
    window.display().HistoryChanged();
    window.Refresh();
    auto& history = desk.Get<ui::CopyList>("history");
    history.setFocus();
    PressKey(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "-- Term 1 --\nEnlist Scout Courier\nAdmin-0");
    test::RealClick(*history.viewport(), history.visualItemRect(history.item(1)).center());
    PressKey(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Enlist Scout Courier");
}

TEST_F(MainWindow, RuleErrorStopsTheGenerationAlone) {
    Tick(Option::AutomaticGeneration);
    Tick(Option::ForceNoEjectionOnMishap);
    FaultyDice dice(session, RuleError(RuleError::Kind::Overflow, "the levels overflow"));
    robot.Then("QMessageBox", [](QWidget& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.text(), "the levels overflow");
        PressKey(dialog, Qt::Key_Return);
    });
    desk.Click("startCareer");
    EXPECT_TRUE(SetUpEnabled());
    EXPECT_GT(session.character.TermsTotal, 0);
    EXPECT_TRUE(desk.Shows("history", "-- Term 1 --"));
    EXPECT_EQ(desk.Shown("skills"), SkillLines(session.character, false));
    EXPECT_FALSE(desk.Shown("skills").empty());
    robot.ThenKey("KVNEndTerm", Qt::Key_4);
    desk.Click("startCareer");
    EXPECT_TRUE(IsBlank()) << "a new character was started";
}

TEST_F(MainWindow, BrokenRuleFileEndsTheProgram) {
    const test::TempFolder rules;
    rules.CopyRules();
    const test::Desk broken(rules.held());
    rules.Write("Imperial Human-Navy.ecf", "too short");
    robot.Then("QMessageBox", [&](QWidget& dialog) {
        const auto text = dynamic_cast<QMessageBox&>(dialog).text().toStdString();
        EXPECT_TRUE(text.starts_with((rules.path() / "Imperial Human-Navy.ecf:").string())) << text;
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(RunProgram([&] { test::ChooseInCombo(broken.Get<QComboBox>("career"), "Navy"); }), 1);
}

TEST_F(MainWindow, FileErrorInACareerShowsWhatThereIsOfTheCharacter) {
    Tick(Option::AutomaticGeneration);
    FaultyDice dice(session, ParseError("Army.ecf", 7, "a benefit", "nothing"));
    robot.Then("QMessageBox", [](QWidget& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_TRUE(box.text().startsWith("Army.ecf:7: "));
        EXPECT_TRUE(box.detailedText().contains("-- Term 1 --"));
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(RunProgram([&] { desk.Click("startCareer"); }), 1);
}

TEST_F(MainWindow, MenuAndCloseBoxWork) {
    robot.ThenKey("KVNAbout", Qt::Key_Return);
    PressKey(window, Qt::Key_A, Qt::AltModifier);
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(RunProgram([&] { PressKey(window, Qt::Key_E, Qt::AltModifier); }), 0);
    QApplication::setQuitOnLastWindowClosed(true);  // as in the program
    EXPECT_EQ(RunProgram([&] { window.close(); }), 0);
    QApplication::setQuitOnLastWindowClosed(false);
}

// What a screen reader says of a control. A combo box answers with its text there, so its own name counts.
std::string SpokenName(QWidget& control) {
    if (qobject_cast<QComboBox*>(&control) != nullptr)
        return control.accessibleName().toStdString();
    return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name).toStdString();
}

void ExpectNames(const QWidget& shown) {
    int controls = 0;
    for (auto* const control : shown.findChildren<QWidget*>()) {
        const bool part_of_another = qobject_cast<QAbstractItemView*>(control->parentWidget()) != nullptr ||
                                     control->objectName().startsWith("qt_") ||
                                     control->parentWidget()->inherits("QComboBoxPrivateContainer");
        if (control->focusPolicy() == Qt::NoFocus || part_of_another || !control->isVisible())
            continue;
        ++controls;
        EXPECT_FALSE(SpokenName(*control).empty())
            << test::NameOf(shown) << ": " << control->metaObject()->className() << " " << test::NameOf(*control);
    }
    EXPECT_GT(controls, 0);
}

TEST_F(MainWindow, EveryControlHasAnAccessibleName) {
    ExpectNames(window);
    auto& player = window.player();
    for (const auto* const name : {"SPICKBOX", "SLIST1", "KVNTables", "KVNEndTerm", "KVNTransfer", "KVNMuster"})
        robot.Then(name, [](QWidget& dialog) {
            ExpectNames(dialog);
            if (test::NameOf(dialog) == "KVNTransfer")
                test::RealClick(dialog, "endCareer");
            else
                PressKey(dialog, test::NameOf(dialog) == "SLIST1" ? Qt::Key_Escape : Qt::Key_1);
        });
    const std::vector<std::string_view> texts = {"Admin", ""};
    player.Choose({"Select", texts});
    player.Select({"Select", 1, 1, texts});
    TableQuestion tables;
    tables.columns[1] = {"Personal", texts};
    player.PickTable(tables);
    player.EndOfTerm({1, {}});
    player.Transfer({Names{"Army"}, {}});
    player.Muster({"Army", 1, 0, true, true, true, true, {}, {}});
    ui::KVNAbout about("About", &window);
    about.show();
    ExpectNames(about);
}

}  // namespace
}  // namespace korvane
