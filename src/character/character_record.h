// The record of the one character under generation: everything that the rules change.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "data/records.h"

namespace korvane {

// The characteristic slots that the rules address directly.
inline constexpr int kStr = 1;
inline constexpr int kDex = 2;
inline constexpr int kEnd = 3;
inline constexpr int kInt = 4;
inline constexpr int kEdu = 5;
inline constexpr int kSoc = 6;
inline constexpr int kPsi = 7;

// One value for each characteristic, numbered from 1; slot 0 stays as it was made.
template <typename Value>
class PerCharacteristic {
  public:
    // Throws RuleError (subscript) for a slot outside 0 to 10.
    Value& operator[](int slot) { return values_.at(Slot(slot)); }
    const Value& operator[](int slot) const { return values_.at(Slot(slot)); }

    // All slots, from 0.
    const std::array<Value, kMostCharacteristics + 1>& all() const { return values_; }
    std::array<Value, kMostCharacteristics + 1>& all() { return values_; }

  private:
    static std::size_t Slot(int slot) {
        if (slot < 0 || slot > kMostCharacteristics)
            throw RuleError(RuleError::Kind::Subscript, Concat("there is no characteristic number ", slot));
        return static_cast<std::size_t>(slot);
    }

    std::array<Value, kMostCharacteristics + 1> values_{};
};

// A growing list of texts that keeps its room when it is emptied, so that the next character needs no new one.
class TextList {
  public:
    std::span<const std::string> lines() const { return {lines_.data(), count_}; }
    std::size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }
    void Clear() { count_ = 0; }
    // The text that the next `Keep` will keep, emptied.
    std::string& Next();
    void Keep() { ++count_; }
    void Add(std::string_view line);

  private:
    std::vector<std::string> lines_;
    std::size_t count_ = 0;
};

struct Skill {
    std::string Name;  // a blank name marks a free slot
    Count Level;       // of a free slot: what it was last
};

inline constexpr int kMostSkills = 55;
inline constexpr int kMostHistoryLines = 100;
inline constexpr int kMostCareersServed = 10;

// The numbers of a character; a blank character has them all 0.
struct CharacterNumbers {
    PerCharacteristic<Count> Characteristic;
    PerCharacteristic<Count> CharacteristicDM;
    Count CharacteristicCount;

    Count Age;
    Count TermsTotal;
    Count TermsInCareer;
    Count Rank;  // 0 to 12: 1 to 6 enlisted, 7 to 12 officers
    Count Commissioned;
    Count Graduated;

    Count Allies;
    Count Enemies;
    Count Contacts;
    Count Rivals;

    // Modifiers for one roll to come, which sets them back to 0.
    Count QualificationDM;
    Count SurvivalDM;
    Count CommissionDM;
    Count AdvancementDM;

    Count ParoleThreshold;  // above 0 in prison
    Count LeaveCareer;      // 1 when the mishap or event ends the career

    Count MusterRolls;
    Count BenefitRollsModifier;
    Count MusterBonusCount;
    Credits Cash;
    Count CashRollsUsed;
    Credits Pension;  // a year
    float MedicalDebt = 0;
};

struct CharacterRecord : CharacterNumbers {
    PerCharacteristic<std::string> CharacteristicName;
    TextList CareersServed;  // at most kMostCareersServed
    TextList Benefits;
    TextList History;                           // at most kMostHistoryLines
    std::array<Skill, kMostSkills + 1> Skills;  // numbered from 1
    int SkillSlotsUsed = 0;                     // the slots beyond have never been taken
    std::string UniversitySubject;
    std::string HomeWorld;

    // Makes the record a blank one; its texts keep their room for the next character.
    void Clear();
};

// A value of 50 in a modifier for one roll makes that roll succeed.
inline constexpr int kAutomaticSuccess = 50;

// The modifier of a characteristic's value; 0 for a value above 23 or below 0.
Count ModifierOf(int value);
// Recomputes the modifiers of the characteristics in play.
void RecomputeCharacteristicDMs(CharacterRecord& character);
// The slot of the characteristic of that name, without regard to case; the last of equal ones; 0 for none.
int CharacteristicSlot(const CharacterRecord& character, std::string_view name);

// The skills that are held, in slot order.
std::vector<const Skill*> HeldSkills(const CharacterRecord& character);
// The first slot of exactly that name; nothing when there is none. The empty name finds a free slot.
Skill* FindSkill(CharacterRecord& character, std::string_view name);
const Skill* FindSkill(const CharacterRecord& character, std::string_view name);
// The first free slot, to be filled by the caller; nothing when all are taken.
Skill* TakeSkillSlot(CharacterRecord& character);

}  // namespace korvane
