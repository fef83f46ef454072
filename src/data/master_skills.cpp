#include "data/master_skills.h"

#include <algorithm>

#include "base/error.h"
#include "base/places.h"

namespace korvane {

MasterSkills LoadMasterSkills(std::string_view dataLocation) {
    // The doubled separator is no slip: the location ends in one already, and paths with two of them lead to the same
    // file.
    auto file = ReadTextFile(std::string(dataLocation) + "\\MasterSkills.dat", "the master skill list");
    MasterSkills skills;
    const auto most = static_cast<int>(skills.size()) - 1;
    if (file.lines.size() >= skills.size())
        throw FileError(file.name, most + 1, "at most " + std::to_string(most) + " skills", "another line");
    std::ranges::move(file.lines, skills.begin() + 1);
    return skills;
}

}  // namespace korvane
