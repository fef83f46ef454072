// The digest of the library that there is none of for browsers, by the same names.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#define SHA256_DIGEST_SIZE 32

struct sha256_ctx {
    std::array<std::uint32_t, 8> state;
    std::array<std::uint8_t, 64> block;
    std::uint64_t size;
};

void sha256_init(sha256_ctx* context);
void sha256_update(sha256_ctx* context, std::size_t size, const std::uint8_t* bytes);
void sha256_digest(sha256_ctx* context, std::size_t size, std::uint8_t* digest);
