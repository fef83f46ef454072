// What rule data make of lives, measured by living them: figures of each assignment.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "character/KVNDeclare.h"
#include "character/seed.h"

namespace korvane::play {

// How often something came to pass of the times that it might.
struct Share {
    std::uint64_t of = 0;
    std::uint64_t hits = 0;

    void Count(bool hit) {
        ++of;
        hits += hit ? 1U : 0U;
    }
    double percent() const { return of == 0 ? 0 : 100.0 * static_cast<double>(hits) / static_cast<double>(of); }
};

struct Mean {
    double sum = 0;
    std::uint64_t count = 0;

    void Add(double value) {
        sum += value;
        ++count;
    }
    double value() const { return count == 0 ? 0 : sum / static_cast<double>(count); }
};

// Of the lives that began in an assignment, and of the terms served in it.
struct Figures {
    Share accepted;
    Share fails;                   // of survival rolls
    std::map<int, Share> failsBy;  // by the modifier of the characteristic that counts
    Share promoted;
    Share commissioned;
    Share injured;
    Share jailed;
    Share owing;
    Share repeating;
    Mean age;
    Mean terms;
    Mean skills;
    Mean levels;
    Mean best;
    Mean cash;
    Mean benefits;
    Mean friends;
    Mean foes;
    std::map<std::string, Share> specialists;  // skills held at 2 or more
    std::string specialty;                     // the skill that its table teaches most
};

// By how many points of failing a modifier of -2 differs from one of +2: four steps of those between the lowest and the
// highest modifier that lives had often enough; nothing where fewer than two were.
std::optional<double> Spread(const Figures& figures);
// The assignment's specialty, and in how many percent of the lives it is at 2 or more.
std::pair<std::string, double> SpecialistOf(const Figures& figures);

// Of stays in prison. One lasts from a sentence, whatever sentences follow, to the release, the escape or the way into
// another career.
struct PrisonFigures {
    Share freeWithinFive;        // terms: of the stays that it can be told of
    std::uint64_t cutShort = 0;  // by the end of the life within those terms: it can't be told
    int longest = 0;             // in terms
};

// Adds the stays that a history tells of.
void NotePrison(std::span<const std::string> history, PrisonFigures& prison);

using Place = std::pair<std::string, std::string>;  // career, assignment

struct RaceFigures {
    std::string race;
    std::map<Place, Figures> places;
    PrisonFigures prison;
    int oldest = 0;                            // in years, at the end of a life
    std::map<std::string, std::uint64_t> met;  // table texts
};

// Which lives are lived: automatic ones, shared by the assignments of a career.
struct BalancePlan {
    std::string race;         // empty: all
    std::string career;       // the same
    std::uint64_t count = 1;  // lives a career
    int terms = 4;
    Seed seed{1};
};

// Throws UsageError for a race or a career that there isn't, and what a life ends by when the data are malformed.
std::vector<RaceFigures> MeasureBalance(Session& session, const BalancePlan& plan);

}  // namespace korvane::play
