// What careers hold for a character that hasn't begun one: found by living in each.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"
#include "play/estimate.h"

namespace korvane::play {

// Who applies for careers.
struct Applicant {
    std::string race;
    PerCharacteristic<Count> characteristics;
    RollingMethod method = RollingMethod::True2D;
    Options options;
};
// The session's character that waits for its start.
Applicant ApplicantOf(const Session& session);
// A character of the session's race whose characteristics are what its dice bring on average; one of the kind is left
// in the session.
Applicant AverageApplicant(Session& session);

// What is told of a career. The first four are chances from 0 to 1; all but the first are of those who were accepted,
// those from `Rank` on of the end of the life.
enum class CareerFigure {
    Accepted,
    Survives,
    Promoted,
    Commissioned,
    Rank,
    Levels,
    Best,
    Cash,
    Benefits,
    Debt,
    Prison
};
inline constexpr std::size_t kCareerFigures = 11;
constexpr bool IsChance(CareerFigure figure) {
    return figure <= CareerFigure::Commissioned || figure == CareerFigure::Prison;
}

struct CareerProspects {
    std::array<Sample, kCareerFigures> figures;
    std::map<std::string, int> bestSkills;  // in how many lives each was the one held best

    const Sample& At(CareerFigure figure) const { return figures.at(static_cast<std::size_t>(figure)); }
    // The skill that is held best most often; empty where none is.
    std::string BestSkill() const;
};

// An assignment, or a career as a whole.
struct CareerPlace {
    std::string career;
    std::string assignment;  // empty: all of them
    CareerProspects prospects = {};
    std::string fault = {};  // why nobody can live there, by the rule files; empty where one can
};

// What was found.
struct CareerComparison {
    std::vector<CareerPlace> places;  // each career before its assignments
    std::uint64_t lives = 0;          // in each assignment
    int terms = 0;                    // of service
};

class CareerOdds {
  public:
    // Of all careers of the applicant's race but prison, or of those named; players of sense muster out after so many
    // terms of service. The session is one of its own. Throws UsageError for a career that there isn't.
    CareerOdds(Session& session, Applicant applicant, int terms, const std::string& career = {});

    // Lives more lives in each assignment, until there are so many or `stops` says so between two. The dice are the
    // same for each. Throws FileError where nobody can live anywhere.
    void LiveUpTo(std::uint64_t lives, const std::function<bool()>& stops = {});

    const Applicant& applicant() const { return applicant_; }
    const CareerComparison& comparison() const { return comparison_; }

  private:
    // What one life told: of the chance to be accepted always, of all else where one was.
    struct Life {
        std::array<std::optional<double>, kCareerFigures> figures;
        std::string bestSkill;  // empty for none
    };
    std::optional<Life> LiveOnce(CareerPlace& place, std::uint64_t number);
    // A life in each assignment counts as one of the career: as the same dice fell, more isn't known.
    static void AddMean(const std::vector<Life>& lives, CareerPlace& whole);

    Session& session_;
    Applicant applicant_;
    CareerComparison comparison_;
};

// The figures of a career in words, as they are shown.
struct CareerColumn {
    CareerFigure figure;
    std::string_view key;  // in documents
    std::string_view caption;
    std::string_view meaning;
};
const std::array<CareerColumn, kCareerFigures>& CareerColumns();
// Nothing for what too few lives tell.
std::optional<Estimate> EstimateOf(const CareerProspects& prospects, CareerFigure figure);
// A dash where there is nothing to tell.
std::string CellText(const CareerProspects& prospects, CareerFigure figure);

}  // namespace korvane::play
