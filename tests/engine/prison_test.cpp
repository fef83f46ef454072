// Prison: the way in, the terms there, and the ways out.

#include "engine/prison.h"

#include "engine/code_cases.h"
#include "engine/term_loop.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

using test::Rolled;
constexpr test::Die kQuietPrison{2, 6, 7}, kEndurePrison{2, 6, 12};

// Plain tables in every career. The army pays 4500 a roll, prison 1.
class Prison : public test::World, public Display {
  protected:
    Prison() {
        session.seams.display = this;
        SelectionChanged();
        session.career.cashBenefit[3] = 4500;
    }
    void SelectionChanged() override {
        session.career.personalTable.fill("Admin");
        session.career.mishapTable[1] = "Caught/IMPRISON";
        session.career.eventTable = {"",         "", "", "", "", "", "Out/PRIESCAPE", "Quiet", "Convicted/IMPRISON",
                                     "Disaster!"};
        session.career.cashBenefit.fill(1);
        session.assignment.rankTitle.fill("Title");
        session.assignment.rankBonus.fill("-");
    }
    // An arrest on which a number of rolls is spent.
    void ExpectArrest(int rolls, int threshold) {
        player.ExpectTell(test::kPrisonNotice);
        for (; rolls > 0; --rolls) {
            player.ExpectMuster(MusterButton::Cash);
            dice.Expect({Rolled(1, 6, 3)});
        }
        player.ExpectMuster(MusterButton::Done);
        dice.Expect({Rolled(1, 6, threshold - 4)});
    }
    void ExpectTerm(const std::vector<test::Die>& rolls) {
        player.ExpectTable(1);
        dice.Expect({Rolled(1, 6, 1)});
        dice.Expect(rolls);
    }
    std::string Place() const { return session.selection.career + " " + session.selection.assignment; }
};

TEST_F(Prison, LeavesTheSelectionWhereTheListsDoNotHoldIt) {
    session.selection.careers = std::make_shared<const Names>(Names{"Army", "prisoner"});
    character().TermsInCareer = 5;
    character().BenefitRollsModifier = -4;
    ExpectArrest(1, 7);
    Imprison(session);
    EXPECT_EQ(player.lastNoticeIcon, Icon::None);
    EXPECT_EQ(test::Joined(History()), "Pension Cr10,000/year | Imprisoned; parole threshold 7");
    EXPECT_EQ(Concat(Place(), " ", character().ParoleThreshold), "Army Infantry 7");
    const test::TempFolder folder;
    folder.CopyRules();
    const auto file = (folder.path() / "Imperial Human-Prisoner-").string();
    std::filesystem::copy(file + "Inmate.eas", file + "Convict.eas");
    session.data = DataFolder(folder.held());
    session.selection.careers = session.data.CareerNames("Imperial Human");
    for (const auto place : {"Prisoner Inmate", "Prisoner Convict"}) {
        ExpectArrest(0, 7);
        Imprison(session);
        EXPECT_EQ(Place(), place);
        std::filesystem::remove(file + "Inmate.eas");
    }
}

TEST_F(Prison, HoldsUntilTheParoleRollOrAnEscape) {
    Hold("Stealth", 1);
    player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Military Academy", 1);
    dice.Expect({Rolled(2, 6, 12)});
    ExpectTerm({kEndurePrison, Rolled(2, 6, 8)});
    ExpectArrest(2, 8);
    dice.Expect({Rolled(2, 6, 8)});
    player.ExpectTell("Parole roll failed. You remain in prison");
    ExpectTerm({kEndurePrison, kQuietPrison, Rolled(2, 6, 9)});
    player.ExpectTell("Released from prison").ExpectTransfer("Navy", "Flight");
    player.ExpectEndOfTerm(EndOfTermChoice::ReEnlist);
    // A mishap; the term goes on in prison.
    ExpectTerm({Rolled(2, 6, 2), Rolled(1, 6, 1)});
    ExpectArrest(1, 9);
    dice.Expect({kQuietPrison, Rolled(2, 6, 9)});
    player.ExpectTell("Parole roll failed. You remain in prison");
    // After an escape the prisoner is promoted like anyone.
    ExpectTerm({kEndurePrison, Rolled(2, 6, 6), Rolled(2, 6, 9), Rolled(2, 6, 12)});
    player.ExpectTell("You have the opportunity to escape the prison. Do you try?");
    player.ExpectEndOfTerm(EndOfTermChoice::Scrap);
    EXPECT_EQ(RunLife(session), LifeEnd::Scrapped);
    const auto lines = test::Joined(History());
    EXPECT_EQ(lines.substr(lines.find("------ Term 2")),
              "------ Term 2 ------ | Admin-1 | Convicted | Imprisoned; parole threshold 8 | "
              "------ Term 3 ------ | Admin-2 | Quiet | Released! | Transfer to Navy Flight | "
              "------ Term 4 ------ | Admin-3 | Caught | Imprisoned; parole threshold 9 | Quiet | "
              "------ Term 5 ------ | Admin-4 | Out | You attempt an escape | You escape! | Promoted to Title");
    EXPECT_EQ(player.lastNoticeIcon, Icon::Question);
    const auto& c = character();
    EXPECT_EQ(
        Concat(c.TermsTotal, " ", c.TermsInCareer, " ", c.ParoleThreshold, " ", c.Cash, " ", c.CareersServed.size()),
        "5 1 -10 9001 2");
}

TEST_F(Prison, CostsNoBenefitRollAfterADisaster) {
    character().MusterRolls = 5;
    character().TermsInCareer = 2;
    dice.Expect({Rolled(2, 6, 9), Rolled(1, 6, 1)});
    ExpectArrest(2, 6);
    RollCareerEvent(session);
    EXPECT_EQ(Concat(character().MusterRolls, " ", character().LeaveCareer, " ", Place()), "5 0 Prisoner Inmate");
}

}  // namespace
}  // namespace korvane
