#include "pipeline/color_tree.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

#include "tests/reference/plain_palette.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"
#include "tests/support/sample_pictures.h"

namespace tess {
namespace {

using Palette = std::array<std::uint8_t, kPaletteBytes>;
using Quantizer = int (*)(int*, std::uint8_t*, const FrameList*);

class Frames {
public:
    Frames() = default;
    Frames(const Frames&) = delete;
    Frames& operator=(const Frames&) = delete;
    ~Frames() { FrameListFree(&list_); }

    void Add(ImageHandle image) {
        const FrameRecord record{image, nullptr, 0, -1};
        ASSERT_EQ(FrameListAdd(&list_, &record), 1);
    }
    [[nodiscard]] const FrameList* List() const { return &list_; }

private:
    FrameList list_{};
};

struct Result {
    int returned;
    int count;
    Palette palette;

    bool operator==(const Result&) const = default;
    [[nodiscard]] ColorWord Entry(std::size_t i) const {
        return MakeColor(palette[3 * i], palette[3 * i + 1], palette[3 * i + 2]);
    }
};

Result Quantized(const Frames& frames, int wanted, Quantizer quantizer = QuantizeFrames) {
    Result result{0, wanted, {}};
    result.palette.fill(77);
    result.returned = quantizer(&result.count, result.palette.data(), frames.List());
    return result;
}

/// `count` different colours in a row, far enough apart for cells of their own.
std::vector<std::uint32_t> DifferentColors(std::uint32_t count) {
    std::vector<std::uint32_t> colors;
    for (std::uint32_t i = 0; i < count; ++i) {
        colors.push_back((i & 7) << 5 | ((i >> 3) & 7) << 13 | (i >> 6) << 21);
    }
    return colors;
}

TEST(QuantizeFrames, FewColorsAreKeptInOrderOfAppearance) {
    Frames frames;
    frames.Add(ImageOf(2, {0x030201, 0xFF0000, 0xFF0000, 0x030201}));
    frames.Add(ImageOf(2, {0xFF0000, 0x000000, 0x0000FE, 0x0000FE}));
    const Result result = Quantized(frames, 4);
    EXPECT_EQ(result.returned, 1);
    EXPECT_EQ(result.count, 4);
    EXPECT_EQ(result.Entry(0), 0x030201U);
    EXPECT_EQ(result.Entry(1), 0xFF0000U);
    EXPECT_EQ(result.Entry(2), 0x000000U);
    EXPECT_EQ(result.Entry(3), 0x0000FEU);
    EXPECT_EQ(result.palette[12], 0);  // cleared behind them
}

TEST(QuantizeFrames, NoFramesGiveNoColors) {
    const Result result = Quantized(Frames(), 16);
    EXPECT_EQ(result.returned, 1);
    EXPECT_EQ(result.count, 0);
    EXPECT_EQ(result.palette, Palette{});
}

TEST(QuantizeFrames, TwoColorsBecomeTheirMeanWhenOneIsWanted) {
    // One is wanted, so the tree has two levels: a cell of 64 for each of them.
    // Three pixels of red 10, one of red 200: (4 x 0.5 + 30 + 200) / 4 = 58.
    Frames frames;
    frames.Add(ImageOf(4, {10, 10, 10, 200}));
    const Result result = Quantized(frames, 1);
    EXPECT_EQ(result.count, 1);
    EXPECT_EQ(result.Entry(0), 58U);
}

TEST(QuantizeFrames, NearColorsShareACell) {
    // Sixteen colours wanted make three levels, cells of 32: 17 reds in one of
    // them, from 0 to 16. Mean 8 + 0.5, cut to 8.
    Frames frames;
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t red = 0; red < 17; ++red)
        pixels.push_back(red);
    frames.Add(ImageOf(17, pixels));
    const Result result = Quantized(frames, 16);
    EXPECT_EQ(result.count, 1);
    EXPECT_EQ(result.Entry(0), 8U);
}

TEST(QuantizeFrames, SmallestErrorsAreMergedFirst) {
    // Two wanted, two levels: cells of 128 with centres at 63.5 and 191.5, cells of
    // 64 with centres at 31.5, 95.5 and so on. Errors of (32, 32, 32): 0.75 in its
    // small cell; of (100, 32, 32): 20.75 in its own; their large cell: 6293.5. Of
    // (192, 192, 192): 2976.75 in its small cell, 0.75 in its large one. The first
    // threshold is 0.75: the first colour goes up into its large cell, the third
    // past its own into the root. The next is 20.75: the second joins the first.
    Frames frames;
    frames.Add(ImageOf(3, {0x202020, 0x202064, 0xC0C0C0}));
    const Result result = Quantized(frames, 2);
    EXPECT_EQ(result.count, 2);
    EXPECT_EQ(result.Entry(0), 0x202042U);  // red (2 x 0.5 + 132) / 2 = 66.5
    EXPECT_EQ(result.Entry(1), 0xC0C0C0U);
}

TEST(QuantizeFrames, Exactly256ColorsAreKeptWhenNothingFollows) {
    Frames frames;
    const std::vector<std::uint32_t> colors = DifferentColors(256);
    frames.Add(ImageOf(16, colors));
    const Result result = Quantized(frames, 256);
    EXPECT_EQ(result.count, 256);
    for (std::size_t i = 0; i < 256; ++i)
        EXPECT_EQ(result.Entry(i), colors[i]);
}

TEST(QuantizeFrames, OnePixelMoreThan256ColorsGoesThroughTheTree) {
    // The 257th pixel counts as a new colour though it repeats the first. The
    // palette is in the tree's order then: by cells, blue above all else last.
    Frames frames;
    std::vector<std::uint32_t> colors = DifferentColors(256);
    colors.push_back(colors[0]);
    frames.Add(ImageOf(257, colors));
    const Result result = Quantized(frames, 256);
    EXPECT_EQ(result, Quantized(frames, 256, plain::QuantizeFrames));
    EXPECT_EQ(result.count, 256);
    EXPECT_EQ(result.Entry(0), 0U);
    EXPECT_EQ(result.Entry(1), 0x200000U);  // path 0, 0, 1, 0, 0: the lowest blue bit in use
}

TEST(QuantizeFrames, Exactly256ColorsWith255WantedGoThroughTheTree) {
    Frames frames;
    frames.Add(ImageOf(16, DifferentColors(256)));
    const Result result = Quantized(frames, 255);
    EXPECT_EQ(result, Quantized(frames, 255, plain::QuantizeFrames));
    EXPECT_LE(result.count, 255);
    EXPECT_GT(result.count, 0);
}

TEST(QuantizeFrames, ZeroAndMoreThan256AskFor256) {
    Frames frames;
    frames.Add(MakePicture(PictureKind::Noise, 40, 40, 1));
    EXPECT_EQ(Quantized(frames, 0), Quantized(frames, 256));
    EXPECT_EQ(Quantized(frames, 1000), Quantized(frames, 256));
}

TEST(QuantizeFrames, FramesThatCannotBeLockedFail) {
    Frames frames;
    frames.Add(MakePicture(PictureKind::Flat, 2, 2, 1));
    frames.Add(nullptr);
    EXPECT_EQ(Quantized(frames, 16).returned, 0);
}

TEST(QuantizeFrames, FramesOfAnotherDepthFail) {
    Frames frames;
    frames.Add(MakeIndexedPicture(2, 2, 8, 1));
    EXPECT_EQ(Quantized(frames, 16).returned, 0);
}

TEST(QuantizeFrames, EachMissingBlockFailsAndNothingIsLeft) {
    Frames frames;
    frames.Add(MakePicture(PictureKind::Noise, 20, 20, 1));
    EXPECT_GT(FailEachAllocation([&] { return Quantized(frames, 16).returned == 1; }), 0U);
}

class AllKinds : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Pictures, AllKinds, testing::Range(0, kPictureKinds));

TEST_P(AllKinds, AgreeWithThePlainTree) {
    const auto kind = static_cast<PictureKind>(GetParam());
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        Frames frames;
        const int width = 1 + static_cast<int>(seed * 17 % 71);
        const int height = 1 + static_cast<int>(seed * 29 % 53);
        for (std::uint32_t frame = 0; frame <= seed % 3; ++frame) {
            frames.Add(MakePicture(kind, width, height, seed * 3 + frame));
        }
        for (const int wanted : {1, 2, 3, 5, 16, 17, 60, 64, 200, 254, 255, 256}) {
            EXPECT_EQ(Quantized(frames, wanted), Quantized(frames, wanted, plain::QuantizeFrames))
                << "seed " << seed << ", wanted " << wanted;
        }
    }
}

TEST(QuantizeFrames, MixedFramesAgreeWithThePlainTree) {
    for (std::uint32_t seed = 100; seed < 110; ++seed) {
        Frames frames;
        for (int kind = 0; kind < kPictureKinds; ++kind) {
            frames.Add(MakePicture(static_cast<PictureKind>(kind), 30 + kind, 20, seed));
        }
        for (const int wanted : {2, 30, 255, 256}) {
            EXPECT_EQ(Quantized(frames, wanted), Quantized(frames, wanted, plain::QuantizeFrames));
        }
    }
}

// A million and more pixels in one cell of the first level: the root's error in
// the plain tree is past the whole quarters that a double can tell apart.
TEST(QuantizeFrames, LargePicturesAgreeWhereTheRootErrorIsRounded) {
    Frames frames;
    frames.Add(MakePicture(PictureKind::NarrowRange, 1500, 1200, 3));
    for (const int wanted : {2, 255}) {
        EXPECT_EQ(Quantized(frames, wanted), Quantized(frames, wanted, plain::QuantizeFrames));
    }
}

}  // namespace
}  // namespace tess
