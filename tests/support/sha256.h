// SHA-256 (FIPS 180-4), for digests of frames.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tess::test {

class Sha256 {
public:
    void Add(const void* data, std::size_t size);
    /// The digest of all that was added, as 64 hexadecimal digits. Ends the use.
    [[nodiscard]] std::string Finish();

private:
    void Compress();

    std::array<std::uint32_t, 8> state_{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                        0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<std::uint8_t, 64> block_{};
    std::size_t filled_ = 0;
    std::uint64_t length_ = 0;
};

}  // namespace tess::test
