#include "pipeline/weighted_sums.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "pipeline/exact_sums.h"

namespace tess {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The weights of an axis of `size` lines that is scaled by `factor`.
WeightTable TableOf(const ScalingKernel& kernel, double factor, double blur, int size) {
    const double support = std::max(1.0, blur * std::max(1.0 / factor, 1.0)) * kernel.support;
    const int lines = std::max(1, static_cast<int>(size * factor));
    WeightTable table(static_cast<std::size_t>(lines), MostWeights(support, size));
    table.Fill({kernel, factor, blur, size}, 0, lines);
    return table;
}

Bytes RandomBytes(std::mt19937& random, std::size_t count, bool is_flat) {
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(is_flat ? 127 + random() % 2 : random() % 256);
    return bytes;
}

/// Draws scalings and calls `compare` with each table, the count of source lines and bytes.
template <class Compare>
void ForRandomScalings(Compare compare) {
    std::mt19937 random(11);
    for (int run = 0; run < 300; ++run) {
        const int size = 1 + static_cast<int>(random() % 60);
        const double factor = (1 + static_cast<int>(random() % 40)) / 16.0;
        const double blur = random() % 4 == 0 ? 1.5 : 1.0;
        const ScalingKernel& kernel = random() % 2 == 0 ? kLanczosKernel : kMitchellKernel;
        compare(random, TableOf(kernel, factor, blur, size), size, random() % 3 == 0);
    }
}

double Box(double) {
    return 1.0;
}
constexpr ScalingKernel kBox{Box, 0.5};

TEST(WeightedSums, HalfIsRoundedUp) {
    const WeightTable table = TableOf(kBox, 0.5, 1.0, 2);
    Bytes row(2 + kRowSlack);
    row[0] = 3;
    row[1] = 6;
    Bytes exact(1);
    Bytes sums(1);
    SumPixelsExactly(row.data(), table.Line(0), 1, exact.data());
    SumPixels(row.data(), table.Line(0), 1, sums.data());
    EXPECT_EQ(exact[0], 5);  // (3 + 6) / 2 = 4.5
    EXPECT_EQ(sums[0], 5);
}

TEST(WeightedSums, RowsAreThoseOfTheExactSums) {
    ForRandomScalings([](auto& random, const WeightTable& table, int size, bool is_flat) {
        const std::size_t width = 1 + random() % 70;
        const Bytes source = RandomBytes(random, width * static_cast<std::size_t>(size), is_flat);
        const RowBytes rows{source.data(), static_cast<std::ptrdiff_t>(width)};
        for (int i = 0; i < table.Capacity(); ++i) {
            Bytes exact(width);
            Bytes sums(width);
            SumRowsExactly(rows, table.Line(i), 0, width, exact.data());
            SumRows(rows, table.Line(i), 0, width, sums.data());
            ASSERT_EQ(sums, exact) << size << " rows to " << table.Capacity() << ", row " << i;
        }
    });
}

TEST(WeightedSums, PixelsAreThoseOfTheExactSums) {
    ForRandomScalings([](auto& random, const WeightTable& table, int size, bool is_flat) {
        for (const int channels : {1, 3, 4}) {
            const auto length = static_cast<std::size_t>(size * channels);
            const Bytes row = RandomBytes(random, length + kRowSlack, is_flat);
            for (int i = 0; i < table.Capacity(); ++i) {
                Bytes exact(4);
                Bytes sums(4);
                SumPixelsExactly(row.data(), table.Line(i), channels, exact.data());
                SumPixels(row.data(), table.Line(i), channels, sums.data());
                ASSERT_EQ(sums, exact) << size << " pixels of " << channels << " bytes";
            }
        }
    });
}

}  // namespace
}  // namespace tess
