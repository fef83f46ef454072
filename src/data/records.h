// The rule records: a race, a career and an assignment, as their files give them.
//
// A record's texts are views into the lines of its file, which the record keeps alive. Loading one is therefore a copy
// of a few hundred bytes, and a rule may narrow a text to a part of itself (a rank bonus to the alternative that was
// chosen) until the file is loaded again. All arrays are numbered as the rules number them, from 1; slot 0 is not used,
// but for the ranks, which begin at 0.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text_file.h"

namespace korvane {

inline constexpr int kMostCharacteristics = 10;
inline constexpr std::size_t kMostSpecialities = 25;  // of one skill

using Names = std::vector<std::string>;
// The six rows of a skill table, or of a mishap table, numbered from 1.
using SixRows = std::array<std::string_view, 7>;

// A skill and the specialities that it offers, in order.
struct Speciality {
    std::string_view skill;
    std::vector<std::string_view> list;
};

struct RaceRecord {
    std::shared_ptr<const TextFile> source;
    std::string_view name;
    std::string_view kind;
    Count characteristicCount;
    Count characteristicCountCopy;  // the summary's own, as race files have always been read
    std::array<std::string_view, kMostCharacteristics + 1> characteristicName;  // three characters each
    std::array<Count, kMostCharacteristics + 1> characteristicDice;
    std::array<std::string_view, kMostCharacteristics + 1> characteristicModifier;  // as "+2"; empty for none
    Count termYears;
    std::string_view termYearsLine;  // as the file has it
    Count agingAge;
    Count startingAge;
    std::array<std::string_view, 13> lifeEvents;
    Count backgroundSkillCount;
    std::array<std::string_view, 21> backgroundSkills;
    std::array<std::string_view, 6> preCareerOptions;
    std::array<std::string_view, 26> draftTable;
    std::vector<Speciality> specialities;
    std::array<std::string_view, 11> traits;
};

struct CareerRecord {
    std::shared_ptr<const TextFile> source;
    std::string_view description;
    std::string_view qualification;
    std::string_view commission;  // "No", or what stands in for a check
    std::array<float, 8> cashBenefit{};
    std::array<std::string_view, 8> cashLine;  // as the file has them
    std::array<std::string_view, 8> otherBenefit;
    std::array<std::string, 5> skillTableTitle;  // outlives its file: a title may stay from the career before
    SixRows personalTable;
    SixRows serviceTable;
    SixRows advancedTable;
    SixRows officerTable;
    SixRows mishapTable;
    std::array<std::string_view, 13> eventTable;
    std::array<Count, 4> medicalCover;  // percent
};

// What a career file says: a career, and which of its titles the file leaves as they were.
struct CareerFile {
    CareerRecord record;
    std::array<bool, 5> keepsTitle{};
};

struct AssignmentRecord {
    std::shared_ptr<const TextFile> source;
    std::string_view assignmentDescription;
    std::string_view survival;
    std::string_view advancement;
    SixRows assignmentTable;
    std::array<std::string_view, 13> rankTitle;  // 0 to 6 enlisted, 7 to 12 officers
    std::array<std::string_view, 13> rankBonus;  // "-" for none
};

// Replaces a career by what a file says; a title that the file doesn't give stays as it was.
void ReplaceCareer(CareerRecord& career, const CareerFile& file);

}  // namespace korvane
