// The pinned signature of behaviour: a checksum of a thousand seeded lives on the shipped rule data. It moves when a
// rule, a text or the data moves; a commit that moves it says so and why.

#include <cstdint>
#include <gtest/gtest.h>

#include "base/files.h"
#include "cli/lives.h"
#include "output/character_document.h"

namespace korvane {
namespace {

std::uint64_t Checksum(std::uint64_t sum, std::string_view text) {
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return sum;
}

TEST(Signature, OfAThousandLives) {
    Display display;
    Session session(DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display});
    std::uint64_t sum = 0xCBF29CE484222325U;
    for (std::uint64_t number = 1; number <= 1000; ++number) {
        cli::LifePlan plan;
        plan.seed = 1;
        plan.player = number % 2 == 0 ? cli::PlayerKind::Automatic : cli::PlayerKind::Random;
        const auto outcome = cli::Live(session, plan, number, nullptr);
        sum = Checksum(sum, outcome.end ? CharacterDocument(session) : outcome.error);
    }
    EXPECT_EQ(sum, 9812283495186683557U);
}

}  // namespace
}  // namespace korvane
