#include "engine/codes/chain.h"

#include <utility>

#include "engine/codes/apply.h"

namespace korvane {

Chain::Chain(std::string_view name, std::vector<Row> rows) : name_(name), rows_(std::move(rows)) {
    for (const auto& row : rows_)
        fingerprints_.push_back(Fingerprint(row.code));
}

bool Chain::Occurs(std::size_t row, std::string_view codes, std::uint64_t fingerprint) const {
    return (fingerprints_[row] & ~fingerprint) == 0 && codes.find(rows_[row].code) != std::string_view::npos;
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

void RunChain(Session& session, const Chain& chain, std::string_view codes) {
    const auto fingerprint = Chain::Fingerprint(codes);
    for (std::size_t row = 0; row < chain.rows().size(); ++row) {
        if (chain.Occurs(row, codes, fingerprint)) {
            session.seams.display->CodeCarriedOut(chain.name(), row);
            ApplyAll(session, chain.rows()[row].effects);
        } else {
            ApplyAll(session, chain.rows()[row].otherwise);
        }
    }
}

}  // namespace korvane
