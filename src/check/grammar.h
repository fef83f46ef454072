// What may stand in the rows of rule files: skill strings, checks, codes, numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "data/records.h"
#include "engine/codes/chain.h"

namespace korvane::check {

// What a race and the data folder know, against which rows are checked.
struct Known {
    std::vector<std::string> characteristics;  // three letters each, from the first
    std::vector<Speciality> specialities;
    std::vector<std::string_view> skills;  // of the master list
    // Whether the race file is right: with a mistake there, nothing is said of what hangs on it.
    bool trusted = true;
};

// A row of a skill table, a rank bonus, a background skill. `isBasic`: of the first table.
void CheckSkillRow(Report& report, const Piece& row, const Known& known, bool isBasic = false);
// A check that is rolled, as "En+d6"; what is advised instead has at most so many characters.
void CheckRolledCheck(Report& report, const Piece& check, const Known& known, std::size_t most = 20);
// A requirement, as "Edu 8+".
void CheckRequirement(Report& report, const Piece& title, const Known& known);
// An entry of a mishap or event table of a career.
void CheckEntry(Report& report, const Piece& entry, const codes::Chain& chain, std::string_view career);
// Digits alone, from `least` to `most`. Gives the number, if it is one.
std::optional<int> CheckNumber(Report& report, const Piece& number, std::string_view kind, int least, int most);

}  // namespace korvane::check
