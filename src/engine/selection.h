// What is selected: the race, the career and the assignment, whose records are loaded into the session.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The race that is offered first: "Imperial Human", or the first where there is none. There is a race.
std::string_view FirstRace(const Names& races);

// Lists the races of the data folder and loads the one that is offered first.
void ListRaces(Session& session);

// Lists the race's careers, loads the first of them and then the race, and starts a new character. A race without
// careers is told to the player and changes nothing else. Throws FileError for a malformed file.
void LoadRace(Session& session, std::string_view race);

// Loads a career of a race, lists its assignments and loads the first. A career without assignments is told to the
// player.
void LoadCareer(Session& session, std::string_view race, std::string_view career);

void LoadAssignment(Session& session, std::string_view race, std::string_view career, std::string_view assignment);

// Selects an entry of the career list, or of the assignment list, as a player would. Returns whether the list has it;
// when not, the selection stays.
bool SelectCareer(Session& session, std::string_view career);
bool SelectAssignment(Session& session, std::string_view assignment);

// A name that was asked for and that the data doesn't have.
struct Missing {
    std::string_view kind;  // "race", "career" or "assignment"
    std::string name;
    Names known;
    std::string file;  // that would give it: its native path
};

// Makes the selection from which a character of `race` starts, as if the race had just been loaded in a new program.
// Rolls nothing. Gives what is missing, if anything is; throws FileError for a malformed file.
[[nodiscard]] std::optional<Missing> SelectStart(Session& session, std::string_view race, std::string_view career,
                                                 std::string_view assignment);

}  // namespace korvane
