// The page of the balance: what it says of figures.

#include "cli/balance_page.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace korvane::cli {
namespace {

TEST(BalancePage, JudgesGoalsByTheFiguresAndTellsThoseOfEachMiss) {
    play::RaceFigures race{"Aslan", {}, {}, 121, {}};
    auto& calm = race.places[{"Army", "Support"}];
    auto& wild = race.places[{"Army", "Infantry"}];
    calm.fails = {100, 20};
    wild.fails = {100, 46};
    wild.cash.Add(1000);
    for (const int modifier : {-1, 1})
        calm.failsBy[modifier] = {200, modifier < 0 ? 60U : 20U};  // ten points a step
    const test::TempFolder folder;
    BalanceCommand command;
    command.outFolder = folder.path().string();
    WriteBalancePage(command, {race});
    const auto page = folder.Read("balance.md");
    for (const auto* const line :
         {"| each assignment fails 10 % to 45 % of its terms | **not met** | 1 of 2 assignments |",
          "- **Aslan** Army, Infantry: 46.0 %\n", "- **Aslan** Army, Infantry: -\n",
          "| no assignment is in all figures as good as another of its career, or better | met | 2 of 2 assignments |",
          "| Aslan: nobody passes 120 years | **not met** | the oldest has 121 |"})
        EXPECT_NE(page.find(line), std::string::npos) << line << page;
    EXPECT_EQ(page.find("nine in ten"), std::string::npos) << "nobody was in prison";
    EXPECT_EQ(page.find("pairs"), std::string::npos) << "there is one career";
}

}  // namespace
}  // namespace korvane::cli
