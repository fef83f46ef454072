// The change of career.

#include "engine/transfer.h"

#include "support/world.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;
using Transfer = test::World;

TEST_F(Transfer, AcceptingMovesUnrankedIntoTheCareerAndKeepsTheRest) {
    auto& c = character();
    c.TermsTotal = 6;
    c.TermsInCareer = c.MusterRolls = 5;
    c.Rank = 9;
    c.Commissioned = c.BenefitRollsModifier = c.ParoleThreshold = 1;
    player.ExpectTransfer("Navy", "Line Crew").ExpectTransfer("Drifter", "Stowaway");
    EXPECT_EQ(TransferCareer(session), TransferOutcome::Accepted);
    EXPECT_EQ(Concat(c.TermsInCareer, c.Rank, c.TermsTotal, c.Commissioned, c.ParoleThreshold), "00611");
    EXPECT_EQ(Concat(c.MusterRolls, c.BenefitRollsModifier), "51") << "nothing is mustered out";
    EXPECT_EQ(Concat(session.career.qualification, " ", session.assignment.survival), "Edu 6+ End 5+");
    TransferCareer(session);
    EXPECT_EQ(Lines(c.CareersServed.lines().begin(), c.CareersServed.lines().end()), (Lines{"Navy"}));
    EXPECT_EQ(History(), (Lines{"Transfer to Navy Line Crew", "Transfer to Drifter Stowaway"}));
}

TEST_F(Transfer, NamesThatTheMainListDoesNotHoldLeaveTheFirstAssignment) {
    player.ExpectTransfer("Army", "Quarters").ExpectTransfer("Navy", "");
    TransferCareer(session);
    EXPECT_EQ(session.selection.assignment, "Cavalry");
    EXPECT_EQ(session.assignment.survival, "Int 6+");
    TransferCareer(session);
    EXPECT_EQ(session.selection.assignment, "Engineer Gunner");
    EXPECT_EQ(History(), (Lines{"Transfer to Army Quarters", "Transfer to Navy "}));
}

TEST_F(Transfer, EndingTheCareerMustersOutOfItOnce) {
    character().TermsInCareer = character().Rank = 5;
    player.ExpectEndCareer().ExpectMuster(MusterButton::Done);
    player.ExpectAsk("You still have 5 rolls unused! Abandon them?", true);
    EXPECT_EQ(TransferCareer(session), TransferOutcome::Muster);
    EXPECT_EQ(player.lastMuster.career, "Army");
    EXPECT_EQ(History(), (Lines{"Pension Cr10,000/year"}));
}

}  // namespace
}  // namespace korvane
