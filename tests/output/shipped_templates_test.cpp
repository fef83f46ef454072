// The templates that come with the program, filled for whole lives.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "base/files.h"
#include "base/text.h"
#include "character/characteristics.h"
#include "engine/term_loop.h"
#include "output/page_export.h"
#include "play/life.h"
#include "play/players.h"

namespace korvane {
namespace {

const HeldPath kRules = EnsureTrailingBackslash(HeldPath(KORVANE_SHIPPED_RULES));

// The tags of a line: bars around capitals and digits, with a "*" perhaps.
std::set<std::string> TagsOf(std::string_view line) {
    std::set<std::string> tags;
    for (auto open = line.find('|'); open != std::string_view::npos; open = line.find('|', open + 1)) {
        const auto close = line.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789*", open + 1);
        if (close != std::string_view::npos && line[close] == '|' && close > open + 1)
            tags.emplace(line.substr(open, close + 1 - open));
    }
    return tags;
}

TEST(ShippedTemplates, LeaveNoTagVisible) {
    Display display;
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        SeededDice dice(seed, 1);
        Session session(DataFolder(kRules), {&dice, nullptr, &display});
        play::PolicyPlayer player(session, RandomStream(seed), 9);
        session.seams.player = &player;
        session.masterSkills = LoadMasterSkills(kRules);
        session.options.Set(Option::AutomaticGeneration);
        const auto careers = *session.data.CareerNames("Imperial Human");
        const auto& career = careers[seed % careers.size()];
        play::Select(session, "Imperial Human", career,
                     session.data.AssignmentNames("Imperial Human", career)->front());
        StartNewCharacter(session);
        ASSERT_EQ(RunLife(session), LifeEnd::MusteredOut);
        for (const auto& name : TemplateNames(kRules))
            for (const auto& line : FillTemplate(ReadTemplate(kRules + name).lines, session, "Jo"))
                EXPECT_EQ(TagsOf(line), std::set<std::string>()) << name << ": " << line;
    }
}

}  // namespace
}  // namespace korvane
