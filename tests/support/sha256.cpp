#include "tests/support/sha256.h"

#include <bit>
#include <cstdio>

namespace tess::test {

namespace {

/// The first 32 bits of the fractional parts of the cube roots of the first 64
/// primes (section 4.2.2).
constexpr std::uint32_t kRoundConstants[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

}  // namespace

void Sha256::Add(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    length_ += size;
    for (std::size_t i = 0; i < size; ++i) {
        block_[filled_++] = bytes[i];
        if (filled_ == block_.size()) Compress();
    }
}

std::string Sha256::Finish() {
    const std::uint64_t bits = length_ * 8;
    const std::uint8_t one = 0x80;
    const std::uint8_t zero = 0;
    Add(&one, 1);
    while (filled_ != 56)
        Add(&zero, 1);
    for (int shift = 56; shift >= 0; shift -= 8) {
        const auto byte = static_cast<std::uint8_t>(bits >> shift);
        Add(&byte, 1);
    }
    std::string digest;
    for (const std::uint32_t word : state_) {
        char text[9];
        std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(word));
        digest += text;
    }
    return digest;
}

void Sha256::Compress() {
    std::uint32_t w[64];
    for (std::size_t t = 0; t < 16; ++t) {
        w[t] = std::uint32_t{block_[4 * t]} << 24 | std::uint32_t{block_[4 * t + 1]} << 16 |
               std::uint32_t{block_[4 * t + 2]} << 8 | block_[4 * t + 3];
    }
    for (std::size_t t = 16; t < 64; ++t) {
        const std::uint32_t a = w[t - 15];
        const std::uint32_t b = w[t - 2];
        w[t] = w[t - 16] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) + w[t - 7] +
               (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    auto [a, b, c, d, e, f, g, h] = state_;
    for (std::size_t t = 0; t < 64; ++t) {
        const std::uint32_t sum1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const std::uint32_t t1 = h + sum1 + ((e & f) ^ (~e & g)) + kRoundConstants[t] + w[t];
        const std::uint32_t sum0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const std::uint32_t t2 = sum0 + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + t2;
    }
    const std::array<std::uint32_t, 8> added{a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < state_.size(); ++i)
        state_[i] += added[i];
    filled_ = 0;
}

}  // namespace tess::test
