// The two right-hand corners of a cell take the vertical part of their gradient for
// both directions. That asymmetry is meant: it is part of the look.
//
// Building the tables draws a gradient for each of 16 lines, then shuffles the even
// slots of the permutation. Slot 16 takes part as 0, so a line may be there twice and
// another not at all; what is left in it is lost when the tables are continued, which
// spares sums of an entry and a line their wrap.
#include "fills/lattice_noise.h"

#include <utility>

#include "fills/texture.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"

namespace tess {

namespace {

constexpr int kLines = 16;
constexpr int kContinued = kLines + 2;

struct LatticeTables {
    bool is_built;
    float across[kLines + kContinued], down[kLines + kContinued];
    int permutation[kLines + kContinued];
};
LatticeTables tables;

void DrawGradients() {
    for (int i = 0; i < kLines; ++i) {
        const auto angle = static_cast<float>(runtime::rand() * 6.2831854820251465 / 32767.0);
        tables.across[i] = static_cast<float>(runtime::Sine(double{angle}));
        tables.down[i] = static_cast<float>(runtime::Cosine(double{angle}));
    }
}

void ShufflePermutation() {
    for (int i = 0; i < kLines; ++i)
        tables.permutation[i] = i;
    tables.permutation[kLines] = 0;
    for (int i = kLines; i >= 2; i -= 2)
        std::swap(tables.permutation[i], tables.permutation[runtime::rand() & (kLines - 1)]);
}

/// The gradient of a corner times its distance, summed as it is read: the vertical
/// product first.
float LeftCorner(int gradient, float x, float y) {
    return tables.down[gradient] * y + tables.across[gradient] * x;
}
float RightCorner(int gradient, float x, float y) {
    return tables.down[gradient] * y + tables.down[gradient] * x;
}

}  // namespace

LatticePlace PlaceOnLattice(float coordinate) {
    const float moved = coordinate + 10000.0F;
    const int whole = static_cast<int>(moved);
    const float part = moved - static_cast<float>(whole);
    const int line = whole & (kLines - 1);
    return {line, (line + 1) & (kLines - 1), part, (3.0F - 2.0F * part) * part * part};
}

void BuildLatticeNoise(int seed) {
    if (tables.is_built) return;
    runtime::srand(static_cast<unsigned>(seed));
    DrawGradients();
    ShufflePermutation();
    for (int i = 0; i < kContinued; ++i) {
        tables.across[kLines + i] = tables.across[i];
        tables.down[kLines + i] = tables.down[i];
        tables.permutation[kLines + i] = tables.permutation[i];
    }
    tables.is_built = true;
}

float LatticeNoise(const LatticePlace& x, const LatticePlace& y) {
    const int left = tables.permutation[x.line], right = tables.permutation[x.next];
    const float north_west = LeftCorner(tables.permutation[left + y.line], x.part, y.part);
    const float north_east = RightCorner(tables.permutation[right + y.line], x.part - 1.0F, y.part);
    const float south_west = LeftCorner(tables.permutation[left + y.next], x.part, y.part - 1.0F);
    const float south_east =
        RightCorner(tables.permutation[right + y.next], x.part - 1.0F, y.part - 1.0F);
    const float north = north_west + x.weight * (north_east - north_west);
    const float south = south_west + x.weight * (south_east - south_west);
    return (north + y.weight * (south - north)) * 1.5F;
}

void ForgetLatticeNoise() {
    tables.is_built = false;
}

}  // namespace tess
