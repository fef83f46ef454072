// A checksum that tells texts apart; nobody is kept from making two of the same.
#pragma once

#include <cstdint>
#include <string_view>

namespace korvane {

inline constexpr std::uint64_t kNoText = 0xCBF29CE484222325U;

// FNV-1a, going on from the checksum of what came before.
constexpr std::uint64_t Checksum(std::string_view text, std::uint64_t before = kNoText) {
    for (const char c : text)
        before = (before ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return before;
}

}  // namespace korvane
