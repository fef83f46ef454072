// The record of the one character under generation: everything that the rules change.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "character/rolled_check.h"
#include "character/skill_list.h"
#include "data/records.h"
#include "data/world_tables.h"

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
    void Add(std::string_view line);
    // Adds a line made of texts and whole numbers, built in place. One that is blank isn't kept.
    template <typename... Pieces>
    void AddLine(const Pieces&... pieces) {
        auto& line = Next();
        AppendAll(line, pieces...);
        if (!IsBlank(line))
            ++count_;
    }

  private:
    std::string& Next();

    std::vector<std::string> lines_;
    std::size_t count_ = 0;
};

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

// What is known of a home world, in the order of the tables; all empty where there are none.
using HomeWorldFacts = std::array<std::string, kWorldTableNames.size()>;

// A skill learned with somebody's help.
struct Connection {
    std::string skill;
    std::string with;  // empty: the player didn't say
};

// What was so when a term began.
struct TermStart {
    PerCharacteristic<Count> characteristics;
    std::string career;
    std::string assignment;
    Count rank;
    std::size_t line = 0;  // its heading's place in the history
};

struct CharacterRecord : CharacterNumbers {
    PerCharacteristic<std::string> CharacteristicName;
    TextList CareersServed;  // at most kMostCareersServed
    TextList Benefits;
    TextList History;  // at most kMostHistoryLines
    SkillList Skills;
    std::string UniversitySubject;
    HomeWorldFacts HomeWorld;

    std::string Education;                // the course attended before the first career; empty for none
    std::string AcademyService;           // the career that a graduate of a military academy is an officer of
    std::vector<Connection> Connections;  // in the order in which they were made
    std::string SkillPackage;             // the package chosen at the end; empty for none
    TextList LeftOpen;                    // what the player was asked to pick and didn't

    korvane::Luck Luck;  // of the checks that were rolled

    // How each term began, for pictures and documents of the life alone.
    std::vector<TermStart> TermStarts;

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

}  // namespace korvane
