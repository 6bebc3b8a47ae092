// Gradient noise in two dimensions (K. Perlin, "An Image Synthesizer", 1985) on a
// lattice of 16 x 16, in single precision: period 16 in both axes.
//
// The tables are built once in the life of the program or library.
#pragma once

namespace tess {

/// A coordinate's place on the lattice: between two of its lines.
struct LatticePlace {
    int line, next;  ///< 0 to 15
    float part;      ///< of the way from one to the other
    float weight;    ///< the same, eased at both ends
};
/// Requires: `coordinate` is above -10000 and far below 2^31.
[[nodiscard]] LatticePlace PlaceOnLattice(float coordinate);

/// Builds the tables from `seed`, unless that was done before, with another seed or
/// not. Starts the runtime's generator anew when it builds.
void BuildLatticeNoise(int seed);

/// Requires: the tables are built.
[[nodiscard]] float LatticeNoise(const LatticePlace& x, const LatticePlace& y);

}  // namespace tess
