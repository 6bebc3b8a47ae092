#include <bit>
#include <utility>

#include "tests/styles/ball_fixture.h"
#include "tests/styles/setting_draws.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

class ParticlesTest : public BallStyleTest<ParticlesStyle> {
protected:
    static constexpr int kTestSeed = 222;
    static constexpr int kTestSize = 11;
    static constexpr ColorWord kGround = 0x70A0C0;
    static constexpr ColorWord kColor = 0x20E0FF;
    static constexpr PlainShadow kShadow{20, 150};

    /// Ten balls of one colour.
    static void Shrink(WindowHandle dialog, int width, int depth, int frames) {
        Set(dialog, "Width", width);
        Set(dialog, "Depth", depth);
        Set(dialog, "Density", 10);
        Set(dialog, "Size", kTestSize);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "Frames", frames);
        Set(dialog, "Background", static_cast<int>(kGround));
        Set(dialog, "FillColor1", static_cast<int>(kColor));
        Set(dialog, "ShadowOffset", kShadow.offset);
        Set(dialog, "ShadowOpacity", kShadow.opacity);
        Set(dialog, "Shade", 30);
        EnableColors(dialog, false);
    }

    struct Ball {
        int x, y, reach, start;
        ColorWord color;
    };
    /// The draws for a tile whose reach runs from `least` over `span` values.
    static std::vector<Ball> DrawBalls(int width, int depth, int least, int span,
                                       const std::vector<ColorWord>& colors = {kColor}) {
        runtime::srand(kTestSeed);
        std::vector<Ball> balls;
        int last_color = -1;
        for (int i = 0; i < 10; ++i) {
            const int x = runtime::rand() % width;
            const int y = runtime::rand() % depth;
            const int turn = runtime::rand() % 2;
            EXPECT_GE(turn, 0);
            const int reach = runtime::rand() % span + least;
            const int start = runtime::rand() % 360;
            const int color = PickFillColor(static_cast<int>(colors.size()), &last_color);
            balls.push_back({x, y, reach, start, colors[static_cast<std::size_t>(color)]});
        }
        return balls;
    }

    /// The ball's place at an angle, step by step.
    static Placed Place(const Ball& ball, double degrees) {
        const float narrow = static_cast<float>(degrees);
        const float radians = narrow * std::bit_cast<float>(0x3C8EFA2EU);
        const auto c = static_cast<float>(runtime::Cosine(static_cast<double>(radians)));
        const auto s = static_cast<float>(runtime::Sine(static_cast<double>(radians)));
        const float dy = static_cast<float>(ball.y - ball.reach / 2) - static_cast<float>(ball.y);
        return {static_cast<int>(-(dy * s)) + ball.x,
                static_cast<int>(dy * c) + ball.y,
                {PlainShape::DoubleBall, kTestSize, kTestSize, 0, ball.color,
                 PlainChangeValue(ball.color, (1.0 - 30 / 100.0) - 1.0), ball.color, 160}};
    }
    static Bytes Picture(int width, int depth, const std::vector<Ball>& balls, double turned) {
        std::vector<Placed> placed;
        for (const Ball& ball : balls)
            placed.push_back(Place(ball, turned + ball.start));
        return Compose(width, depth, kGround, kShadow, placed);
    }
};

TEST_F(ParticlesTest, SmallestTileHasReachesFrom24To35) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 48, 48, 2);
        EXPECT_EQ(SampleBytes(dialog), Picture(48, 48, DrawBalls(48, 48, 24, 12), 0.0));
    });
}

TEST_F(ParticlesTest, WideTileTakesItsReachFromTheDepth) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 1024, 48, 2);
        EXPECT_EQ(SampleBytes(dialog), Picture(1024, 48, DrawBalls(1024, 48, 24, 12), 0.0));
    });
}

TEST_F(ParticlesTest, TwoFramesAreOppositePointsOfTheCircles) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 2);
        EXPECT_EQ(BuildBytes(dialog)[1], Picture(64, 60, DrawBalls(64, 60, 30, 15), 180.0));
    });
}

TEST_F(ParticlesTest, EveryFrameTurnsByItsShareOfACircle) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 8);
        const std::vector<Bytes> frames = BuildBytes(dialog);
        const std::vector<Ball> balls = DrawBalls(64, 60, 30, 15);
        for (int f = 0; f < 8; ++f)
            EXPECT_EQ(frames[static_cast<std::size_t>(f)], Picture(64, 60, balls, 45.0 * f)) << f;
    });
}

TEST_F(ParticlesTest, AtAngleZeroABallIsAboveItsCentreAndTurnsClockwise) {
    const Ball ball{30, 40, 21, 0, kColor};
    EXPECT_EQ(Place(ball, 0).x, 30);
    EXPECT_EQ(Place(ball, 0).y, 30);
    EXPECT_EQ(Place(ball, 90).x, 40);
    EXPECT_EQ(Place(ball, 90).y, 40);
}

TEST_F(ParticlesTest, NegativePlacesAreLeftToTheStamps) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 2);
        const std::vector<Ball> balls = DrawBalls(64, 60, 30, 15);
        std::vector<Placed> folded;
        bool negative = false;
        for (const Ball& ball : balls) {
            Placed placed = Place(ball, ball.start);
            negative = negative || placed.x < 0 || placed.y < 0;
            placed.x += 64;
            placed.y += 60;
            folded.push_back(placed);
        }
        EXPECT_TRUE(negative);
        EXPECT_EQ(SampleBytes(dialog), Compose(64, 60, kGround, kShadow, folded));
    });
}

TEST_F(ParticlesTest, OneColorTakesFiveDrawsABall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 50);
    });
}

TEST_F(ParticlesTest, SeveralColorsTakeSixDrawsAndMoreABall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        EnableColors(dialog, true);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        const int draws = DrawsSince(kTestSeed, 300);
        EXPECT_GE(draws, 60);
        EXPECT_LE(draws, 210);
    });
}

TEST_F(ParticlesTest, SeveralColorsGiveOtherPlacesFromTheSecondBallOn) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 2);
        const std::vector<Ball> one = DrawBalls(64, 60, 30, 15);
        SettingDraws draws(23);
        for (int round = 0; round < 4; ++round) {
            const auto colors = SetFillColors(dialog, draws);
            const std::vector<Ball> balls = DrawBalls(64, 60, 30, 15, colors);
            EXPECT_EQ(balls[0].x, one[0].x);
            EXPECT_EQ(balls[0].y, one[0].y);
            for (std::size_t i = 1; i < balls.size(); ++i)
                EXPECT_NE(std::pair(balls[i].x, balls[i].y), std::pair(one[i].x, one[i].y)) << i;
            EXPECT_EQ(SampleBytes(dialog), Picture(64, 60, balls, 0.0)) << round;
        }
    });
}

TEST_F(ParticlesTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const Bytes sample = SampleBytes(dialog);
        Set(dialog, "Frames", 3);
        EXPECT_EQ(BuildBytes(dialog)[0], sample);
    });
}

TEST_F(ParticlesTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        const Bytes with = SampleBytes(dialog);
        Set(dialog, "Glare", 0);
        EXPECT_EQ(SampleBytes(dialog), with);
    });
}

TEST_F(ParticlesTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        EXPECT_GT(FailuresOfASample(Subject(), dialog),
                  0);  // without its shadow a sprite is left out
    });
}

}  // namespace

}  // namespace tess::test
