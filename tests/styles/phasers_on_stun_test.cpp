#include <algorithm>

#include "tests/reference/plain_phasers.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

enum Control : int {
    kBackground = 403,
    kFrames = 405,
    kPower = 407,
    kDensity = 409,
    kSeed = 411,
    kWidth = 413,
    kDepth = 415,
    kBeam1 = 417,
    kEnable2 = 427,
    kEnable5 = 430,
    kLineEast2South = 431,
    kLineWest2South = 432,
    kLineHorizontal = 433,
    kLineVertical = 434,
};

constexpr int kTestSeed = 500;
constexpr int kBeams = 8;

using Picture = std::vector<ColorWord>;

struct LevelBeam {
    int y, frame;
};

/// Levels in a beam's middle are told to within what the scaler rings there.
class PhasersOnStunTest : public StyleTest {
protected:
    static const StyleEntry& Phasers() { return Style("Phasers on Stun"); }

    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Phasers(), dialog));
    }
    static void OnlyLines(WindowHandle dialog, std::initializer_list<int> boxes) {
        for (int id = kLineEast2South; id <= kLineVertical; ++id)
            platform::SetChecked(dialog, id, false);
        for (const int id : boxes)
            platform::SetChecked(dialog, id, true);
    }
    /// Eight white beams on black.
    static void SetPlain(WindowHandle dialog, int side, int frames) {
        Set(dialog, kWidth, side);
        Set(dialog, kDepth, side);
        Set(dialog, kFrames, frames);
        Set(dialog, kDensity, kBeams);
        Set(dialog, kSeed, kTestSeed);
        Set(dialog, kBeam1, 0xFFFFFF);
        for (int id = kEnable2; id <= kEnable5; ++id)
            platform::SetChecked(dialog, id, false);
    }
    /// The draws of level beams: kind, place, color, frame.
    static std::vector<LevelBeam> DrawLevelBeams(int side, int frames) {
        runtime::srand(kTestSeed);
        std::vector<LevelBeam> beams(kBeams);
        for (LevelBeam& beam : beams) {
            runtime::SkipDraw();
            beam.y = side / 10 + runtime::rand() % (side * 8 / 10);
            runtime::SkipDraw();
            beam.frame = runtime::rand() % frames;
        }
        return beams;
    }
    /// The beams that no other one comes near.
    static std::vector<LevelBeam> LoneBeams(int side, int frames, int distance) {
        const std::vector<LevelBeam> beams = DrawLevelBeams(side, frames);
        std::vector<LevelBeam> lone;
        for (const LevelBeam& beam : beams) {
            if (std::count_if(beams.begin(), beams.end(), [&](const LevelBeam& other) {
                    return std::abs(other.y - beam.y) < distance;
                }) == 1) {
                lone.push_back(beam);
            }
        }
        return lone;
    }
    static bool IsFlat(const Picture& picture) {
        return std::count(picture.begin(), picture.end(), picture[0]) ==
               static_cast<std::ptrdiff_t>(picture.size());
    }
};

TEST_F(PhasersOnStunTest, WithoutALineKindAllRunFromEastToSouth) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 6);
        OnlyLines(dialog, {kLineEast2South});
        const auto expected = Frames(dialog);
        OnlyLines(dialog, {});
        EXPECT_EQ(Frames(dialog), expected);
        OnlyLines(dialog, {kLineWest2South});
        EXPECT_NE(Frames(dialog), expected);
    });
}

TEST_F(PhasersOnStunTest, InTwoFramesABeamShowsInBothWithTwoFlashesEach) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 256, 2);
        Set(dialog, kPower, 4);
        OnlyLines(dialog, {kLineHorizontal});
        const auto frames = Frames(dialog);
        const std::vector<LevelBeam> lone = LoneBeams(256, 2, 12);
        ASSERT_FALSE(lone.empty());
        for (const LevelBeam& beam : lone) {
            const auto at = static_cast<std::size_t>(256 * beam.y + 100);
            // 255, and 128 over it: 255 x 127 / 255 + 255 x 128 / 255.
            EXPECT_EQ(RedOf(frames[static_cast<std::size_t>(beam.frame)][at]), 255);
            // 192, and 64 over it: 192 x 191 / 255 + 255 x 64 / 255.
            EXPECT_NEAR(RedOf(frames[static_cast<std::size_t>(1 - beam.frame)][at]), 143 + 64, 3);
        }
    });
}

TEST_F(PhasersOnStunTest, BeamFiredLateFadesOutInTheFirstFrames) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 256, 5);
        Set(dialog, kPower, 4);
        OnlyLines(dialog, {kLineHorizontal});
        const auto frames = Frames(dialog);
        for (const LevelBeam& beam : LoneBeams(256, 5, 12)) {
            constexpr int kShown[] = {255, 192, 128, 64, 0};
            for (int i = 0; i < 5; ++i) {
                const Picture& frame = frames[static_cast<std::size_t>((beam.frame + i) % 5)];
                EXPECT_NEAR(RedOf(frame[static_cast<std::size_t>(256 * beam.y + 7)]), kShown[i], 2);
            }
        }
    });
}

TEST_F(PhasersOnStunTest, FrameWithoutAFlashIsFlat) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 32, 60);
        Set(dialog, kBackground, 0x123456);
        OnlyLines(dialog, {kLineHorizontal});
        std::vector<bool> fires(60, false);
        for (const LevelBeam& beam : DrawLevelBeams(32, 60)) {
            for (int i = 0; i < 4; ++i)
                fires[static_cast<std::size_t>((beam.frame + i) % 60)] = true;
        }
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 60u);
        for (std::size_t i = 0; i < 60; ++i)
            EXPECT_EQ(IsFlat(frames[i]), !fires[i]) << i;
    });
}

TEST_F(PhasersOnStunTest, PowerEightCoversHalfOfTheSmallestTile) {
    InDialog([](WindowHandle dialog) {
        constexpr int kManyFrames = 120;
        SetPlain(dialog, 16, kManyFrames);
        Set(dialog, kPower, 8);
        OnlyLines(dialog, {kLineHorizontal});
        const auto frames = Frames(dialog);
        int seen = 0;
        for (const LevelBeam& beam : DrawLevelBeams(16, kManyFrames)) {
            const Picture& frame = frames[static_cast<std::size_t>(beam.frame)];
            int rows = 0;
            for (std::size_t y = 0; y < 16; ++y)
                rows += RedOf(frame[16 * y + 5]) > 127 ? 1 : 0;
            const int top = std::max(beam.y - 4, 0);
            const int bottom = std::min(beam.y + 4, 16);
            EXPECT_GE(rows, bottom - top);  // others may flash at the same time
            if (rows == 8) ++seen;
        }
        EXPECT_GT(seen, 0);
    });
}

TEST_F(PhasersOnStunTest, ABeamTakesFourDraws) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 6);
        platform::FreeBlock(RenderTest(Phasers(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 1000), 4 * kBeams);
    });
}

TEST_F(PhasersOnStunTest, DiagonalsJoinAcrossTheTilesEdges) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, kPower, 8);
        for (const int lines : {kLineEast2South, kLineWest2South}) {
            OnlyLines(dialog, {lines});
            const Picture frame = Frames(dialog)[0];
            // What leaves by one edge comes in by the other a pixel further on. The
            // strokes to the west start a pixel aside.
            int brightest_step = 0;
            for (std::size_t i = 1; i < 63; ++i) {
                const int left = RedOf(frame[64 * i]);
                const int right = std::max({RedOf(frame[64 * i + 63]), RedOf(frame[64 * i - 1]),
                                            RedOf(frame[64 * i + 127])});
                brightest_step = std::max(brightest_step, left - right);
            }
            EXPECT_LT(brightest_step, 160) << lines;
        }
    });
}

TEST_F(PhasersOnStunTest, KeptMasksGiveTheBytesOfMasksMadeAnew) {
    InDialog([](WindowHandle dialog) {
        StyleEntry plain = Phasers();
        plain.Build = reference::PlainPhasersBuild;
        unsigned random = 1;
        const auto draw = [&random](int below) {
            random = random * 1664525u + 1013904223u;
            return static_cast<int>((random >> 8) % static_cast<unsigned>(below));
        };
        for (int round = 0; round < 24; ++round) {
            Set(dialog, kWidth, 16 + draw(70));
            Set(dialog, kDepth, 16 + draw(70));
            Set(dialog, kFrames, 2 + draw(7));
            Set(dialog, kDensity, 8 + draw(30));
            Set(dialog, kPower, 1 + draw(8));
            Set(dialog, kSeed, 100 + draw(30000));
            Set(dialog, kBackground, draw(0x1000000));
            for (int id = kEnable2; id <= kLineVertical; ++id)
                platform::SetChecked(dialog, id, draw(2) == 1);
            EXPECT_EQ(TakeFrames(RenderBuild(Phasers(), dialog)),
                      TakeFrames(RenderBuild(plain, dialog)))
                << "round " << round;
        }
    });
}

TEST_F(PhasersOnStunTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, kFrames, 4);
        const auto frames = TakeFrames(RenderBuild(Phasers(), dialog));
        EXPECT_EQ(TakeBytes(RenderTest(Phasers(), dialog)), frames[0]);
    });
}

TEST_F(PhasersOnStunTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 32, 2);
        EXPECT_GT(FailuresOfASample(Phasers(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
