#include <algorithm>

#include "tests/reference/plain_phasers.h"
#include "tests/styles/setting_draws.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kTestSeed = 500;
constexpr int kBeams = 8;

using Picture = std::vector<ColorWord>;

struct Beam {
    int y, frame;
};

/// Levels in a beam's middle are told to within what the scaler rings there.
class PhasersOnStunTest : public StyleTest<PhasersOnStunStyle> {
protected:
    static std::vector<Picture> Frames(WindowHandle dialog) {
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    static void OnlyLines(WindowHandle dialog, std::initializer_list<std::string_view> boxes) {
        Check(dialog, {"LineEast2South", "LineWest2South", "LineHorizontal", "LineVertical"},
              false);
        Check(dialog, boxes, true);
    }
    /// Eight white beams on black.
    static void SetPlain(WindowHandle dialog, int side, int frames) {
        Set(dialog, "Width", side);
        Set(dialog, "Depth", side);
        Set(dialog, "Frames", frames);
        Set(dialog, "Density", kBeams);
        Set(dialog, "Seed", kTestSeed);
        Set(dialog, "FillColor1", 0xFFFFFF);
        EnableColors(dialog, false);
    }
    /// The draws of beams that all are of one kind, and not upright: kind, place,
    /// color, frame.
    static std::vector<Beam> DrawBeams(int side, int frames, unsigned seed = kTestSeed) {
        runtime::srand(seed);
        std::vector<Beam> beams(kBeams);
        for (Beam& beam : beams) {
            runtime::SkipDraw();
            beam.y = side / 10 + runtime::rand() % (side * 8 / 10);
            runtime::SkipDraw();
            beam.frame = runtime::rand() % frames;
        }
        return beams;
    }
    /// The beams that no other one comes near.
    static std::vector<Beam> LoneBeams(int side, int frames, int distance) {
        const std::vector<Beam> beams = DrawBeams(side, frames);
        std::vector<Beam> lone;
        for (const Beam& beam : beams) {
            if (std::count_if(beams.begin(), beams.end(), [&](const Beam& other) {
                    return std::abs(other.y - beam.y) < distance;
                }) == 1) {
                lone.push_back(beam);
            }
        }
        return lone;
    }
    /// The beams in whose first frame no other one is seen.
    static std::vector<Beam> FiredAlone(const std::vector<Beam>& beams, int frames) {
        std::vector<Beam> alone;
        for (const Beam& beam : beams) {
            if (std::count_if(beams.begin(), beams.end(), [&](const Beam& other) {
                    return (beam.frame - other.frame + frames) % frames < 4;
                }) == 1) {
                alone.push_back(beam);
            }
        }
        return alone;
    }
    static int BrightestOfTheLastRow(const Picture& picture, int side) {
        const auto row = picture.end() - side;
        return static_cast<int>(std::max_element(row, picture.end()) - row);
    }
    static bool IsFlat(const Picture& picture) {
        return std::count(picture.begin(), picture.end(), picture[0]) ==
               static_cast<std::ptrdiff_t>(picture.size());
    }
};

TEST_F(PhasersOnStunTest, WithoutALineKindAllRunFromEastToSouth) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 6);
        OnlyLines(dialog, {"LineEast2South"});
        const auto expected = Frames(dialog);
        OnlyLines(dialog, {});
        EXPECT_EQ(Frames(dialog), expected);
        OnlyLines(dialog, {"LineWest2South"});
        EXPECT_NE(Frames(dialog), expected);
    });
}

TEST_F(PhasersOnStunTest, InTwoFramesABeamShowsInBothWithTwoFlashesEach) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 256, 2);
        Set(dialog, "Power", 4);
        OnlyLines(dialog, {"LineHorizontal"});
        const auto frames = Frames(dialog);
        const std::vector<Beam> lone = LoneBeams(256, 2, 12);
        ASSERT_FALSE(lone.empty());
        for (const Beam& beam : lone) {
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
        Set(dialog, "Power", 4);
        OnlyLines(dialog, {"LineHorizontal"});
        const auto frames = Frames(dialog);
        for (const Beam& beam : LoneBeams(256, 5, 12)) {
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
        Set(dialog, "Background", 0x123456);
        OnlyLines(dialog, {"LineHorizontal"});
        std::vector<bool> fires(60, false);
        for (const Beam& beam : DrawBeams(32, 60)) {
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
        Set(dialog, "Power", 8);
        OnlyLines(dialog, {"LineHorizontal"});
        const auto frames = Frames(dialog);
        int seen = 0;
        for (const Beam& beam : DrawBeams(16, kManyFrames)) {
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
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(DrawsSince(kTestSeed, 1000), 4 * kBeams);
    });
}

TEST_F(PhasersOnStunTest, DiagonalsJoinAcrossTheTilesEdges) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 64, 2);
        Set(dialog, "Power", 8);
        for (const std::string_view lines : {"LineEast2South", "LineWest2South"}) {
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

TEST_F(PhasersOnStunTest, DiagonalsLeaveTheTileByItsLowerEdgeInside) {
    InDialog([](WindowHandle dialog) {
        constexpr int kSide = 20, kCount = 60;
        SetPlain(dialog, kSide, kCount);
        Set(dialog, "Power", 1);
        // The place is drawn from 2 to 17. A beam from the west meets the edge at 20 less
        // the place less 1, and passes the pixel before that in the last row.
        for (const bool east : {true, false}) {
            OnlyLines(dialog, {east ? "LineEast2South" : "LineWest2South"});
            int least = kSide, most = -1;
            for (unsigned seed = 100; seed < 140; ++seed) {
                Set(dialog, "Seed", static_cast<int>(seed));
                const auto frames = Frames(dialog);
                for (const Beam& beam : FiredAlone(DrawBeams(kSide, kCount, seed), kCount)) {
                    const int x =
                        BrightestOfTheLastRow(frames[static_cast<std::size_t>(beam.frame)], kSide);
                    EXPECT_EQ(x, east ? beam.y : kSide - beam.y - 2) << seed;
                    least = std::min(least, beam.y);
                    most = std::max(most, beam.y);
                }
            }
            EXPECT_EQ(least, 2);
            EXPECT_EQ(most, 17);
        }
    });
}

TEST_F(PhasersOnStunTest, KeptMasksGiveTheBytesOfMasksMadeAnew) {
    InDialog([](WindowHandle dialog) {
        StyleEntry plain = Subject();
        plain.Build = reference::PlainPhasersBuild;
        SettingDraws draws(1);
        for (int round = 0; round < 24; ++round) {
            Set(dialog, "Width", draws.Between(16, 85));
            Set(dialog, "Depth", draws.Between(16, 85));
            Set(dialog, "Frames", draws.Between(2, 8));
            Set(dialog, "Density", draws.Between(8, 37));
            Set(dialog, "Power", draws.Between(1, 8));
            Set(dialog, "Seed", draws.Between(100, 30099));
            Set(dialog, "Background", static_cast<int>(draws.Color()));
            for (const std::string_view box :
                 {"FillEnable2", "FillEnable3", "FillEnable4", "FillEnable5", "LineEast2South",
                  "LineWest2South", "LineHorizontal", "LineVertical"})
                Set(dialog, box, draws.Between(0, 1));
            EXPECT_EQ(TakeFrames(RenderBuild(Subject(), dialog)),
                      TakeFrames(RenderBuild(plain, dialog)))
                << "round " << round;
        }
    });
}

TEST_F(PhasersOnStunTest, FirstFrameOfABuildIsTheSample) {
    InDialog([](WindowHandle dialog) {
        Set(dialog, "Frames", 4);
        const auto frames = TakeFrames(RenderBuild(Subject(), dialog));
        EXPECT_EQ(TakeBytes(RenderTest(Subject(), dialog)), frames[0]);
    });
}

TEST_F(PhasersOnStunTest, EveryFailingAllocationEndsCleanly) {
    InDialog([](WindowHandle dialog) {
        SetPlain(dialog, 32, 2);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 5);
    });
}

}  // namespace

}  // namespace tess::test
