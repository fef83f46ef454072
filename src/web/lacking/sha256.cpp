// FIPS 180-4.
#include <bit>

#include "nettle/sha2.h"

namespace {

constexpr std::array<std::uint32_t, 64> kRounds = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

void TakeBlock(sha256_ctx& context) {
    std::array<std::uint32_t, 64> words{};
    for (std::size_t i = 0; i < 16; ++i)
        for (std::size_t k = 0; k < 4; ++k)
            words[i] = words[i] << 8U | context.block[4 * i + k];
    for (std::size_t i = 16; i < 64; ++i) {
        const auto one = words[i - 15];
        const auto two = words[i - 2];
        words[i] = words[i - 16] + (std::rotr(one, 7) ^ std::rotr(one, 18) ^ one >> 3U) + words[i - 7] +
                   (std::rotr(two, 17) ^ std::rotr(two, 19) ^ two >> 10U);
    }
    auto [a, b, c, d, e, f, g, h] = context.state;
    for (std::size_t i = 0; i < 64; ++i) {
        const auto first =
            h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + ((e & f) ^ (~e & g)) + kRounds[i] + words[i];
        const auto second = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < added.size(); ++i)
        context.state[i] += added[i];
}

}  // namespace

void sha256_init(sha256_ctx* context) {
    context->state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    context->size = 0;
}

void sha256_update(sha256_ctx* context, std::size_t size, const std::uint8_t* bytes) {
    for (std::size_t i = 0; i < size; ++i) {
        context->block[context->size++ % 64] = bytes[i];
        if (context->size % 64 == 0)
            TakeBlock(*context);
    }
}

void sha256_digest(sha256_ctx* context, std::size_t size, std::uint8_t* digest) {
    const auto bits = context->size * 8;
    const std::uint8_t one = 0x80;
    const std::uint8_t zero = 0;
    sha256_update(context, 1, &one);
    while (context->size % 64 != 56)
        sha256_update(context, 1, &zero);
    for (int shift = 56; shift >= 0; shift -= 8) {
        const auto byte = static_cast<std::uint8_t>(bits >> static_cast<unsigned>(shift));
        sha256_update(context, 1, &byte);
    }
    for (std::size_t i = 0; i < size; ++i)
        digest[i] = static_cast<std::uint8_t>(context->state[i / 4] >> (24 - 8 * (i % 4)));
    sha256_init(context);
}
