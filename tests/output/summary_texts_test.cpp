// The summary's texts, and the modifiers that it recomputes.

#include "output/summary_texts.h"

#include "character/summary.h"
#include "support/world.h"

namespace korvane {
namespace {

using Summary = test::World;

TEST_F(Summary, TextsShowCharacteristicsRankAgeAssociatesAndDebt) {
    character().CharacteristicCount = 4;
    character().CharacteristicName[2] = "Dx ";
    for (const auto& [slot, value] : {std::pair{2, 2}, std::pair{3, 24}, std::pair{4, 9}})
        character().Characteristic[slot] = value;
    ShowSummary(session);
    EXPECT_EQ(CharacteristicLines(character()),
              (std::vector<std::string>{"Str 7  (+0)", "Dx  2  (-2)", "End 24  (+0)", "Int 9  (+1)"}));
    session.assignment.rankTitle = {"Recruit", "Private", "", "", "", "", "Major", "Ensign"};
    const auto rank = [&](int number) {
        character().Rank = number;
        return RankLabel(character(), session.assignment);
    };
    EXPECT_EQ(rank(0) + rank(1) + rank(12), "Rank: RecruitRank: Private (E1)Rank:  (O6)");
    EXPECT_EQ(rank(6) + rank(7), "Rank: Major (E6)Rank: Ensign (O1)");
    character().Age = 34;
    character().TermsTotal = 4;
    EXPECT_EQ(AgeLabel(character()), "Age: 34 4 terms total");
    character().Allies = 1;
    character().Enemies = 2;
    character().Contacts = 3;
    character().Rivals = 4;
    EXPECT_EQ(AlliesLabel(character()) + EnemiesLabel(character()), "Allies: 1Enemies: 2");
    EXPECT_EQ(ContactsLabel(character()) + RivalsLabel(character()), "Contacts: 3Rivals: 4");
    const auto debt = [&](float amount) {
        character().MedicalDebt = amount;
        return MedicalDebtLabel(character());
    };
    EXPECT_EQ(debt(0) + debt(-5000), "Medical Debt:Medical Debt:");
    EXPECT_EQ(debt(750) + debt(1234567), "Medical Debt: Cr750Medical Debt: Cr1,234,567");
}

TEST_F(Summary, DetailsTellWhatTheLabelsDoNot) {
    character().Graduated = 2;
    character().CareersServed.Add("Army");
    character().CareersServed.Add("Scout");
    character().ParoleThreshold = 6;
    character().CommissionDM = kAutomaticSuccess;
    character().AdvancementDM = -1;
    character().Cash = 1500;
    character().Pension = 10000;
    character().Benefits.Add("Blade");
    character().HomeWorld = {"p", "s", "a", "h", "n", "l", "t"};
    EXPECT_EQ(DetailLines(character()),
              (std::vector<std::string>{"Graduated with honours", "Careers: Army, Scout",
                                        "In prison; parole threshold 6", "Next commission: succeeds",
                                        "Next advancement: -1", "Cash: Cr1,500", "Pension: Cr10,000/year",
                                        "Benefit: Blade", "Home world", "  Port: p", "  Size: s", "  Atmosphere: a",
                                        "  Hydrographics: h", "  Population: n", "  Law level: l", "  Tech level: t"}));
}

}  // namespace
}  // namespace korvane
