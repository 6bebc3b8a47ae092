#include "fills/gradient.h"

#include <gtest/gtest.h>
#include <random>

#include "tests/reference/plain_gradient.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

std::vector<std::uint32_t> TakePixels(ImageHandle handle) {
    const platform::OwnedBlock owner(handle);
    return Pixels(handle);
}

Gradient TwoColors(GradientType type, ColorWord start, ColorWord end) {
    Gradient gradient{};
    gradient.Type = type;
    gradient.StartColor = start;
    gradient.EndColor = end;
    gradient.Midpoint = 50;
    gradient.TwoColor = 1;
    InitFountain(&gradient.Ramp, FountainPreset::SevenColors);
    return gradient;
}

std::vector<std::uint8_t> Render(int width, int height, const Gradient& gradient) {
    return TakeImageBytes(RenderGradient(width, height, gradient));
}

TEST(LinearGradient, AtNinetyDegreesTheFirstColorIsAtTheLeft) {
    const auto pixels = TakePixels(DrawLinearGradient(0xFF, 0, 100, 1, 90, nullptr));
    EXPECT_GT(RedOf(pixels.front()), 240);
    EXPECT_LT(RedOf(pixels.back()), 15);
    for (std::size_t i = 1; i < pixels.size(); ++i)
        EXPECT_LE(pixels[i], pixels[i - 1]);
}

TEST(LinearGradient, WithoutRotationARampRunsFromTopToBottom) {
    const Gradient gradient = TwoColors(GradientType::Linear, 0x000000, 0x0000FF);
    const auto pixels = TakePixels(RenderGradient(1, 100, gradient));
    EXPECT_LT(RedOf(pixels.front()), 15);
    EXPECT_GT(RedOf(pixels.back()), 240);
}

TEST(LinearGradient, FirstAndLastColumnsLieTwoPixelsInFromTheEnds) {
    // 4 columns are 8 with the margins: bands of an eighth, 32 colours each.
    const auto pixels = TakePixels(DrawLinearGradient(0xFF, 0, 4, 1, 90, nullptr));
    EXPECT_NEAR(RedOf(pixels[0]), 0xFF * 6 / 8, 32);
    EXPECT_NEAR(RedOf(pixels[3]), 0xFF * 2 / 8, 32);
}

TEST(LinearGradient, SameBytesAsWithEveryBandDrawn) {
    std::mt19937 random(1);
    const auto draw = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    for (int i = 0; i < 300; ++i) {
        const int width = draw(1, i % 3 == 0 ? 300 : 40), height = draw(1, i % 5 == 0 ? 90 : 5);
        const int rotation = i % 2 == 0 ? 90 : draw(-360, 360);
        const auto first = static_cast<ColorWord>(draw(0, 0xFFFFFF));
        const auto second = static_cast<ColorWord>(draw(0, 0xFFFFFF));
        const Gradient gradient = TwoColors(GradientType::Linear, first, second);
        const Gradient* ramp = i % 4 == 0 ? &gradient : nullptr;
        EXPECT_EQ(TakeImageBytes(DrawLinearGradient(first, second, width, height, rotation, ramp)),
                  TakeImageBytes(PlainLinearGradient(first, second, width, height, rotation, ramp)))
            << width << " x " << height << " at " << rotation;
    }
}

TEST(LinearGradient, IgnoresTheCenter) {
    Gradient gradient = TwoColors(GradientType::Linear, 0, 0xFFFFFF);
    gradient.Rotation = 30;
    const auto centered = Render(20, 10, gradient);
    gradient.CenterX = 20;
    gradient.CenterY = -30;
    EXPECT_EQ(Render(20, 10, gradient), centered);
}

TEST(LinearGradient, UnknownTypeDrawsAsLinear) {
    Gradient gradient = TwoColors(GradientType::Linear, 0x102030, 0xFFFFFF);
    const auto linear = Render(20, 10, gradient);
    gradient.Type = static_cast<GradientType>(77);
    EXPECT_EQ(Render(20, 10, gradient), linear);
}

TEST(ConicalGradient, RotationOfMinus360IsThatOfZero) {
    Gradient gradient = TwoColors(GradientType::Conical, 0, 0xFFFFFF);
    const auto straight = Render(31, 20, gradient);
    gradient.Rotation = -360;
    EXPECT_EQ(Render(31, 20, gradient), straight);
}

TEST(ConicalGradient, IsMirroredAtItsStart) {
    // The start is at 0 degrees, to the left of the centre at (10, 10).
    const Gradient gradient = TwoColors(GradientType::Conical, 0x0000FF, 0xFF0000);
    const auto pixels = TakePixels(RenderGradient(21, 21, gradient));
    const auto at = [&pixels](std::size_t x, std::size_t y) { return pixels[y * 21 + x]; };
    EXPECT_EQ(at(2, 10), 0x0000FFu);
    EXPECT_NEAR(BlueOf(at(18, 10)), 255, 2);
    for (std::size_t x = 0; x < 21; ++x) {
        for (std::size_t y = 1; y <= 10; ++y)
            EXPECT_NEAR(RedOf(at(x, 10 - y)), RedOf(at(x, 10 + y)), 2) << x << " " << y;
    }
}

TEST(ConicalGradient, CenterMovesRightAndUp) {
    Gradient gradient = TwoColors(GradientType::Conical, 0x0000FF, 0xFF0000);
    gradient.CenterX = 50;
    gradient.CenterY = -50;
    // The centre is at (20, 20), outside the picture: all of it is in one quarter.
    for (const std::uint32_t pixel : TakePixels(RenderGradient(20, 20, gradient)))
        EXPECT_GE(RedOf(pixel), 127);
}

TEST(ConicalGradient, WithoutARampTheLevelMixesTheTwoColors) {
    const auto pixels = TakePixels(DrawConicalGradient(100, 200, 3, 3, 0, 0, 0, nullptr));
    EXPECT_EQ(pixels[3], 100u);  // left of the centre
    EXPECT_EQ(pixels[5], 200u);  // right of it
    EXPECT_EQ(pixels[1], 150u);  // above
}

TEST(NestedGradient, RunsFromTheCornersToTheMiddle) {
    for (const GradientType type : {GradientType::Elliptical, GradientType::Rectangular}) {
        const auto pixels = TakePixels(RenderGradient(41, 41, TwoColors(type, 0, 0xFF)));
        EXPECT_LT(RedOf(pixels[0]), type == GradientType::Elliptical ? 30 : 100);
        EXPECT_GT(RedOf(pixels[20 * 41 + 20]), 220);
    }
}

TEST(NestedGradient, IgnoresRotation) {
    for (const GradientType type : {GradientType::Elliptical, GradientType::Rectangular}) {
        Gradient gradient = TwoColors(type, 0, 0xFFFFFF);
        const auto straight = Render(20, 10, gradient);
        gradient.Rotation = 77;
        EXPECT_EQ(Render(20, 10, gradient), straight);
    }
}

TEST(NestedGradient, CenterDriftsAwayFromTheMiddle) {
    Gradient gradient = TwoColors(GradientType::Rectangular, 0, 0xFF);
    gradient.CenterX = 40;
    const auto pixels = TakePixels(RenderGradient(41, 41, gradient));
    EXPECT_GT(RedOf(pixels[20 * 41 + 34]), RedOf(pixels[20 * 41 + 6]));
}

TEST(NestedGradient, OnePixelHasNoStepsAndKeepsItsFill) {
    // Its ramp is empty, so the fill is black.
    for (const GradientType type : {GradientType::Elliptical, GradientType::Rectangular})
        EXPECT_EQ(TakePixels(RenderGradient(1, 1, TwoColors(type, 0xFFFFFF, 0xFFFFFF)))[0], 0u);
}

TEST(NestedGradient, WithoutARampTheStepMixesTheTwoColors) {
    // Halves of 4 are 2, so 3 steps, of the boxes 0 to 4, 0 to 3 and 1 to 2.
    const auto pixels = TakePixels(DrawRectangularGradient(0, 90, 4, 4, 0, 0, nullptr));
    EXPECT_EQ(pixels[3 * 4 + 3], 0u);
    EXPECT_EQ(pixels[0], 30u);
    EXPECT_EQ(pixels[1 * 4 + 1], 60u);
}

TEST(RenderGradient, ZeroFilledRecordIsBlackAtAnySize) {
    for (int type = 0; type < 4; ++type) {
        Gradient gradient{};
        gradient.Type = static_cast<GradientType>(type);
        for (const int size : {1, 7, 64}) {
            for (const std::uint32_t pixel : TakePixels(RenderGradient(size, size, gradient)))
                EXPECT_EQ(pixel, 0u);
        }
    }
}

TEST(RenderGradient, ValuesOfAnyBytesDoNoHarm) {
    for (int type = 0; type < 4; ++type) {
        for (const std::int32_t wild : {INT32_MIN, -1000, 1000, INT32_MAX}) {
            Gradient gradient = TwoColors(static_cast<GradientType>(type), 0, 0xFFFFFF);
            gradient.EdgePad = gradient.CenterX = gradient.CenterY = wild;
            gradient.Midpoint = gradient.Rotation = wild;
            EXPECT_FALSE(Render(20, 10, gradient).empty());
        }
    }
}

TEST(RenderGradient, EveryFailingAllocationEndsInNull) {
    for (int type = 0; type < 4; ++type) {
        Gradient gradient = TwoColors(static_cast<GradientType>(type), 0, 0xFFFFFF);
        gradient.Midpoint = 30;
        const std::size_t failures = FailEachAllocation([&gradient] {
            const platform::OwnedBlock image(RenderGradient(8, 8, gradient));
            return static_cast<bool>(image);
        });
        EXPECT_GT(failures, 3u);
    }
}

}  // namespace

}  // namespace tess::test
