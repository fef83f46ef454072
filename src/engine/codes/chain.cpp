#include "engine/codes/chain.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "engine/codes/apply.h"

namespace korvane::codes {

Chain::Chain(std::string_view name, std::vector<Row> rows) : name_(name), rows_(std::move(rows)) {
    // A row that has something to do also where its code doesn't occur is never ruled out.
    for (const auto& row : rows_)
        fingerprints_.push_back(row.otherwise.empty() ? Fingerprint(row.code) : 0);
}

std::size_t Chain::NextConcerned(std::size_t row, std::uint64_t fingerprint) const {
    const auto begin = fingerprints_.begin() + static_cast<std::ptrdiff_t>(row);
    const auto place = std::find_if(begin, fingerprints_.end(),
                                    [absent = ~fingerprint](std::uint64_t bits) { return (bits & absent) == 0; });
    return static_cast<std::size_t>(place - fingerprints_.begin());
}

std::uint64_t Chain::Fingerprint(std::string_view text) {
    std::uint64_t bits = 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        const auto pair = static_cast<unsigned char>(text[i - 1]) * 31U + static_cast<unsigned char>(text[i]);
        bits |= std::uint64_t{1} << (pair % 64U);
    }
    return bits;
}

std::vector<Row> Joined(const std::vector<std::vector<Row>>& groups) {
    std::vector<Row> rows;
    for (const auto& group : groups)
        rows.insert(rows.end(), group.begin(), group.end());
    return rows;
}

void Chain::Run(Session& session, std::string_view codes) const {
    const auto fingerprint = Fingerprint(codes);
    for (auto i = NextConcerned(0, fingerprint); i < rows_.size(); i = NextConcerned(i + 1, fingerprint)) {
        const auto& row = rows_[i];
        const bool occurs = codes.find(row.code) != std::string_view::npos;
        if (occurs && session.seams.observer != nullptr)
            session.seams.observer->CarriedOut(name_, i);
        ApplyAll(session, occurs ? row.effects : row.otherwise);
    }
}

}  // namespace korvane::codes
