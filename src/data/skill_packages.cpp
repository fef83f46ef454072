#include "data/skill_packages.h"

#include <algorithm>

#include "base/text.h"
#include "data/plain_lines.h"

namespace korvane {

namespace {

constexpr std::size_t kMostPackages = 24;  // as many as a choice holds
constexpr std::size_t kMostSkillsOfPackage = 20;
constexpr std::size_t kMostAlternatives = 24;  // the same

bool BeginsPackage(std::string_view line) {
    return EqualsIgnoringCase(SplitFirst(line, " ").first, "Package");
}

std::string_view ReadName(PlainLines& lines, const std::vector<SkillPackage>& before) {
    if (lines.AtEnd() || !BeginsPackage(lines.Current()))
        lines.Reject(R"(a line "Package NAME")");
    const auto name = Trim(SplitFirst(lines.Current(), " ").second);
    if (name.empty() || name.find('/') != std::string_view::npos)
        lines.Reject(R"(the name of the package after "Package", without "/")");
    if (std::ranges::any_of(before, [&](const SkillPackage& other) { return EqualsIgnoringCase(other.name, name); }))
        lines.Reject("a package that wasn't given before");
    if (before.size() == kMostPackages)
        lines.Reject(Concat("at most ", kMostPackages, " packages"));
    lines.Advance();
    return name;
}

bool NamesSkill(std::string_view text) {
    const auto mark = text.rfind('-');
    const bool has_level =
        mark != std::string_view::npos && text.find_first_not_of(" 0123456789", mark + 1) == std::string_view::npos;
    return !IsBlank(text) && text.find_first_of("=+/") == std::string_view::npos && !has_level &&
           !EndsIgnoringCase(text, " or") && !BeginsIgnoringCase(text, "or ") &&
           Upper(text).find(" OR ") == std::string::npos;
}

// A skill, or several joined by " or ".
std::vector<std::string_view> ReadSkill(const PlainLines& lines) {
    std::vector<std::string_view> alternatives;
    auto rest = lines.Current();
    for (bool more = true; more;) {
        more = rest.find(" or ") != std::string_view::npos;
        const auto [skill, after] = SplitFirst(rest, " or ");
        if (!NamesSkill(Trim(skill)))
            lines.Reject("a skill without a level, or several joined by \" or \"");
        if (alternatives.size() == kMostAlternatives)
            lines.Reject(Concat("at most ", kMostAlternatives, " skills to choose from"));
        alternatives.push_back(Trim(skill));
        rest = after;
    }
    return alternatives;
}

SkillPackage ReadPackage(PlainLines& lines, const std::vector<SkillPackage>& before) {
    SkillPackage package{ReadName(lines, before), {}};
    for (; !lines.AtEnd() && !BeginsPackage(lines.Current()); lines.Advance()) {
        if (package.skills.size() == kMostSkillsOfPackage)
            lines.Reject(Concat("at most ", kMostSkillsOfPackage, " skills in a package"));
        package.skills.push_back(ReadSkill(lines));
    }
    if (package.skills.empty())
        lines.Reject(Concat("a skill of the package ", package.name));
    return package;
}

}  // namespace

SkillPackages ReadSkillPackages(const std::shared_ptr<const TextFile>& file) {
    PlainLines lines(*file);
    SkillPackages packages{file, {}};
    do
        packages.packages.push_back(ReadPackage(lines, packages.packages));
    while (!lines.AtEnd());
    return packages;
}

}  // namespace korvane
