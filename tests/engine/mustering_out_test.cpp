// The benefits of a career: the count of rolls, the dialog, and what each benefit brings.

#include "engine/mustering_out.h"

#include "engine/benefits.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;

class Mustering : public test::World {
  protected:
    Mustering() {
        session.race.specialities.clear();
        session.career.cashBenefit = {0, 1000, 2000, 3000, 4000, 5000, 6000, 70000.5};
        session.career.otherBenefit = {"", "B1", "B2", "B3", "B4", "B5", "B6", "B7"};
    }
    // Musters out, with these rolls of a die; those left at "Done" are abandoned. Gives the buttons enabled then.
    std::string MusterOutAfter(int terms, int unused, const std::vector<int>& rolls = {}) {
        for (const int roll : rolls)
            dice.Expect({Rolled(1, 6, roll)});
        player.ExpectMuster(MusterButton::Done);
        if (unused > 0)
            player.ExpectAsk(Concat("You still have ", unused, " rolls unused! Abandon them?"), true);
        character().TermsInCareer = terms;
        MusterOut(session);
        EXPECT_EQ(character().MusterRolls, unused) << "rolls left stay in the record";
        ExpectScriptsDone();
        const auto& last = player.lastMuster;
        return Concat(last.cashEnabled ? "Cash " : "", last.materialEnabled ? "Material " : "",
                      last.threeCashEnabled ? "Three " : "", last.gamblerEnabled ? "Gambler " : "");
    }
    static std::string Joined(const TextList& list) {
        std::string text;
        for (const auto& line : list.lines())
            text += line + ";";
        return text;
    }
    // Takes a benefit, which may put a question. Gives its lines, behind "*" where the first of them is recorded.
    std::string Take(const std::string& benefit, const std::string& options = "", int pick = 0,
                     const std::string& title = "Mustering Out Choice") {
        character() = start;
        session.musterResults.benefits.Clear();
        if (pick > 0)
            player.ExpectChoice(title, options, pick);
        TakeBenefit(session, benefit);
        const auto owned = Joined(character().Benefits);
        EXPECT_TRUE(owned.empty() ||
                    (owned == History().front() + ";" && owned == Joined(session.musterResults.benefits)));
        return (owned.empty() ? "" : "*") + Joined(character().History);
    }

    CharacterRecord start = character();
};

TEST_F(Mustering, RollsAndPensionFollowTheTermsOfTheCareer) {
    character().BenefitRollsModifier = 2;
    MusterOutAfter(4, 6);
    EXPECT_EQ(Concat(player.lastMuster.career, player.lastMuster.rolls, History().size()), "Army60");
    EXPECT_TRUE(player.lastAsk.icon == Icon::Warning && !player.lastAsk.defaultYes);
    character().BenefitRollsModifier = -4;
    EXPECT_EQ(MusterOutAfter(3, -1), "");
    for (int terms = 5; terms <= 14; ++terms) {
        MusterOutAfter(terms, terms);
        EXPECT_EQ(character().Pension, 1000 * (terms * (terms + 1) - 20)) << "pensions are summed";
        EXPECT_EQ(History().back(), Concat("Pension Cr", 2 * terms, ",000/year"));
    }
}

TEST_F(Mustering, ButtonsFollowTheRollsLeftAndTheCashRollsUsed) {
    player.ExpectMuster(MusterButton::Cash).ExpectMuster(MusterButton::Cash).ExpectMuster(MusterButton::Cash);
    EXPECT_EQ(MusterOutAfter(4, 1, {1, 1, 1}), "Material ");
    EXPECT_EQ(MusterOutAfter(4, 4), "Cash Material Three ") << "the limit is one for each mustering out";
    EXPECT_EQ(MusterOutAfter(3, 3), "Cash Material ");
    player.ExpectMuster(MusterButton::Done).ExpectAsk("You still have 5 rolls unused! Abandon them?", false);
    player.ExpectMuster(MusterButton::Cash);
    EXPECT_EQ(MusterOutAfter(5, 4, {1}), "Cash Material ");
    player.ExpectMuster(MusterButton::ThreeCashRestMaterial);
    EXPECT_EQ(MusterOutAfter(5, 0, {1, 2, 3, 4, 5}), "");
    EXPECT_EQ(Joined(session.musterResults.cash) + Joined(session.musterResults.benefits),
              "Cr1,000;Cr2,000;Cr3,000;B4;B5;");
    EXPECT_EQ(Concat(character().Cash, " ", History().size()), "10000 4") << "cash is not written down";
}

TEST_F(Mustering, BonusesAndGamblingRaiseARollToTheLastRowAtMost) {
    const std::string question = " bonuses of +1 for muster rolls. Add +1 to this roll?";
    Hold("Gambler", 0);
    EXPECT_EQ(MusterOutAfter(0, 0), "");
    *character().Skills.LevelOf("Gambler") = 1;
    character().MusterBonusCount = 3;
    player.ExpectMuster(MusterButton::Material, true).ExpectAsk("You have 3" + question, false);
    player.ExpectMuster(MusterButton::Material).ExpectAsk("You have 3" + question, true);
    player.ExpectMuster(MusterButton::Cash, true).ExpectAsk("You have 2" + question, true);
    player.ExpectMuster(MusterButton::Cash, true).ExpectAsk("You have 1" + question, false);
    EXPECT_EQ(MusterOutAfter(4, 0, {1, 6, 6, 2}), "Gambler ");
    EXPECT_EQ(Concat(player.lastMuster.bonuses, " ", character().Cash), "1 73000")
        << "row 7, whose half rounds to even, and row 3";
    Tick(Option::AutomaticGeneration);
    player.ExpectMuster(MusterButton::Material).ExpectMuster(MusterButton::Cash, true);
    EXPECT_EQ(MusterOutAfter(2, 0, {4, 2}), "") << "no gambling in automatic mode";
    EXPECT_EQ(Concat(character().Cash, " ", Joined(character().Benefits)), "75000 B1;B7;B5;")
        << "the last bonus was spent unasked";
    player.ExpectMuster(MusterButton::Done);  // without a question about the two rolls
    MusterOut(session);
}

TEST_F(Mustering, EachBenefitBringsItsOwn) {
    const std::string gear = "Different Scientific Equipment/Electronic-1/Science-1";
    EXPECT_EQ(Take("Education Grant") + Take("Foo +1") + Take("Int +1"), "*Education Grant;*Foo +1;Int +1;");
    EXPECT_EQ(Take("Ally") + Take("Contact"), "Ally: Mustering Out;Contact: Mustering Out;");
    EXPECT_EQ(Take("Soc +1 and Yacht"), "*Soc +1 and Yacht;Soc +1;");
    EXPECT_EQ(Take("Personal Vehicle", "Drive/Flyer", 2, "Select a Skill"), "*Personal Vehicle;Flyer-1;");
    EXPECT_EQ(Take("Scientific Equipment", gear, 1, "Select Option"), "*Scientific Equipment;");
    EXPECT_EQ(Take("Scientific Equipment", gear, 2, "Select Option"), "Electronic-1;");
    EXPECT_EQ(Take("Ship's Boat"), "*Ship's Boat;Pilot (Small Craft)-1;");
    EXPECT_EQ(Take("Deception, Persuade or Stealth", "Deception/Persuade/Stealth", 2), "Persuade-1;");
    EXPECT_EQ(Take("Melee, Recon or Streetwise", "Melee/Recon/Streetwise", 3), "Streetwise-1;");
    EXPECT_TRUE(session.musterResults.benefits.lines().back().ends_with(" (added)"));
    EXPECT_EQ(Take("Deception, Persuade and Stealth"), "Deception-1;Persuade-1;Stealth-1;");
    EXPECT_TRUE(session.musterResults.benefits.lines().back().ends_with(" (all added)"));
    EXPECT_EQ(Take("Personal Vehicle or Ship Share", "Personal Vehicle/Ship Share", 2), "*Ship Share;");
    EXPECT_EQ(Take("Edu +1 or Two Ship Shares", "Edu +1/Two Ship Shares", 1), "Edu +1;");
    EXPECT_EQ(Take("Ship's Boat or Two Ship Shares", "Ship's Boat/Two Ship Shares", 1),
              "*Ship's Boat;Pilot (Small Craft)-1;");
    EXPECT_EQ(Take("Armour or End +1", "End +1/Armour", 2), "*Armour;");
    EXPECT_EQ(Take("Combat Implant or End +1", "End +1/Combat Implant", 1), "End +1;");
    EXPECT_EQ(Take("Soc +1 or Combat Implant", "Soc +1/Combat Implant", 2), "*Combat Implant;");
    dice.Expect({Rolled(1, 6, 4), Rolled(2, 6, 9), test::Drawn(2, 0)});
    EXPECT_EQ(Take("1D Ship Shares"), "*4 Ship Shares;");
    EXPECT_EQ(Take("2D Ship Shares"), "*9 Ship Shares;");
    Tick(Option::AutomaticGeneration);
    EXPECT_EQ(Take("Armour or End +1"), "End +1;") << "a drawn answer is the alternative that was drawn";
}

}  // namespace
}  // namespace korvane
