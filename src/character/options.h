// The options of a generation: the tick boxes and the methods of rolling, with their captions.
#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <string_view>

namespace korvane {

enum class Option {
    AutomaticGeneration,
    ForceNoEjectionOnMishap,
    SelectSkillPackage,
    AddSkillsForConnections,
    RandomSkills,
    ForcePromote,
    CapSkillsAt4,
    SortSkillsByValue,
    ForceAcademicSuccess,
};

inline constexpr std::array<std::string_view, 9> kOptionCaptions = {
    "Automatic Generation",  "Force no Ejection on Mishap",
    "Select Skill Package",  "Add 2 skills for Connections",
    "Random Skills",         "Force Promote",
    "Cap Skills at 4",       "Sort Skills by Value",
    "Force Academic Success"};

// What each does, for those who point at it; in the order of the captions.
inline constexpr std::array<std::string_view, kOptionCaptions.size()> kOptionExplanations = {
    "Every choice is answered at random, without a dialog",
    "Neither a mishap nor an event ends the career",
    "At the end of the life a package of skills is chosen, each at level 1 at least",
    "At the end of the life two skills are raised, each by a connection with somebody",
    "The skill table of each term is chosen by a die",
    "Has no effect on advancement",
    "No skill that is held is raised above level 4",
    "The skills stand with the highest level first",
    "Entry, graduation and the like of a pre-career education succeed"};

// In the order of their captions.
inline constexpr std::array kAllOptions = {Option::AutomaticGeneration, Option::ForceNoEjectionOnMishap,
                                           Option::SelectSkillPackage,  Option::AddSkillsForConnections,
                                           Option::RandomSkills,        Option::ForcePromote,
                                           Option::CapSkillsAt4,        Option::SortSkillsByValue,
                                           Option::ForceAcademicSuccess};

// The ticked boxes. The engine reads them when a rule applies, so a change counts from the next step on.
class Options {
  public:
    bool operator[](Option option) const { return ticked_[static_cast<std::size_t>(option)]; }
    void Set(Option option, bool ticked = true) { ticked_[static_cast<std::size_t>(option)] = ticked; }
    bool operator==(const Options&) const = default;

  private:
    std::bitset<kOptionCaptions.size()> ticked_;
};

std::string_view CaptionOf(Option option);
std::optional<Option> OptionOfCaption(std::string_view caption);

enum class RollingMethod { Roll3Drop1, True2D };

// The blank at the end of the second is part of it.
inline constexpr std::array<std::string_view, 2> kMethodCaptions = {"Roll 3 drop 1", "True 2D "};

std::string_view CaptionOf(RollingMethod method);
// The trailing blank may be missing.
std::optional<RollingMethod> MethodOfCaption(std::string_view caption);

}  // namespace korvane
