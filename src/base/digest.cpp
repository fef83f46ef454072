#include "base/digest.h"

#include <nettle/sha2.h>

namespace korvane {

Digest Sha256(std::string_view bytes) {
    static_assert(std::tuple_size_v<Digest> == SHA256_DIGEST_SIZE);
    // The library takes bytes of its own type.
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(bytes.data());  // NOLINT
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), begin);
    Digest digest;
    sha256_digest(&context, digest.size(), digest.data());
    return digest;
}

std::string Sha256Text(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const unsigned byte : Sha256(bytes)) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 15U];
    }
    return text;
}

}  // namespace korvane
