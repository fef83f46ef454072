#include "engine/aging.h"

#include <array>

#include "character/summary.h"
#include "data/known_names.h"
#include "data/rule_row.h"
#include "skills/choice.h"

namespace korvane {

namespace {

// What a row of the ageing table takes: picks of 2 and of 1 among the physical characteristics, 1 of each of them, and
// a pick among the others.
struct AgingRow {
    int total;
    int picks_of_2;
    int picks_of_1;
    bool all_physical;
    bool mental;
};

// clang-format off
constexpr std::array<AgingRow, 7> kAging = {{
    { 0, 0, 1, false, false},
    {-1, 0, 2, false, false},
    {-2, 0, 0, true,  false},
    {-3, 1, 2, false, false},
    {-4, 2, 1, false, false},
    {-5, 3, 0, false, false},
    {-6, 3, 0, false, true },  // and all below, to -20
}};
constexpr double kLastTotal = -20;
// clang-format on

const AgingRow* RowFor(double total) {
    if (total <= kAging.back().total && total >= kLastTotal)
        return &kAging.back();
    for (const auto& row : kAging)
        if (row.total == total)
            return &row;
    return nullptr;  // a total between two rows, as most terms of a race with terms of four years give
}

void PickPhysical(Session& session, int amount) {
    const auto& value = session.character.Characteristic;
    const auto title = Concat("Stat Reduced by Age: Pick a stat to reduce by ", amount);
    const std::array texts = {Concat("Str ", value[kStr]), Concat("Dex ", value[kDex]), Concat("End ", value[kEnd])};
    const std::array<std::string_view, 3> options = {texts[0], texts[1], texts[2]};
    // The number is taken as it stands: an answer that was drawn counts from 0, and 0 has a die decide.
    const int slot = ChooseOption(session, title, options);
    ReduceByAge(session, slot, amount);
}

void PickMental(Session& session) {
    const auto& value = session.character.Characteristic;
    const std::array texts = {Concat("Int ", value[kInt]), Concat("Edu ", value[kEdu]), Concat("Soc ", value[kSoc])};
    const std::array<std::string_view, 3> options = {texts[0], texts[1], texts[2]};
    const int place = Choose(session, "Stat Reduced by Age: Pick a stat to reduce by 1", options).place;
    ReduceByAge(session, kInt + place - 1, 1);
}

void ApplyRow(Session& session, const AgingRow& row) {
    for (int i = 0; i < row.picks_of_2; ++i)
        PickPhysical(session, 2);
    for (int i = 0; i < row.picks_of_1; ++i)
        PickPhysical(session, 1);
    for (int slot = kStr; row.all_physical && slot <= kEnd; ++slot)
        ReduceByAge(session, slot, 1);
    if (row.mental)
        PickMental(session);
}

// The terms weigh by the length of a term, unrounded, and twice for the race that ages at double rate.
double AgingModifier(const Session& session) {
    if (session.race.termYears == 0)
        throw RuleError(RuleError::Kind::Overflow, "the race's terms last no years");
    const double modifier = static_cast<double>(session.character.TermsTotal) / session.race.termYears;
    return session.race.name == kAslan ? 2 * modifier : modifier;
}

// Adds the years of a term. Gives the modifier of an ageing roll, where one follows.
double GrowOlder(Session& session) {
    auto& character = session.character;
    character.Age += session.race.termYears;
    return character.Age < session.race.agingAge ? 0 : AgingModifier(session);
}

}  // namespace

void AgeCharacter(Session& session) {
    auto& character = session.character;
    const auto& race = session.race;
    const auto modifier = CarryOutRow(race.source, race.termYearsLine, [&] { return GrowOlder(session); });
    if (character.Age < race.agingAge)
        return;
    const double total = Roll(session, 2, 6) - modifier;
    if (total > 0)
        return;
    AddHistory(session, "Character Ages");
    if (const auto* const row = RowFor(total))
        ApplyRow(session, *row);
}

void ReduceByAge(Session& session, int slot, int amount) {
    constexpr float kCareForEachPip = 10000;
    if (slot == 0)
        slot = Roll(session, 1, 3);
    auto& character = session.character;
    auto& value = character.Characteristic[slot];
    AddHistory(session, character.CharacteristicName[slot], " ", value, " reduced by ", amount);
    value -= amount;
    ShowSummary(session);
    if (value >= 1)
        return;
    character.MedicalDebt += static_cast<float>(Roll(session, 1, 6)) * kCareForEachPip;
    value = 1;
    constexpr std::string_view kCrisis = "Ageing Crisis - character should retire";
    AddHistory(session, kCrisis);
    Tell(session, kCrisis);
}

}  // namespace korvane
