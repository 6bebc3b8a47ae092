// Space is cut into cells with a pseudo-random gradient at each corner. A point's
// value is the mean of what the eight gradients round it give there, weighed along
// each axis by the smooth step t t (3 - 2 t). All in single precision; coordinates
// are moved by 4096 first, to cut negative ones right, which costs them their last
// bits: that is meant.
#include "styles/gradient_noise.h"

#include <cmath>
#include <utility>

#include "runtime/random.h"

namespace tess {

namespace {

float DrawComponent() {
    return static_cast<float>((runtime::rand() % 512 - 256) * 0.00390625);
}

/// A gradient of no length keeps it: scaling would divide by zero.
void ScaleToUnitLength(float (&gradient)[3]) {
    const float length = std::sqrt(gradient[0] * gradient[0] + gradient[1] * gradient[1] +
                                   gradient[2] * gradient[2]);
    if (length == 0.0F) return;
    for (float& component : gradient)
        component /= length;
}

/// A coordinate's cell and where in it the point lies.
struct CellPlace {
    int low, high;  ///< the cell's two sides
    float from_low, from_high;
    float weight;  ///< of the high side

    explicit CellPlace(float coordinate) {
        constexpr float kOffset = 4096.0F;
        constexpr int kMask = NoiseTables::kSize - 1;
        const float moved = coordinate + kOffset;
        const int whole = static_cast<int>(moved);
        low = whole & kMask;
        high = (low + 1) & kMask;
        from_low = moved - static_cast<float>(whole);
        from_high = from_low - 1.0F;
        weight = from_low * from_low * (3.0F - 2.0F * from_low);
    }
};

float Between(float weight, float low, float high) {
    return low + weight * (high - low);
}

}  // namespace

void FillNoiseTables(NoiseTables* tables) {
    constexpr int kOtherDraws = 3;  // for noise in one and two dimensions
    for (int i = 0; i < NoiseTables::kSize; ++i) {
        tables->Permutation[i] = i;
        for (int draw = 0; draw < kOtherDraws; ++draw)
            runtime::SkipDraw();
        for (float& component : tables->Gradients[i])
            component = DrawComponent();
        ScaleToUnitLength(tables->Gradients[i]);
    }
    for (int i = NoiseTables::kSize - 1; i > 0; --i)
        std::swap(tables->Permutation[i],
                  tables->Permutation[runtime::rand() % NoiseTables::kSize]);
    for (int i = 0; i < NoiseTables::kSize + 2; ++i) {
        tables->Permutation[NoiseTables::kSize + i] = tables->Permutation[i];
        for (int axis = 0; axis < 3; ++axis)
            tables->Gradients[NoiseTables::kSize + i][axis] = tables->Gradients[i][axis];
    }
}

float PerlinNoise3(const NoiseTables& tables, float x, float y, float z) {
    const CellPlace column(x), row(y), layer(z);
    const int* permutation = tables.Permutation;
    const int left = permutation[column.low], right = permutation[column.high];
    const int corners[2][2] = {{permutation[left + row.low], permutation[right + row.low]},
                               {permutation[left + row.high], permutation[right + row.high]}};
    const auto at = [&](int corner, float across, float down, float deep) {
        const float(&gradient)[3] = tables.Gradients[corner];
        return across * gradient[0] + down * gradient[1] + deep * gradient[2];
    };
    const auto plane = [&](int side, float deep) {
        const float upper =
            Between(column.weight, at(corners[0][0] + side, column.from_low, row.from_low, deep),
                    at(corners[0][1] + side, column.from_high, row.from_low, deep));
        const float lower =
            Between(column.weight, at(corners[1][0] + side, column.from_low, row.from_high, deep),
                    at(corners[1][1] + side, column.from_high, row.from_high, deep));
        return Between(row.weight, upper, lower);
    };
    return Between(layer.weight, plane(layer.low, layer.from_low),
                   plane(layer.high, layer.from_high));
}

}  // namespace tess
