#include "engine/benefits.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/text.h"
#include "engine/associates.h"
#include "skills/choice.h"
#include "skills/grant.h"

namespace korvane {

namespace {

enum class Kind {
    WithGain,       // recorded, and brings a gain
    OneSkill,       // the choice of one skill
    AllSkills,      // brings all of them
    OneBenefit,     // the choice of one benefit
    Equipment,      // recorded, or a skill in its place
    AllyOrContact,  // somebody
    ShipShares,     // as many as the dice say
};

// A benefit that the rules know.
struct Known {
    std::string_view benefit;
    Kind kind;
    std::array<std::string_view, 3> parts = {};
};

// clang-format off
constexpr std::array<Known, 17> kKnown = {{
    {"Soc +1 and Yacht",               Kind::WithGain,   {"Soc +1"}},
    {"Personal Vehicle",               Kind::WithGain,   {"Drive or Flyer"}},
    {"Ship's Boat",                    Kind::WithGain,   {"Pilot (Small Craft)"}},
    {"Deception, Persuade or Stealth", Kind::OneSkill,   {"Deception", "Persuade", "Stealth"}},
    {"Melee, Recon or Streetwise",     Kind::OneSkill,   {"Melee", "Recon", "Streetwise"}},
    {"Deception, Persuade and Stealth",Kind::AllSkills,  {"Deception", "Persuade", "Stealth"}},
    {"Personal Vehicle or Ship Share", Kind::OneBenefit, {"Personal Vehicle", "Ship Share"}},
    {"Edu +1 or Two Ship Shares",      Kind::OneBenefit, {"Edu +1", "Two Ship Shares"}},
    {"Ship's Boat or Two Ship Shares", Kind::OneBenefit, {"Ship's Boat", "Two Ship Shares"}},
    {"Armour or End +1",               Kind::OneBenefit, {"End +1", "Armour"}},
    {"Combat Implant or End +1",       Kind::OneBenefit, {"End +1", "Combat Implant"}},
    {"Soc +1 or Combat Implant",       Kind::OneBenefit, {"Soc +1", "Combat Implant"}},
    {"Scientific Equipment",           Kind::Equipment,  {"Different Scientific Equipment", "Electronic-1", "Science-1"}},
    {"Ally",                           Kind::AllyOrContact},
    {"Contact",                        Kind::AllyOrContact},
    {"1D Ship Shares",                 Kind::ShipShares},
    {"2D Ship Shares",                 Kind::ShipShares},
}};
// clang-format on

constexpr std::string_view kTitle = "Mustering Out Choice";

// Shows what was gained in the dialog's results.
void ShowResult(Session& session, std::string_view benefit) {
    session.musterResults.benefits.Add(benefit);
}

// A benefit that is owned: it stands in the character's benefits, in the dialog's results and in the history.
void Own(Session& session, std::string_view benefit) {
    session.character.Benefits.Add(benefit);
    ShowResult(session, benefit);
    AddHistory(session, benefit);
}

void TakeEquipment(Session& session, const Known& known) {
    const auto choice = Choose(session, "Select Option", known.parts);
    if (choice.place == 1) {
        Own(session, known.benefit);
        return;
    }
    ShowResult(session, choice.text);
    GrantSkill(session, choice.text);
}

void TakeKnown(Session& session, const Known& known) {
    const auto parts = std::span(known.parts);
    switch (known.kind) {
        case Kind::WithGain:
            Own(session, known.benefit);
            return GrantSkill(session, parts[0]);
        case Kind::OneSkill: {
            const auto skill = Choose(session, kTitle, parts).text;
            GrantSkill(session, skill);
            return ShowResult(session, Concat(skill, " (added)"));
        }
        case Kind::AllSkills:
            for (const auto skill : parts)
                GrantSkill(session, skill);
            return ShowResult(session, Concat(known.benefit, " (all added)"));
        case Kind::OneBenefit:
            return TakeBenefit(session, Choose(session, kTitle, parts.first(2)).text);
        case Kind::Equipment:
            return TakeEquipment(session, known);
        case Kind::AllyOrContact:
            ShowResult(session, known.benefit);
            return known.benefit == "Ally" ? AddAlly(session, "Mustering Out") : AddContact(session, "Mustering Out");
        case Kind::ShipShares:
            return Own(session, Concat(Roll(session, known.benefit[0] - '0', 6), " Ship Shares"));
    }
}

bool IsCharacteristicRaise(const Session& session, std::string_view benefit) {
    return benefit.find('+') != std::string_view::npos &&
           CharacteristicSlot(session.character, FirstCharacters(benefit, 3)) != 0;
}

}  // namespace

std::vector<std::string_view> KnownBenefits() {
    std::vector<std::string_view> benefits;
    benefits.reserve(kKnown.size());
    for (const auto& known : kKnown)
        benefits.push_back(known.benefit);
    return benefits;
}

void TakeBenefit(Session& session, std::string_view benefit) {
    if (const auto* const known = std::ranges::find(kKnown, benefit, &Known::benefit); known != kKnown.end()) {
        TakeKnown(session, *known);
    } else if (IsCharacteristicRaise(session, benefit)) {
        ShowResult(session, benefit);
        GrantSkill(session, benefit);
    } else {
        Own(session, benefit);
    }
}

}  // namespace korvane
