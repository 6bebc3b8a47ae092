#include "styles/shaded_ball.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

#include "runtime/random.h"
#include "styles/scaled_alpha.h"
#include "tests/reference/plain_shaded_ball.h"
#include "tests/support/image_bytes.h"
#include "toolkit/wrap_compositing.h"

namespace tess::test {

namespace {

std::vector<std::uint32_t> TakePixels(ImageHandle handle) {
    const platform::OwnedBlock owner(handle);
    return Pixels(handle);
}

std::vector<std::uint32_t> TakePixels(ShrunkPicture sprite) {
    EXPECT_TRUE(sprite.IsShrunk);
    return Pixels(sprite.Picture.Get());
}

std::uint32_t Pixel(ImageHandle handle, int x, int y) {
    const LockedImage image(handle);
    return GetDibPixel(image, x, y);
}

ColorWord DrawColor() {
    return MakeColor(runtime::rand(), runtime::rand(), runtime::rand());
}

ShadedColors DrawColors() {
    return {DrawColor(), DrawColor(), DrawColor()};
}

TEST(ShadedBall, EverySizeHasTheBytesOfBallsPaintedInTheirOwnColors) {
    runtime::srand(31);
    for (int size = 10; size <= 36; ++size) {
        SpriteForm form{};
        for (const int glare : {0, 255}) {
            const ShadedColors c = DrawColors();
            const RingAngle angle = size % 2 == 0 ? RingAngle::Single : RingAngle::Double;
            const PlainShape shape =
                size % 2 == 0 ? PlainShape::SingleBall : PlainShape::DoubleBall;
            EXPECT_EQ(TakePixels(RenderShadedBall(c, {0, 0, size, size}, angle, &form)),
                      TakePixels(PlainRenderSprite(
                          {shape, size, size, 0, c.Base, c.Dark, c.Background, glare})))
                << size;
        }
    }
}

TEST(ShadedBall, BarsHaveTheBytesOfBarsPaintedInTheirOwnColors) {
    runtime::srand(32);
    for (int size = 10; size <= 36; size += 2) {
        for (const bool wide : {false, true}) {
            SpriteForm form{};
            const ShadedColors c = DrawColors();
            const int width = wide ? 3 * size : size;
            const int height = wide ? size : 3 * size;
            EXPECT_EQ(TakePixels(RenderShadedBar(c, size, {0, 0, width, height}, &form)),
                      TakePixels(PlainRenderSprite({PlainShape::Bar, width, height, size, c.Base,
                                                    c.Dark, c.Background, 160})))
                << size;
        }
    }
}

TEST(ShadedBall, IsOpaqueInTheMiddleAndClearInItsCorners) {
    SpriteForm form{};
    const platform::OwnedBlock ball =
        RenderShadedBall(ShadeColor(0x3787FF, 0, 70), {0, 0, 20, 20}, RingAngle::Double, &form)
            .Picture;
    EXPECT_EQ(AlphaOf(Pixel(ball.Get(), 10, 10)), 255);
    EXPECT_EQ(AlphaOf(Pixel(ball.Get(), 0, 0)), 0);
    EXPECT_EQ(AlphaOf(Pixel(ball.Get(), 19, 19)), 0);
}

TEST(ShadedBall, IsBrighterAboveItsMiddleThanBelow) {
    SpriteForm form{};
    const platform::OwnedBlock ball =
        RenderShadedBall(ShadeColor(0xFFFFFF, 0, 100), {0, 0, 20, 20}, RingAngle::Double, &form)
            .Picture;
    EXPECT_GT(RedOf(Pixel(ball.Get(), 10, 4)), RedOf(Pixel(ball.Get(), 10, 15)));
}

TEST(ShadedBall, WideBarIsLitFromAboveAndTallBarFromTheLeft) {
    const ShadedColors white = ShadeColor(0xFFFFFF, 0, 100);
    SpriteForm wide_form{};
    SpriteForm tall_form{};
    const platform::OwnedBlock wide =
        RenderShadedBar(white, 20, {0, 0, 60, 20}, &wide_form).Picture;
    const platform::OwnedBlock tall =
        RenderShadedBar(white, 20, {0, 0, 20, 60}, &tall_form).Picture;
    EXPECT_GT(RedOf(Pixel(wide.Get(), 30, 3)), RedOf(Pixel(wide.Get(), 30, 16)));
    EXPECT_GT(RedOf(Pixel(tall.Get(), 3, 30)), RedOf(Pixel(tall.Get(), 16, 30)));
}

TEST(ShadedBall, ShadingTakesItsShareOfTheValueAndEndsAtBlack) {
    EXPECT_EQ(ShadeColor(0x0000FF, 0, 20).Dark, 0x0000CCu);
    EXPECT_EQ(ShadeColor(0x000066, 0, 70).Dark, 0x000000u);
    EXPECT_EQ(ShadeColor(0x000066, 0x123456, 70).Base, 0x000066u);
    EXPECT_EQ(ShadeColor(0x000066, 0x123456, 70).Background, 0x123456u);
}

TEST(ShadedBall, ShadowDistanceIsCutBeforeItIsTakenFourTimes) {
    EXPECT_EQ(ShadowDistance(20, 10), 8);
    EXPECT_EQ(ShadowDistance(14, 1), 0);
    EXPECT_EQ(ShadowDistance(36, 99), 140);
}

TEST(ShadedBall, ShadowMaskIsADiscOfTheOpacitysLevel) {
    const platform::OwnedBlock mask = RenderShadowMask(20, 20, 48).Picture;
    EXPECT_EQ(Pixel(mask.Get(), 10, 10), 0x303030u);
    EXPECT_EQ(Pixel(mask.Get(), 0, 0), 0u);
    EXPECT_EQ(TakePixels(RenderShadowMask(36, 12, 200)), TakePixels(PlainShadowMask(36, 12, 200)));
}

TEST(ShadedBall, WithoutMemoryThereIsNoSpriteAndNothingIsLost) {
    const std::size_t blocks = platform::CurrentMemoryUse().live_blocks;
    for (std::size_t i = 1; i < 4; ++i) {
        SpriteForm form{};
        platform::FailAllocation(i, true);
        EXPECT_FALSE(RenderShadedBall(ShadeColor(1, 2, 3), {0, 0, 10, 10}, RingAngle::Single, &form)
                         .Picture);
        platform::FailAllocation(0);
    }
    EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, blocks);
}

TEST(ShadedBall, FailureSpoilsNoLaterBallOfItsForm) {
    const ShadedColors c{0x3787FF, 0x102030, 0x808080};
    const auto render = [&c](SpriteForm* form) {
        return RenderShadedBall(c, {0, 0, 10, 10}, RingAngle::Single, form);
    };
    const auto plain = TakePixels(
        PlainRenderSprite({PlainShape::SingleBall, 10, 10, 0, c.Base, c.Dark, c.Background, 0}));
    const std::size_t before = platform::CurrentMemoryUse().allocations;
    SpriteForm first{};
    EXPECT_EQ(TakePixels(render(&first)), plain);
    const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
    int large = 0;
    for (std::size_t i = 1; i <= needed; ++i) {
        SpriteForm form{};
        platform::FailAllocation(i);
        const ShrunkPicture failed = render(&form);
        platform::FailAllocation(0);
        EXPECT_FALSE(failed.IsShrunk) << i;
        large += failed.Picture ? 1 : 0;
        EXPECT_EQ(TakePixels(render(&form)), plain) << i;
    }
    EXPECT_GE(large, 2);  // of the picture and of the mask
}

constexpr PlainSprite kOrangeBall{PlainShape::SingleBall, 10, 10, 0, 0x3787FF, 0x000000, 0, 0};

/// The pixels of a white tile of 30 by 30 after `draw`.
template <class Draw>
std::vector<std::uint32_t> DrawnOnWhite(Draw draw) {
    const ImageHandle picture = NewSolidImage({0, 0, 30, 30}, 0xFFFFFF);
    {
        const LockedImage tile(picture);
        draw(tile.Get());
    }
    return TakePixels(picture);
}

TEST(DrawOverShadow, LaysTheSpriteOverAShadowToItsLowerRight) {
    const platform::OwnedBlock sprite(PlainRenderSprite(kOrangeBall));
    SpriteShadow shadow{10, 10, 10, 200};
    EXPECT_EQ(DrawnOnWhite([&](PackedDib* tile) {
                  DrawOverShadow(tile, {25, 4}, sprite.Get(), &shadow);
              }),
              DrawnOnWhite([&](PackedDib* tile) {
                  PlainDrawSprite(tile, 25, 4, kOrangeBall, {10, 200});
              }));
}

TEST(DrawOverShadow, WithoutASpriteTheShadowIsAlone) {
    SpriteShadow shadow{10, 20, 10, 200};
    const platform::OwnedBlock owner(PlainShadowMask(10, 20, 200));
    const LockedImage mask(owner.Get());
    // Four times the tenth of the shorter side.
    EXPECT_EQ(
        DrawnOnWhite([&](PackedDib* tile) {
            DrawOverShadow(tile, {3, 1}, nullptr, &shadow);
        }),
        DrawnOnWhite([&](PackedDib* tile) { WrapStampMask(tile, mask, 7, 5, 0x000000, 255); }));
}

TEST(DrawOverShadow, WithoutAnOffsetOrAnOpacityThereIsNoShadow) {
    for (SpriteShadow& shadow : std::to_array<SpriteShadow>({{10, 10, 0, 200}, {10, 10, 10, 0}})) {
        EXPECT_EQ(DrawnOnWhite([&](PackedDib* tile) {
                      DrawOverShadow(tile, {3, 1}, nullptr, &shadow);
                  }),
                  std::vector<std::uint32_t>(900, 0xFFFFFF));
    }
}

TEST(DrawOverShadow, ShadowThatCannotBeMadeLeavesTheSpriteOut) {
    const platform::OwnedBlock sprite(PlainRenderSprite(kOrangeBall));
    SpriteShadow shadow{10, 10, 10, 200};
    EXPECT_EQ(DrawnOnWhite([&](PackedDib* tile) {
                  platform::FailAllocation(1);
                  DrawOverShadow(tile, {3, 1}, sprite.Get(), &shadow);
                  platform::FailAllocation(0);
              }),
              std::vector<std::uint32_t>(900, 0xFFFFFF));
}

TEST(DrawOverShadow, ShadowThatStaysLargeIsLargeThisOnce) {
    const auto draw = [](SpriteShadow& shadow, std::size_t failing) {
        return DrawnOnWhite([&](PackedDib* tile) {
            platform::FailAllocation(failing);
            DrawOverShadow(tile, {3, 1}, nullptr, &shadow);
            platform::FailAllocation(0);
        });
    };
    SpriteShadow sound{10, 10, 10, 200};
    const std::size_t before = platform::CurrentMemoryUse().allocations;
    const auto small = draw(sound, 0);
    const std::size_t needed = platform::CurrentMemoryUse().allocations - before;
    int large = 0;
    for (std::size_t i = 1; i < needed; ++i) {  // one is the tile's
        SpriteShadow shadow{10, 10, 10, 200};
        const auto spoilt = draw(shadow, i);
        EXPECT_NE(spoilt, small) << i;
        large += spoilt != std::vector<std::uint32_t>(900, 0xFFFFFF) ? 1 : 0;
        EXPECT_EQ(draw(shadow, 0), small) << i;
    }
    EXPECT_GE(large, 1);
}

TEST(ScaleImageAlpha, KeepsColorsAndCutsAlphaIntoItsRange) {
    const platform::OwnedBlock source(NewPackedDib(1, 1, nullptr, 32));
    {
        const LockedImage image(source.Get());
        SetDibPixel(image, 0, 0, 0xC8123456);  // alpha 200
    }
    const auto scaled = [&](int level) {
        return TakePixels(ScaleImageAlpha(source.Get(), level))[0];
    };
    EXPECT_EQ(scaled(255), 0xC8123456u);
    EXPECT_EQ(scaled(100), 0x4E123456u);  // 20000 / 255 = 78.4
    EXPECT_EQ(scaled(287), 0xE1123456u);  // 57400 / 255 = 225.1
    EXPECT_EQ(scaled(400), 0xFF123456u);
    EXPECT_EQ(scaled(0), 0x00123456u);
    EXPECT_EQ(scaled(-5), 0x00123456u);
    EXPECT_EQ(Pixel(source.Get(), 0, 0), 0xC8123456u);
}

TEST(ScaleImageAlpha, RefusesPicturesWithoutAlpha) {
    const platform::OwnedBlock source(NewPackedDib(4, 4, nullptr, 24));
    EXPECT_EQ(ScaleImageAlpha(source.Get(), 255), nullptr);
    EXPECT_EQ(ScaleImageAlpha(nullptr, 255), nullptr);
}

}  // namespace

}  // namespace tess::test
