#include "engine/injury.h"

#include <array>
#include <span>

#include "base/text.h"
#include "character/summary.h"
#include "skills/choice.h"

namespace korvane {

namespace {

// A row of the injury table in which the player picks what is lowered.
struct InjuryRow {
    std::string_view line;
    std::span<const std::string_view> options;
    std::string_view title;
    int amount;  // 0: a die of it
};

constexpr std::array<std::string_view, 3> kPhysical = {"Str", "Dex", "End"};
constexpr auto kLimbs = std::span(kPhysical).first(2);

// clang-format off
constexpr std::array<InjuryRow, 6> kPicked = {{
    {}, {},
    {"Severely Injured; Purple Heart if appropriate",  kPhysical, "Lose 1D from which stat?", 0},
    {"Lost Eye or Limb; Purple Heart if appropriate",  kLimbs,    "Lose 2 from which stat?",  2},
    {"Scarred; Purple Heart if appropriate",           kPhysical, "Lose 2 from which stat?",  2},
    {"Injured; Purple Heart if appropriate",           kPhysical, "Lose 1 from which stat?",  1},
}};
// clang-format on

// All three are lowered at once and then offered again one by one: so heavy is this row.
void NearlyKill(Session& session) {
    AddHistory(session, "Nearly Killed; Purple Heart if appropriate");
    for (int slot = kStr; slot <= kEnd; ++slot)
        session.character.Characteristic[slot] -= 1;
    const int slot = Choose(session, "Lose 1D from which stat?", kPhysical).place;
    const int amount = Roll(session, 1, 6) + 1;
    for (int each = kStr; each <= kEnd; ++each)
        ReduceCharacteristic(session, each, 1);
    ReduceCharacteristic(session, slot, amount);
}

void InjurePicked(Session& session, const InjuryRow& row) {
    const int slot = Choose(session, row.title, row.options).place;
    const int amount = row.amount == 0 ? Roll(session, 1, 6) : row.amount;
    AddHistory(session, row.line);
    ReduceCharacteristic(session, slot, amount);
}

// The part of the cost of care that the career pays, in percent, by a roll that long service raises.
int RollCover(Session& session) {
    const int roll = Roll(session, 2, 6) + session.character.TermsTotal;
    const auto& cover = session.career.medicalCover;
    if (roll < 4 || roll > 20)
        return 0;
    return roll <= 7 ? cover[1] : roll <= 11 ? cover[2] : cover[3];
}

bool TakesDebt(Session& session, int slot, int amount, int cost) {
    const auto& character = session.character;
    return AskYesNo(session,
                    {Concat("Stat ", character.CharacteristicName[slot], " currently ", character.Characteristic[slot],
                            " reduced by ", amount, ". Take Cr", cost, " medical debt to avoid?")});
}

void BuyCare(Session& session, int slot, int amount, int cost) {
    auto& character = session.character;
    const int cover = RollCover(session);
    const auto loss =
        Concat(character.CharacteristicName[slot], " ", character.Characteristic[slot], " reduced by ", amount);
    if (cover == 100) {
        AddHistory(session, loss, ", service pays for full recovery");
        return;
    }
    auto debt = static_cast<float>(cost);
    if (cover == 75 || cover == 50) {
        debt *= cover == 75 ? 0.25F : 0.5F;
        AddHistory(session, loss, ", service pays for ", cover, "%");
    }
    character.MedicalDebt += debt;
    AddHistory(session, "Cr ", ShortestNumber(debt), " medical debt incurred");
    ShowSummary(session);
}

}  // namespace

void Injure(Session& session, int& roll) {
    if (roll == 0)
        roll = Roll(session, 1, 6);
    if (roll == 1)
        NearlyKill(session);
    else if (roll == 6)
        AddHistory(session, "Lightly Injured");
    else
        InjurePicked(session, kPicked.at(static_cast<std::size_t>(roll)));
    ShowSummary(session);
}

void ReduceCharacteristic(Session& session, int slot, int amount) {
    constexpr int kCareForEachPoint = 5000;
    const int cost = kCareForEachPoint * amount;
    if (TakesDebt(session, slot, amount, cost)) {
        BuyCare(session, slot, amount, cost);
        return;
    }
    auto& character = session.character;
    character.Characteristic[slot] -= amount;
    AddHistory(session, character.CharacteristicName[slot], " reduced by ", amount, " to ",
               character.Characteristic[slot]);
    ShowSummary(session);
}

}  // namespace korvane
