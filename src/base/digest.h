// Digests that prove what bytes were: SHA-256.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

using Digest = std::array<std::uint8_t, 32>;

Digest Sha256(std::string_view bytes);
// The same in hexadecimal, in lower case.
std::string Sha256Text(std::string_view bytes);

}  // namespace korvane
