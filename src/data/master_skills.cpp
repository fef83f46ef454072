#include "data/master_skills.h"

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"

namespace korvane {

MasterSkills LoadMasterSkills(const HeldPath& dataLocation) {
    // The doubled separator is no slip: the location ends in one already, and paths with two of them lead to the same
    // file.
    const auto file = ReadTextFile(dataLocation + "\\MasterSkills.dat", "the master skill list");
    MasterSkills skills;
    const auto most = static_cast<int>(skills.size()) - 1;
    if (file.lines() > most)
        throw ParseError(file.name(), most + 1, Concat("at most ", most, " skills"), "another line");
    for (int i = 1; i <= file.lines(); ++i)
        skills.at(static_cast<std::size_t>(i)) = file.line(i);
    return skills;
}

}  // namespace korvane
