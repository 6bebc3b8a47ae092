#include <bit>

#include "tests/styles/ball_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 642,
    kFrames = 644,
    kGlare = 646,
    kSize = 648,
    kDensity = 650,
    kSeed = 652,
    kWidth = 654,
    kDepth = 656,
    kColor1 = 658,
    kEnable2 = 668,
    kEnable3 = 669,
    kEnable4 = 670,
    kEnable5 = 671,
    kShadowOpacity = 672,
    kShadowOffset = 674,
    kShade = 676,
};

class ParticlesTest : public BallStyleTest {
protected:
    static constexpr int kTestSeed = 222;
    static constexpr int kTestSize = 11;
    static constexpr ColorWord kGround = 0x70A0C0;
    static constexpr ColorWord kColor = 0x20E0FF;
    static constexpr PlainShadow kShadow{20, 150};

    static const StyleEntry& Particles() { return Style("Particles"); }

    /// Ten balls of one colour.
    static void Shrink(WindowHandle dialog, int width, int depth, int frames) {
        Set(dialog, kWidth, width);
        Set(dialog, kDepth, depth);
        Set(dialog, kDensity, 10);
        Set(dialog, kSize, kTestSize);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kFrames, frames);
        Set(dialog, kBackground, static_cast<int>(kGround));
        Set(dialog, kColor1, static_cast<int>(kColor));
        Set(dialog, kShadowOffset, kShadow.offset);
        Set(dialog, kShadowOpacity, kShadow.opacity);
        Set(dialog, kShade, 30);
        Check(dialog, {kEnable2, kEnable3, kEnable4, kEnable5}, false);
    }

    struct Ball {
        int x, y, reach, start;
    };
    /// The draws for a tile whose reach runs from `least` over `span` values.
    static std::vector<Ball> DrawBalls(int width, int depth, int least, int span) {
        runtime::srand(kTestSeed);
        std::vector<Ball> balls;
        for (int i = 0; i < 10; ++i) {
            const int x = runtime::rand() % width;
            const int y = runtime::rand() % depth;
            const int turn = runtime::rand() % 2;
            EXPECT_GE(turn, 0);
            const int reach = runtime::rand() % span + least;
            balls.push_back({x, y, reach, runtime::rand() % 360});
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
                {PlainShape::DoubleBall, kTestSize, kTestSize, 0, kColor,
                 PlainChangeValue(kColor, (1.0 - 30 / 100.0) - 1.0), kColor, 160}};
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
        EXPECT_EQ(SampleBytes(Particles(), dialog),
                  Picture(48, 48, DrawBalls(48, 48, 24, 12), 0.0));
    });
}

TEST_F(ParticlesTest, WideTileTakesItsReachFromTheDepth) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 1024, 48, 2);
        EXPECT_EQ(SampleBytes(Particles(), dialog),
                  Picture(1024, 48, DrawBalls(1024, 48, 24, 12), 0.0));
    });
}

TEST_F(ParticlesTest, TwoFramesAreOppositePointsOfTheCircles) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 2);
        EXPECT_EQ(BuildBytes(Particles(), dialog)[1],
                  Picture(64, 60, DrawBalls(64, 60, 30, 15), 180.0));
    });
}

TEST_F(ParticlesTest, EveryFrameTurnsByItsShareOfACircle) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 60, 8);
        const std::vector<Bytes> frames = BuildBytes(Particles(), dialog);
        const std::vector<Ball> balls = DrawBalls(64, 60, 30, 15);
        for (int f = 0; f < 8; ++f)
            EXPECT_EQ(frames[static_cast<std::size_t>(f)], Picture(64, 60, balls, 45.0 * f)) << f;
    });
}

TEST_F(ParticlesTest, AtAngleZeroABallIsAboveItsCentreAndTurnsClockwise) {
    const Ball ball{30, 40, 21, 0};
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
        EXPECT_EQ(SampleBytes(Particles(), dialog), Compose(64, 60, kGround, kShadow, folded));
    });
}

TEST_F(ParticlesTest, OneColorTakesFiveDrawsABall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        platform::FreeBlock(RenderTest(Particles(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 100), 50);
    });
}

TEST_F(ParticlesTest, SeveralColorsTakeSixDrawsAndMoreABall) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        Check(dialog, {kEnable2, kEnable3, kEnable4, kEnable5}, true);
        platform::FreeBlock(RenderTest(Particles(), dialog));
        const int draws = DrawsSince(kTestSeed, 300);
        EXPECT_GE(draws, 60);
        EXPECT_LE(draws, 210);
    });
}

TEST_F(ParticlesTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        const Bytes sample = SampleBytes(Particles(), dialog);
        Set(dialog, kFrames, 3);
        EXPECT_EQ(BuildBytes(Particles(), dialog)[0], sample);
    });
}

TEST_F(ParticlesTest, GlareHasNoVisibleEffect) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        const Bytes with = SampleBytes(Particles(), dialog);
        Set(dialog, kGlare, 0);
        EXPECT_EQ(SampleBytes(Particles(), dialog), with);
    });
}

TEST_F(ParticlesTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        Shrink(dialog, 64, 64, 2);
        ExpectCleanFailures(Particles(), dialog);
    });
}

}  // namespace

}  // namespace tess::test
