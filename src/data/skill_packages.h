// The skill packages of a campaign, as the file "Packages.dat" gives them.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "base/text_file.h"

namespace korvane {

inline constexpr std::string_view kSkillPackagesFile = "Packages.dat";

struct SkillPackage {
    std::string_view name;
    // Each entry is one skill, or several of which one is chosen.
    std::vector<std::vector<std::string_view>> skills;
};

struct SkillPackages {
    std::shared_ptr<const TextFile> source;  // keeps the texts alive
    std::vector<SkillPackage> packages;      // 1 to 24, each with a skill at least
};

// Reads the packages. Throws FileError, with the line, for anything else than packages of skills without levels.
SkillPackages ReadSkillPackages(const std::shared_ptr<const TextFile>& file);

}  // namespace korvane
