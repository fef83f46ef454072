// What a person at the table would make of a choice: how much a gain is worth to a character, and what a loss costs.
#pragma once

#include <array>
#include <memory>
#include <span>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane::play {

class Sense {
  public:
    // Of the session's character and career.
    explicit Sense(const Session& session) : session_(session) {}

    // Takes stock of what the character holds and the career teaches; to be called before each question.
    void TakeStock();

    // What a gain is worth, from 0: a skill string, or the text of another benefit. Skills that the career trains and
    // the characteristics favour are worth more, the first levels of a skill more than the last.
    int WorthOf(std::string_view gain) const;
    // What each speciality of a skill is worth: the one held best comes first, then those that the career teaches.
    using SpecialityWorth = std::array<int, kMostSpecialities + 1>;
    SpecialityWorth WorthOfSpecialities(std::string_view skill, std::span<const std::string_view> specialities) const;
    // What it costs to lose so many points of a characteristic; the more when its modifier falls or little is left.
    int CostOfLoss(int slot, int amount) const;

  private:
    static constexpr std::size_t kSkills = 39;

    int WorthOfOne(std::string_view gain) const;
    int WorthOfRaise(std::string_view gain) const;
    int WorthOfSkill(std::size_t skill, std::string_view name, int level, bool sets) const;
    template <typename Action>
    void ForEachRow(const Action& action) const;

    const Session& session_;
    // By the place of each skill in the list of them: the best level held, of any speciality, -1 for none; and how many
    // rows of the career's tables teach it.
    std::array<int, kSkills> held_{};
    std::array<int, kSkills> rows_{};
    std::shared_ptr<const TextFile> career_;  // whose rows they are
    std::shared_ptr<const TextFile> assignment_;
};

}  // namespace korvane::play
