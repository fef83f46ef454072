// Codes as rows: a code that an entry of a mishap or event table may carry, and the effects that it has. A chain is
// rows in the order in which they are carried out.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "character/KVNDeclare.h"
#include "engine/codes/effects.h"

namespace korvane {

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

    // The first row from `row` on that may have something to do for a code string of that fingerprint, as nearly all
    // are ruled out by it; the number of rows when there is none.
    std::size_t NextConcerned(std::size_t row, std::uint64_t fingerprint) const;

    // One bit for each pair of neighbouring characters; a text's bits hold those of all its parts.
    static std::uint64_t Fingerprint(std::string_view text);

  private:
    std::string_view name_;
    std::vector<Row> rows_;
    std::vector<std::uint64_t> fingerprints_;
};

// The rows of the groups, one group after the other.
std::vector<Row> Joined(const std::vector<std::vector<Row>>& groups);

// Carries out each row whose code occurs anywhere in the code string, in the order of the chain.
void RunChain(Session& session, const Chain& chain, std::string_view codes);

}  // namespace korvane
