// The pinned signature of behaviour: a checksum of seeded lives, by all players, on the shipped rule data. It moves
// when a rule, a text or the data moves; a commit that moves it says so and why.

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>

#include "base/checksum.h"
#include "base/files.h"
#include "engine/codes/chains.h"
#include "output/character_document.h"
#include "play/life_plan.h"
#include "support/every_code_data.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

// Which rows of the chains were carried out.
class Met : public Observer {
  public:
    void CarriedOut(std::string_view chain, std::size_t row) override { rows_.emplace(chain, row); }
    std::size_t Of(const codes::Chain& chain) const {
        return static_cast<std::size_t>(
            std::ranges::count(rows_, chain.name(), [](const auto& row) { return row.first; }));
    }

  private:
    std::set<std::pair<std::string, std::size_t>> rows_;
};

std::uint64_t Signature(const HeldPath& rules, Observer* observer = nullptr) {
    Display display;
    Session session(DataFolder(rules, DataFolder::Reading::Once), {nullptr, nullptr, &display, observer});
    auto sum = kNoText;
    for (std::uint64_t number = 1; number <= 1500; ++number) {
        play::LifePlan plan;
        plan.seed = Seed(1);
        plan.player = static_cast<play::PlayerKind>(number % 3);
        const auto outcome = play::Live(session, plan, number, {});
        sum = Checksum(outcome.end ? CharacterDocument(session) : outcome.kind, sum);
    }
    return sum;
}

TEST(Signature, OfManyLives) {
    EXPECT_EQ(Signature(HeldPath(KORVANE_RULES)), 8152787381572687048U);
}

TEST(Signature, OfManyLivesOnDataThatHoldsEveryCode) {
    const test::TempFolder folder;
    test::WriteEveryCodeData(KORVANE_RULES, folder.path().string());
    Met met;
    EXPECT_EQ(Signature(folder.held(), &met), 6801004166227699739U);
    for (const auto* const chain : {&codes::MishapChain(), &codes::EventChain()})
        EXPECT_EQ(met.Of(*chain), chain->rows().size()) << "every code of " << chain->name() << "s is met";
}

}  // namespace
}  // namespace korvane
