// The names that the rule data knows, of all races together: what can be asked for.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane::play {

// As they are written in the files; each once.
struct Vocabulary {
    std::vector<std::string> races;
    std::vector<std::string> careers;
    std::vector<std::string> assignments;
    std::vector<std::string> characteristics;
    std::vector<std::string> skills;                            // of the master list
    std::map<std::string, std::set<std::string>> specialities;  // of each skill
};

// Reads all races, careers and master skills. Throws FileError for a malformed file.
Vocabulary VocabularyOf(Session& session);

}  // namespace korvane::play
