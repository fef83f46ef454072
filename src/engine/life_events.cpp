#include "engine/life_events.h"

#include <array>

#include "engine/codes/apply.h"
#include "engine/codes/fields.h"

namespace korvane::codes {

namespace {

OnRoll EnemyOrRival(std::string_view text) {
    return {1, 2, {{1, {Enemy{text}}}, {2, {Rival{text}}}}};
}

struct LifeEvent {
    bool told = true;  // whether the race's text comes first
    Effects effects;
};

// clang-format off
const std::array<LifeEvent, 13>& LifeEvents() {
    static const std::array<LifeEvent, 13> events = {{
        {}, {},
        {false,  {Hurt{}}},
        {true,   {}},
        {true,   {EnemyOrRival("Breakup")}},
        {true,   {Ally{"New/Improved Relationship"}}},
        {true,   {Ally{"New/Improved Relationship"}}},
        {true,   {Contact{"New Contact"}}},
        {true,   {EnemyOrRival("Betrayed"), Call{LoseAllyOrContact, "an ally or else a contact is lost"}}},
        {true,   {Add{kQualification, 1}}},
        {true,   {Add{kMusterBonus, 2}}},
        {false,  {Either{"Accused of a Crime; Choose Option", {
                     {"Lose 1 Benefit roll",    {Add{kMusterRolls, -1},
                                                 Line{"You commit or are the victim (or are accused) of a crime; lose 1 benefit roll"}}},
                     {"Serve a term in Prison", {Line{"You commit or are the victim (or are accused) of a crime and are sent to prison"},
                                                 GoToPrison{}}}}}}},
        {true,   {Line{"* More details later"}}},
    }};
    return events;
}
// clang-format on

}  // namespace

}  // namespace korvane::codes

namespace korvane {

void LoseAllyOrContact(Session& session) {
    auto& character = session.character;
    if (character.Allies >= 1) {
        character.Allies -= 1;
        AddHistory(session, "Betrayed by Ally");
    } else if (character.Contacts >= 1) {
        character.Contacts -= 1;
        AddHistory(session, "Betrayed by Contact");
    }
}

void RollLifeEvent(Session& session) {
    const auto total = static_cast<std::size_t>(Roll(session, 2, 6));
    const auto& event = codes::LifeEvents().at(total);
    if (event.told)
        AddHistory(session, session.race.lifeEvents.at(total));
    codes::ApplyAll(session, event.effects);
}

}  // namespace korvane
