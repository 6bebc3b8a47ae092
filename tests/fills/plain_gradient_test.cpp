// Gradients, their ramps and the strips of fountains against the literal versions of
// tests/reference, over records drawn at random.
#include "tests/reference/plain_gradient.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>

#include "fills/gradient.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

class Draws {
public:
    explicit Draws(unsigned seed) : random_(seed) {}

    int Between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }
    bool OneIn(int chances) { return Between(1, chances) == 1; }
    /// With a top byte, which means nothing in most places.
    ColorWord Color() { return static_cast<ColorWord>(Between(0, 0x7FFFFFFF)); }

private:
    std::mt19937 random_;
};

/// Up to 70 markers in use of the 64 that there are, in any order, some in empty slots.
Fountain RandomFountain(Draws& draws) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::SevenColors);
    fountain.Flags = static_cast<std::uint32_t>(draws.Between(0, 3));
    if (draws.OneIn(4)) return fountain;
    fountain.Start = draws.Color();
    fountain.End = draws.Color();
    fountain.Count = draws.Between(0, draws.OneIn(8) ? 70 : 9);
    for (FountainMarker& marker : fountain.Markers)
        marker = MakeMarker(draws.Between(0, 255), draws.Color());
    if (draws.OneIn(2)) {
        std::sort(std::begin(fountain.Markers), std::end(fountain.Markers),
                  [](auto a, auto b) { return MarkerPosition(a) < MarkerPosition(b); });
    }
    return fountain;
}

Gradient RandomGradient(Draws& draws, GradientType type) {
    Gradient gradient{};
    gradient.Type = type;
    gradient.StartColor = draws.Color();
    gradient.EndColor = draws.Color();
    gradient.EdgePad = draws.OneIn(2) ? draws.Between(1, 45) : 0;
    gradient.CenterX = draws.OneIn(3) ? 0 : draws.Between(-50, 50);
    gradient.CenterY = draws.OneIn(3) ? 0 : draws.Between(-50, 50);
    gradient.Midpoint = draws.OneIn(2) ? draws.Between(1, 99) : 50;
    gradient.Rotation = draws.OneIn(4) ? 45 * draws.Between(-8, 8) : draws.Between(-360, 360);
    gradient.TwoColor = draws.Between(0, 2);
    gradient.Ramp = RandomFountain(draws);
    return gradient;
}

std::string Told(const Gradient& gradient, int width, int height) {
    std::string text = std::to_string(width) + " x " + std::to_string(height);
    for (const std::int32_t value :
         {std::int32_t{gradient.EdgePad}, std::int32_t{gradient.CenterX},
          std::int32_t{gradient.CenterY}, std::int32_t{gradient.Midpoint},
          std::int32_t{gradient.Rotation}, std::int32_t{gradient.TwoColor}}) {
        text += " " + std::to_string(value);
    }
    return text;
}

void ExpectPlain(const Gradient& gradient, int width, int height) {
    EXPECT_EQ(TakeImageBytes(RenderGradient(width, height, gradient)),
              TakeImageBytes(PlainGradient(width, height, gradient)))
        << Told(gradient, width, height);
}

void ExpectAllPlain(GradientType type) {
    Draws draws(11);
    for (int i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
        const int width = draws.Between(1, 70), height = draws.Between(1, 70);
        ExpectPlain(RandomGradient(draws, type), width, height);
    }
}

TEST(PlainGradient, LinearIsTheSame) {
    ExpectAllPlain(GradientType::Linear);
}

TEST(PlainGradient, ConicalIsTheSame) {
    ExpectAllPlain(GradientType::Conical);
}

TEST(PlainGradient, EllipticalIsTheSame) {
    ExpectAllPlain(GradientType::Elliptical);
}

TEST(PlainGradient, RectangularIsTheSame) {
    ExpectAllPlain(GradientType::Rectangular);
}

TEST(PlainGradient, ManySmallStepsAreTheSame) {
    // What single precision rounds off a step shows after thousands, between colours that
    // differ from each step to the next.
    constexpr int kShorter = 2;
    Draws draws(12);
    for (int i = 0; i < 60; ++i) {
        Gradient gradient = RandomGradient(
            draws, i % 2 == 0 ? GradientType::Elliptical : GradientType::Rectangular);
        gradient.TwoColor = 0;
        gradient.EdgePad = 0;
        gradient.Ramp.Count = kFountainMarkers;
        for (int marker = 0; marker < kFountainMarkers; ++marker)
            gradient.Ramp.Markers[marker] = MakeMarker(4 * marker + 1, draws.Color());
        const int longer = draws.Between(2000, 4000);
        ExpectPlain(gradient, i % 4 < 2 ? longer : kShorter, i % 4 < 2 ? kShorter : longer);
    }
}

TEST(PlainGradient, RotationsAndCentersFarOutAreTheSame) {
    Draws draws(13);
    for (int i = 0; i < 200; ++i) {
        Gradient gradient = RandomGradient(draws, static_cast<GradientType>(i % 4));
        const int farthest = draws.OneIn(2) ? 100'000 : 1000;
        gradient.Rotation = draws.Between(-farthest, farthest);
        gradient.CenterX = draws.Between(-farthest, farthest);
        gradient.CenterY = draws.Between(-farthest, farthest);
        ExpectPlain(gradient, draws.Between(1, 30), draws.Between(1, 30));
    }
}

TEST(PlainGradient, RampsAreTheSame) {
    Draws draws(14);
    for (int i = 0; i < 500; ++i) {
        const Gradient gradient = RandomGradient(draws, GradientType::Linear);
        const int count = draws.Between(1, 400);
        const platform::OwnedBlock block(BuildGradientRamp(gradient, count));
        const LockedRamp ramp(block.Get());
        ASSERT_TRUE(ramp);
        const std::vector<ColorWord> colors(ramp->Colors(), ramp->Colors() + ramp->Count);
        EXPECT_EQ(colors, PlainGradientRamp(gradient, count)) << Told(gradient, count, 1);
    }
}

TEST(PlainGradient, StripsOfFountainsAreTheSame) {
    Draws draws(15);
    for (int i = 0; i < 500; ++i) {
        const Fountain fountain = RandomFountain(draws);
        const int width = draws.Between(1, 400), height = draws.Between(1, 4);
        EXPECT_EQ(TakeImageBytes(RenderFountainImage(fountain, width, height)),
                  TakeImageBytes(PlainFountainImage(fountain, width, height)))
            << width << " x " << height;
    }
}

}  // namespace

}  // namespace tess::test
