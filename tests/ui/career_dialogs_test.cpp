// The dialogs of a career: the skill tables, the end of a term, the transfer and mustering out.

#include <QCheckBox>
#include <QLabel>
#include <QTreeWidget>
#include <array>
#include <functional>
#include <map>

#include "base/error.h"
#include "support_ui/dialog_stage.h"
#include "ui/copy_list.h"

namespace korvane {
namespace {

using test::Captions;
using test::Child;
using test::PressKey;
using test::RealClick;
using ui::CopyList;

class CareerDialogs : public test::DialogStage {
  protected:
    int PickTable() { return player.PickTable(tables); }
    Options EndOfTerm(const Options& options) { return player.EndOfTerm({2, options}).options; }
    std::optional<TransferAnswer> Transfer() {
        return player.Transfer({careers, [this](std::string_view career) { return AssignmentsOf(career); },
                                [](std::string_view career) { return "What " + std::string(career) + " do"; }});
    }
    std::shared_ptr<const Names> AssignmentsOf(std::string_view career) const {
        if (career == "Broken")
            throw ParseError("Broken.ecf", 3, "a career", "nothing");
        return std::make_shared<const Names>(Names{std::string(career) + " One", std::string(career) + " Two"});
    }

    const std::vector<std::string_view> rows = {"Str +1", "Admin", "Art or Drive", "R&D", "", "Stealth"};
    const TableQuestion tables{"Select a skill from the above tables",
                               {{{},
                                 {"Personal", rows},
                                 {"Service", rows},
                                 {"Advanced Edu 8+", rows, false},
                                 {"Officer", {}, false},
                                 {"R&D Corps", rows},
                                 {"", {}, false}}}};
    const Names careers = {"Army", "Broken", "Scout"};
};

TEST_F(CareerDialogs, EndOfTermMirrorsEveryBoxAtOnce) {
    session.character.Skills.Take("Admin", 0);
    session.character.Skills.Take("Medic", 3);
    session.character.History.Add("-- Term 1 --");
    player.optionsChanged = [this](const Options& options) { session.options = options; };
    Options before;
    before.Set(Option::ForcePromote);
    session.options = before;
    robot.Then("KVNEndTerm", [this](QWidget& dialog) {
        EXPECT_EQ(Child<QLabel>(dialog, "heading").text(), "End of Term Options");
        EXPECT_EQ(Captions(dialog),
                  (QStringList{"Re-Enlist", "Transfer && Re-Enlist", "Muster Out", "Scrap and Restart"}));
        EXPECT_EQ(Child<CopyList>(dialog, "history").Lines(), QStringList{"-- Term 1 --"});
        EXPECT_EQ(Child<CopyList>(dialog, "skills").Lines(), (QStringList{"Admin-0", "Medic-3"}));
        for (std::size_t i = 0; i < kOptionCaptions.size(); ++i) {
            const auto option = static_cast<Option>(i);
            const auto caption = QString::fromUtf8(kOptionCaptions.at(i).data());
            EXPECT_EQ(Child<QCheckBox>(dialog, caption).text(), caption);
            EXPECT_EQ(Child<QCheckBox>(dialog, caption).isChecked(), option == Option::ForcePromote);
            RealClick(dialog, caption);
            EXPECT_EQ(session.options[option], option != Option::ForcePromote) << caption.toStdString();
        }
        EXPECT_EQ(Child<CopyList>(dialog, "skills").Lines(), (QStringList{"Medic-3", "Admin-0"}));
        PressKey(dialog, Qt::Key_1);
    });
    EXPECT_EQ(EndOfTerm(before), session.options) << "as the boxes stood in the end";
}

TEST_F(CareerDialogs, TransferNeedsACareerToAccept) {
    session.character.TermsInCareer = 3;
    session.character.BenefitRollsModifier = 2;
    robot.Then("KVNTransfer", [](QWidget& dialog) {
        const auto cost = Child<QLabel>(dialog, "cost").text();
        EXPECT_TRUE(cost.contains("the benefit rolls of this career (3)")) << "what events added goes along";
        RealClick(dialog, "endCareer");
    });
    EXPECT_FALSE(Transfer());
    robot.Then("KVNTransfer", [](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Korvane on trial");
        EXPECT_EQ(Child<QLabel>(dialog, "heading").text(), "Select Transfer Career and Assignment");
        EXPECT_EQ(Child<QLabel>(dialog, "notice").text(),
                  "Your character either has to move jobs or end his career and muster out. Select a new Career and "
                  "Assignment.");
        EXPECT_FALSE(Child<QPushButton>(dialog, "accept").isEnabled());
        auto& assignment = Child<QComboBox>(dialog, "assignment");
        EXPECT_FALSE(assignment.isEnabled());
        test::ChooseInCombo(Child<QComboBox>(dialog, "career"), "Scout");
        EXPECT_EQ(assignment.currentText(), "") << "none is chosen yet";
        EXPECT_EQ(Child<QLabel>(dialog, "description").text(), "What Scout do");
        test::ChooseInCombo(assignment, "Scout Two");
        RealClick(dialog, "accept");
    });
    const auto chosen = Transfer();
    EXPECT_EQ(chosen->career + "/" + chosen->assignment, "Scout/Scout Two");
    robot.Then("KVNTransfer", [](QWidget& dialog) {
        EXPECT_FALSE(Child<QPushButton>(dialog, "accept").isEnabled()) << "the last choice is forgotten";
        test::ChooseInCombo(Child<QComboBox>(dialog, "career"), "Army");
        RealClick(dialog, "accept");
    });
    const auto without = Transfer();
    EXPECT_EQ(without->career + "/" + without->assignment, "Army/");
    robot.Then("KVNTransfer",
               [](QWidget& dialog) { test::ChooseInCombo(Child<QComboBox>(dialog, "career"), "Broken"); });
    EXPECT_THROW(Transfer(), FileError);
}

TEST_F(CareerDialogs, MusteringOutStaysOpenBetweenItsPresses) {
    const auto muster = [&] { return Child<QWidget>(window, "KVNMuster").isVisible(); };
    MusterQuestion question{"Army", 3, 2, true, true, false, true, {}, {}};
    robot.Then("KVNMuster", [](QWidget& dialog) {
        EXPECT_EQ(Child<QLabel>(dialog, "rolls").text(), "Muster Out for Army 3 rolls remaining");
        EXPECT_EQ(Child<QLabel>(dialog, "bonuses").text(), "2 times you can add +1");
        EXPECT_EQ(Captions(dialog), (QStringList{"Cash", "Material", "3 Cash, rest Material", "Done"}));
        EXPECT_FALSE(Child<QPushButton>(dialog, "threeCash").isEnabled());
        EXPECT_EQ(Child<QCheckBox>(dialog, "gambler").text(), "Use Gambler?");
        RealClick(dialog, "gambler");
        PressKey(dialog, Qt::Key_3);
        PressKey(dialog, Qt::Key_1);
    });
    auto press = player.Muster(question);
    EXPECT_EQ(press.button, MusterButton::Cash);
    EXPECT_TRUE(press.gambler);
    EXPECT_TRUE(muster());
    session.character.History.Add("Contact: Mustering Out");
    const std::vector<std::string> cash = {"Cr5,000"};
    const std::vector<std::string> benefits = {"Scout Ship", "Crystal Skull"};
    question.rolls = 0;
    question.gamblerEnabled = question.cashEnabled = question.materialEnabled = false;
    question.cash = cash;
    question.benefits = benefits;
    robot.Then("KVNMuster", [](QWidget& dialog) {
        EXPECT_EQ(Child<CopyList>(dialog, "cashResults").Lines(), QStringList{"Cr5,000"});
        EXPECT_EQ(Child<CopyList>(dialog, "materialResults").Lines(), (QStringList{"Scout Ship", "Crystal Skull"}));
        EXPECT_EQ(Child<CopyList>(dialog, "historyResults").Lines(), QStringList{"Contact: Mustering Out"});
        EXPECT_FALSE(Child<QCheckBox>(dialog, "gambler").isEnabled());
        PressKey(dialog, Qt::Key_Escape);
    });
    press = player.Muster(question);
    EXPECT_EQ(press.button, MusterButton::Done);
    EXPECT_FALSE(press.gambler) << "not without the skill";
    EXPECT_FALSE(muster());
    question.cashEnabled = true;
    robot.ThenKey("KVNMuster", Qt::Key_1);
    player.Muster(question);
    player.Finish();  // as an error in a benefit does
    EXPECT_FALSE(muster());
}

TEST_F(CareerDialogs, ANoToAbandoningRollsKeepsTheDialogAsItWas) {
    const MusterQuestion question{"Army", 1, 0, true, true, false, true, {}, {}};
    robot.Then("KVNMuster", [](QWidget& dialog) {
        RealClick(dialog, "gambler");
        RealClick(dialog, "done");
    });
    robot.Then("QMessageBox", [&](QWidget& dialog) {
        EXPECT_TRUE(Child<QWidget>(window, "KVNMuster").isVisible());
        PressKey(dialog, Qt::Key_Return);
    });
    robot.Then("KVNMuster", [](QWidget& dialog) {
        EXPECT_TRUE(Child<QCheckBox>(dialog, "gambler").isChecked());
        dialog.close();
    });
    EXPECT_EQ(player.Muster(question).button, MusterButton::Done);
    EXPECT_FALSE(player.Ask({"Abandon?", {}, Icon::Warning, false}));
    EXPECT_EQ(player.Muster(question).button, MusterButton::Done);
    robot.ThenMessage("Abandon?", QMessageBox::Yes);
    EXPECT_TRUE(player.Ask({"Abandon?", {}, Icon::Warning, false}));
    EXPECT_FALSE(Child<QWidget>(window, "KVNMuster").isVisible());
}

TEST_F(CareerDialogs, TheTablesLeaveOutWhatIsNeverThere) {
    robot.Then("KVNTables", [](QWidget& dialog) {
        EXPECT_FALSE(Child<QWidget>(dialog, "table6").isVisible() || Child<QWidget>(dialog, "rows6").isVisible());
        EXPECT_TRUE(Child<QWidget>(dialog, "table4").isVisible()) << "not yet an officer";
        const auto& second = *Child<CopyList>(dialog, "rows1").item(1);
        EXPECT_EQ(second.text() + "/" + second.data(Qt::AccessibleTextRole).toString(), "Admin/2: Admin");
        PressKey(dialog, Qt::Key_6);
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_5);
    });
    EXPECT_EQ(PickTable(), 5);
}

TEST_F(CareerDialogs, MusteringOutShowsWhatItsRollsAreWorth) {
    session.career.cashLine.at(7) = "40000";
    session.career.otherBenefit.at(7) = "A Moon";
    MusterQuestion question{"Army", 3, 0, true, true, false, false, {}, {}};
    const auto expect = [&](const QString& modifiers) {
        robot.Then("KVNMuster", [modifiers](QWidget& dialog) {
            const auto& last = *Child<QTreeWidget>(dialog, "table").topLevelItem(6);
            EXPECT_EQ(last.text(0) + "/" + last.text(1) + "/" + last.text(2), "7/Cr40000/A Moon");
            EXPECT_TRUE(Child<QLabel>(dialog, "modifiers").text().contains(modifiers)) << modifiers.toStdString();
            EXPECT_EQ(Child<QLabel>(dialog, "forfeit").text(), "Leaving now forfeits 3 benefit rolls.");
            PressKey(dialog, Qt::Key_1);
        });
        player.Muster(question);
    };
    expect("7 can't be reached");
    question.bonuses = 2;
    question.gamblerEnabled = true;
    expect("Gambler: +1 to cash. Cash rolls: 0 of 3 used.");
    player.Finish();
}

TEST_F(CareerDialogs, ClosingAQuestionAsksForTheScrapping) {
    const std::map<std::string, std::function<void()>> questions = {
        {"SPICKBOX",
         [this] {
             player.Choose({"Select", rows});
         }},
        {"KVNTables", [this] { PickTable(); }},
        {"KVNEndTerm", [this] { EndOfTerm({}); }},
        {"KVNTransfer", [this] { Transfer(); }},
    };
    for (const auto& [name, question] : questions) {
        SCOPED_TRACE(name);
        robot.ThenKey(name, Qt::Key_Escape)
            .ThenKey("QMessageBox", Qt::Key_Return)  // No is the default
            .ThenKey(name, Qt::Key_Escape)
            .ThenKey("QMessageBox", Qt::Key_Escape)
            .Then(name, [](QWidget& dialog) { dialog.close(); })
            .ThenMessage("Scrap this character?", QMessageBox::Yes);
        EXPECT_THROW(question(), CharacterScrapped);
    }
}

}  // namespace
}  // namespace korvane
