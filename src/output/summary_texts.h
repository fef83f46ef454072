// The texts of a character: those of the characteristics' panel and of the details.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane {

// One line for each characteristic, as "Str 7  (+0)".
std::vector<std::string> CharacteristicLines(const CharacterRecord& character);
std::string AgeLabel(const CharacterRecord& character);
// The title of the rank with its grade, as "Corporal (E2)", and after "Rank: ".
std::string RankText(const CharacterRecord& character, const AssignmentRecord& assignment);
std::string RankLabel(const CharacterRecord& character, const AssignmentRecord& assignment);
std::string AlliesLabel(const CharacterRecord& character);
std::string EnemiesLabel(const CharacterRecord& character);
std::string ContactsLabel(const CharacterRecord& character);
std::string RivalsLabel(const CharacterRecord& character);
std::string MedicalDebtLabel(const CharacterRecord& character);

// The held skills as "Admin-1", in slot order or the highest level first.
std::vector<std::string> SkillLines(const CharacterRecord& character, bool sorted);
// The home world in one line, "Port: ...; Size: ..."; empty where it isn't known.
std::string HomeWorldText(const CharacterRecord& character);
// What else there is to say about a character: education, careers, money, benefits and what waits for the next rolls.
std::vector<std::string> DetailLines(const CharacterRecord& character);
// What the character leaves to be decided at the table: specialities to be picked, rolls and picks not used.
std::vector<std::string> OpenPoints(const CharacterRecord& character);
// The same in one line, with commas; empty for nothing.
std::string OpenPointsLine(const CharacterRecord& character);
// The lines of the panel for a character whose life has ended: its characteristics, whose list is the next one's by
// then, the lines of above, what is still to be decided, and how lucky the life was.
std::vector<std::string> EndedDetailLines(const Session& session);

// The title of a rank; throws RuleError (subscript) for one outside 0 to 12.
std::string_view RankTitle(const AssignmentRecord& assignment, int rank);

// A number with its sign, "+" for 0 too.
std::string SignedNumber(int number);

}  // namespace korvane
