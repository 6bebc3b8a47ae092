// Gradient noise in three dimensions (K. Perlin, "An Image Synthesizer", 1985).
#pragma once

namespace tess {

/// The tables of one noise. Entries from 256 on repeat the first ones, so that sums
/// of an entry and an offset need no wrap.
struct NoiseTables {
    static constexpr int kSize = 256;
    static constexpr int kEntries = kSize + kSize + 2;

    int Permutation[kEntries];
    float Gradients[kEntries][3];
};

/// Fills the tables with 256 x 6 + 255 draws of runtime::rand.
void FillNoiseTables(NoiseTables* tables);

/// A value about -1 to 1, 0 at whole coordinates. Requires: the tables are filled;
/// coordinates above -4096.
[[nodiscard]] float PerlinNoise3(const NoiseTables& tables, float x, float y, float z);

}  // namespace tess
