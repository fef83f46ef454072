#include "engine/benefits.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "engine/associates.h"
#include "skills/choice.h"
#include "skills/grant.h"

namespace korvane {

namespace {

template <typename... Pieces>
void ShowResult(Session& session, const Pieces&... pieces) {
    AppendAll(session.musterResults.Next(), pieces...);
    session.musterResults.Keep();
}

// A benefit that is owned: it stands in the character's benefits, in the dialog's results and in the history.
void Record(Session& session, std::string_view benefit) {
    session.character.Benefits.Add(benefit);
    ShowResult(session, benefit);
    AddHistory(session, benefit);
}

// A benefit that is recorded and brings a gain with it.
struct WithGain {
    std::string_view benefit;
    std::string_view gain;
};
constexpr std::array<WithGain, 3> kWithGain = {{
    {"Soc +1 and Yacht", "Soc +1"},
    {"Personal Vehicle", "Drive or Flyer"},
    {"Ship's Boat", "Pilot (Small Craft)"},
}};

// A benefit that is a choice of one skill.
struct SkillChoice {
    std::string_view benefit;
    std::string_view skills;
};
constexpr std::array<SkillChoice, 2> kSkillChoices = {{
    {"Deception, Persuade or Stealth", "Deception/Persuade/Stealth"},
    {"Melee, Recon or Streetwise", "Melee/Recon/Streetwise"},
}};

// A benefit that is a choice of two benefits.
struct BenefitChoice {
    std::string_view benefit;
    std::string_view benefits;
};
constexpr std::array<BenefitChoice, 6> kBenefitChoices = {{
    {"Personal Vehicle or Ship Share", "Personal Vehicle/Ship Share"},
    {"Edu +1 or Two Ship Shares", "Edu +1/Two Ship Shares"},
    {"Ship's Boat or Two Ship Shares", "Ship's Boat/Two Ship Shares"},
    {"Armour or End +1", "End +1/Armour"},
    {"Combat Implant or End +1", "End +1/Combat Implant"},
    {"Soc +1 or Combat Implant", "Soc +1/Combat Implant"},
}};

constexpr std::string_view kTitle = "Mustering Out Choice";

std::string_view ChooseText(Session& session, std::string_view title, std::string_view options) {
    return AlternativeAt(options, ChoosePlace(session, title, options));
}

void TakeScientificEquipment(Session& session) {
    constexpr std::string_view kOptions = "Different Scientific Equipment/Electronic-1/Science-1";
    const int place = ChoosePlace(session, "Select Option", kOptions);
    if (place == 1) {
        Record(session, "Scientific Equipment");
        return;
    }
    ShowResult(session, AlternativeAt(kOptions, place));
    GrantSkill(session, AlternativeAt(kOptions, place));
}

void TakeAllThreeSkills(Session& session, std::string_view benefit) {
    for (const std::string_view skill : {"Deception", "Persuade", "Stealth"})
        GrantSkill(session, skill);
    ShowResult(session, benefit, " (all added)");
}

void TakeShipShares(Session& session, int dice) {
    Record(session, ScratchText(Roll(session, dice, 6), " Ship Shares"));
}

bool IsCharacteristicRaise(const Session& session, std::string_view benefit) {
    return benefit.find('+') != std::string_view::npos &&
           CharacteristicSlot(session.character, FirstCharacters(benefit, 3)) != 0;
}

// The benefits with a row in one of the tables above. Returns whether it is one of them.
bool TakeFromTables(Session& session, std::string_view benefit) {
    if (const auto* const row = std::ranges::find(kWithGain, benefit, &WithGain::benefit); row != kWithGain.end()) {
        Record(session, benefit);
        GrantSkill(session, row->gain);
        return true;
    }
    if (const auto* const row = std::ranges::find(kSkillChoices, benefit, &SkillChoice::benefit);
        row != kSkillChoices.end()) {
        const auto skill = ChooseText(session, kTitle, row->skills);
        GrantSkill(session, skill);
        ShowResult(session, skill, " (added)");
        return true;
    }
    if (const auto* const row = std::ranges::find(kBenefitChoices, benefit, &BenefitChoice::benefit);
        row != kBenefitChoices.end()) {
        TakeBenefit(session, ChooseText(session, kTitle, row->benefits));
        return true;
    }
    return false;
}

}  // namespace

void TakeBenefit(Session& session, std::string_view benefit) {
    if (TakeFromTables(session, benefit))
        return;
    if (benefit == "Scientific Equipment") {
        TakeScientificEquipment(session);
    } else if (benefit == "Deception, Persuade and Stealth") {
        TakeAllThreeSkills(session, benefit);
    } else if (benefit == "Ally") {
        ShowResult(session, benefit);
        AddAlly(session, "Mustering Out");
    } else if (benefit == "Contact") {
        ShowResult(session, benefit);
        AddContact(session, "Mustering Out");
    } else if (benefit == "1D Ship Shares") {
        TakeShipShares(session, 1);
    } else if (benefit == "2D Ship Shares") {
        TakeShipShares(session, 2);
    } else if (IsCharacteristicRaise(session, benefit)) {
        ShowResult(session, benefit);
        GrantSkill(session, benefit);
    } else {
        Record(session, benefit);
    }
}

}  // namespace korvane
