// The pinned signature of behaviour: a checksum of a thousand seeded lives on the shipped rule data. It moves when a
// rule, a text or the data moves; a commit that moves it says so and why.

#include <cstdint>
#include <gtest/gtest.h>

#include "base/checksum.h"
#include "base/files.h"
#include "output/character_document.h"
#include "play/life_plan.h"
#include "support/every_code_data.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

std::uint64_t Signature(const HeldPath& rules) {
    Display display;
    Session session(DataFolder(rules, DataFolder::Reading::Once), {nullptr, nullptr, &display});
    auto sum = kNoText;
    for (std::uint64_t number = 1; number <= 1000; ++number) {
        play::LifePlan plan;
        plan.seed = 1;
        plan.player = number % 2 == 0 ? play::PlayerKind::Automatic : play::PlayerKind::Random;
        const auto outcome = play::Live(session, plan, number, {});
        sum = Checksum(outcome.end ? CharacterDocument(session) : outcome.kind, sum);
    }
    return sum;
}

TEST(Signature, OfAThousandLives) {
    EXPECT_EQ(Signature(HeldPath(KORVANE_RULES)), 9812283495186683557U);
}

TEST(Signature, OfAThousandLivesOnDataThatHoldsEveryCode) {
    const test::TempFolder folder;
    test::WriteEveryCodeData(KORVANE_RULES, folder.path().string());
    EXPECT_EQ(Signature(folder.held()), 10939475264914312947U);
}

}  // namespace
}  // namespace korvane
