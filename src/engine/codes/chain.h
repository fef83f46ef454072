// Codes as rows: a code that an entry of a mishap or event table may carry, and the effects that it has. A chain is
// rows in the order in which they are carried out.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/codes/effects.h"

namespace korvane::codes {

struct Row {
    std::string_view code;
    Effects effects;
    Effects otherwise = {};  // when the code doesn't occur
};

class Chain {
  public:
    // The name is "mishap" or "event".
    Chain(std::string_view name, std::vector<Row> rows);

    std::string_view name() const { return name_; }
    const std::vector<Row>& rows() const { return rows_; }
    // Carries out each row whose code occurs anywhere in the code string, in the order of the chain.
    void Run(Session& session, std::string_view codes) const;

  private:
    // One bit for each pair of neighbouring characters; a text's bits hold those of all its parts. Nearly all rows are
    // ruled out by it, which takes a fifth off a life (0.85 s to 0.66 s for 100,000).
    static std::uint64_t Fingerprint(std::string_view text);
    // The first row from `row` on that may have something to do for a code string of that fingerprint; the number of
    // rows when there is none.
    std::size_t NextConcerned(std::size_t row, std::uint64_t fingerprint) const;

    std::string_view name_;
    std::vector<Row> rows_;
    std::vector<std::uint64_t> fingerprints_;
};

// The rows of the groups, one group after the other.
std::vector<Row> Joined(const std::vector<std::vector<Row>>& groups);

}  // namespace korvane::codes
