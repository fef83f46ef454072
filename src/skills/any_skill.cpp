#include "skills/any_skill.h"

#include <array>
#include <string_view>

#include "skills/grant.h"
#include "skills/list_choice.h"

namespace korvane {

namespace {

constexpr std::array<std::string_view, 38> kBasicSkills = {
    "Admin",      "Advocate",   "Animals",    "Art",      "Astrogation",   "Athletics",   "Broker",
    "Carouse",    "Deception",  "Diplomat",   "Drive",    "Electronics",   "Engineer",    "Explosives",
    "Flyer",      "Gambler",    "Gun Combat", "Gunner",   "Heavy Weapons", "Investigate", "Jack of all Trades",
    "Language",   "Leadership", "Mechanic",   "Medic",    "Melee",         "Navigation",  "Persuade",
    "Profession", "Recon",      "Science",    "Seafarer", "Stealth",       "Steward",     "Streetwise",
    "Survival",   "Tactics",    "Vacc Suit"};

// The automatic selection draws as if it chose and then marks the first item all the same.
ListMarks DrawAnySkills(Session& session, int count, const ListItems& items) {
    ListMarks marks;
    if (count == 1)
        session.seams.dice->Draw(items.size());
    for (int round = 0; count > 1 && round < count; ++round) {
        const auto roll = [&] { return static_cast<std::size_t>(Roll(session, 1, items.size()) - 1); };
        int tries = 1;
        for (auto item = roll(); marks[item]; item = roll())
            if (++tries == 100)
                Tell(session, "100 fails to pick a skill");
        marks.set(0);
    }
    if (count == 1)
        marks.set(0);
    return marks;
}

enum class WhenAutomatic { Draw, AskAllTheSame };

// What is picked of the basic skills, in the list's order.
std::vector<std::string_view> PickBasicSkills(Session& session, int count, WhenAutomatic mode) {
    const ListItems items(kBasicSkills);
    const auto prompt = count == 1 ? std::string("Select Any Skill") : Concat("Select Any ", count, " Skills");
    const auto marks = session.Automatic() && mode == WhenAutomatic::Draw
                           ? DrawAnySkills(session, count, items)
                           : AskForItems(session, count, count, prompt, items);
    std::vector<std::string_view> picked;
    for (std::size_t i = 0; i < items.texts().size(); ++i)
        if (marks[i])
            picked.push_back(items.texts()[i]);
    return picked;
}

}  // namespace

std::span<const std::string_view> BasicSkills() {
    return kBasicSkills;
}

void SelectAnySkill(Session& session, int count) {
    for (const auto skill : PickBasicSkills(session, count, WhenAutomatic::Draw))
        GrantSkill(session, skill);
}

void SelectAnySkillAtZero(Session& session) {
    for (const auto skill : PickBasicSkills(session, 1, WhenAutomatic::Draw))
        GrantSkill(session, Concat(skill, "-0"));
}

void SelectAnySkillAsked(Session& session) {
    for (const auto skill : PickBasicSkills(session, 1, WhenAutomatic::AskAllTheSame))
        GrantSkill(session, skill);
}

std::optional<std::string_view> SelectReplacementSkill(Session& session) {
    const auto picked = PickBasicSkills(session, 1, WhenAutomatic::Draw);
    return picked.empty() ? std::nullopt : std::optional(picked.front());
}

}  // namespace korvane
