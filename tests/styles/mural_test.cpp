#include <set>

#include "fills/matrix_control.h"
#include "tests/styles/style_fixture.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr int kUp = 0, kRight = 1, kLeft = 2, kDown = 3;

class MuralTest : public StyleTest<MuralStyle> {
protected:
    static WindowHandle Matrix(WindowHandle dialog) {
        return platform::Control(dialog, ControlOf("Matrix"));
    }
    /// Gives the control a picture whose pixels are all different.
    static void SetTile(WindowHandle dialog, int width, int height) {
        std::vector<std::uint32_t> pixels;
        for (int i = 0; i < width * height; ++i)
            pixels.push_back(static_cast<std::uint32_t>(i + 1));
        const LockedMatrixTile tile = LockMatrixTile(Matrix(dialog));
        ASSERT_TRUE(tile);
        platform::FreeBlock(tile->Image);
        tile->Image = ImageOf(width, pixels);
    }
    /// Opens the dialog with such a tile.
    void WithTile(int width, int height, const std::function<void(WindowHandle)>& act) {
        InDialog([&](WindowHandle dialog) {
            SetTile(dialog, width, height);
            act(dialog);
        });
    }
    /// The frames of a Build after the sample that a user has seen.
    static std::vector<std::vector<ColorWord>> Frames(WindowHandle dialog) {
        platform::FreeBlock(RenderTest(Subject(), dialog));
        return TakePixels(RenderBuild(Subject(), dialog));
    }
    /// Returns what Build returned.
    static int Build(WindowHandle dialog) {
        const HostServices services = AgreeingHost();
        FrameList frames{};
        StyleContext context{};
        context.Dialog = dialog;
        context.Frames = &frames;
        context.Host = &services;
        const int result = Subject().Build(&context);
        FrameListFree(&frames);
        return result;
    }
    static std::pair<int, int> SampleSize(WindowHandle dialog) {
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        const LockedImage image(sample.Get());
        if (!image) return {0, 0};
        return {image->Width, image->Height};
    }
    static std::uint32_t SavedElement() {
        const StyleParameter* parameter = FindParameter(Subject(), "Matrix");
        return parameter == nullptr ? ~0u : parameter->Value;
    }
    static void SetTarget(WindowHandle dialog, const raster::Rect& rect) {
        const LockedMatrixTile tile = LockMatrixTile(Matrix(dialog));
        ASSERT_TRUE(tile);
        tile->TargetRect = rect;
    }
};

using Pixels4 = std::vector<ColorWord>;

TEST_F(MuralTest, SampleIsTheTileAsItStands) {
    WithTile(2, 3, [](WindowHandle dialog) {
        const platform::OwnedBlock sample(RenderTest(Subject(), dialog));
        EXPECT_EQ(Pixels(sample.Get()), (std::vector<std::uint32_t>{1, 2, 3, 4, 5, 6}));
    });
}

TEST_F(MuralTest, TwoFramesAreNothingAndHalfTheSize) {
    WithTile(4, 1, [](WindowHandle dialog) {
        Set(dialog, "Frames", 2);
        Set(dialog, "Scroll", kRight);
        EXPECT_EQ(Frames(dialog), (std::vector<Pixels4>{{1, 2, 3, 4}, {3, 4, 1, 2}}));
    });
}

TEST_F(MuralTest, AsManyFramesAsColumnsRollByOneEach) {
    WithTile(3, 1, [](WindowHandle dialog) {
        Set(dialog, "Frames", 3);
        Set(dialog, "Scroll", kRight);
        EXPECT_EQ(Frames(dialog), (std::vector<Pixels4>{{1, 2, 3}, {3, 1, 2}, {2, 3, 1}}));
    });
}

TEST_F(MuralTest, LeftIsTheOtherWayRound) {
    WithTile(3, 1, [](WindowHandle dialog) {
        Set(dialog, "Frames", 3);
        Set(dialog, "Scroll", kLeft);
        EXPECT_EQ(Frames(dialog), (std::vector<Pixels4>{{1, 2, 3}, {2, 3, 1}, {3, 1, 2}}));
    });
}

TEST_F(MuralTest, UpAndDownRollRows) {
    WithTile(1, 3, [](WindowHandle dialog) {
        Set(dialog, "Frames", 3);
        Set(dialog, "Scroll", kUp);
        EXPECT_EQ(Frames(dialog), (std::vector<Pixels4>{{1, 2, 3}, {2, 3, 1}, {3, 1, 2}}));
        Set(dialog, "Scroll", kDown);
        EXPECT_EQ(Frames(dialog), (std::vector<Pixels4>{{1, 2, 3}, {3, 1, 2}, {2, 3, 1}}));
    });
}

TEST_F(MuralTest, FramesAreLimitedByTheSideThatRolls) {
    WithTile(5, 3, [](WindowHandle dialog) {
        Set(dialog, "Frames", 64);
        for (const int scroll : {kRight, kLeft}) {
            Set(dialog, "Scroll", scroll);
            EXPECT_EQ(Frames(dialog).size(), 5u) << scroll;
        }
        for (const int scroll : {kUp, kDown}) {
            Set(dialog, "Scroll", scroll);
            EXPECT_EQ(Frames(dialog).size(), 3u) << scroll;
        }
    });
}

TEST_F(MuralTest, ProgressIsOfThePanelsFramesWhereTheTileHasFewer) {
    WithTile(3, 1, [](WindowHandle dialog) {
        Set(dialog, "Frames", 64);
        Set(dialog, "Scroll", kRight);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        using Reports = std::vector<std::pair<std::int64_t, std::int64_t>>;
        EXPECT_EQ(ProgressOfABuild(Subject(), dialog), (Reports{{0, 64}, {1, 64}, {2, 64}}));
    });
}

TEST_F(MuralTest, ATenthOf128PixelsIs13AndDistancesRepeat) {
    WithTile(128, 128, [](WindowHandle dialog) {
        Set(dialog, "Frames", 128);
        Set(dialog, "Resize", 10);
        EXPECT_EQ(SampleSize(dialog), (std::pair{13, 13}));
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 128u);
        // 13 * f / 128 is below 1 up to frame 9.
        EXPECT_EQ(frames[9], frames[0]);
        EXPECT_NE(frames[10], frames[0]);
        EXPECT_EQ(frames[19], frames[10]);
    });
}

TEST_F(MuralTest, TileThatResizeLeavesWithoutAPixelFails) {
    WithTile(4, 4, [](WindowHandle dialog) {
        Set(dialog, "Resize", 10);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
        Set(dialog, "Resize", 13);
        EXPECT_EQ(SampleSize(dialog), (std::pair{1, 1}));
    });
}

TEST_F(MuralTest, FullSizeIsNotScaled) {
    WithTile(7, 5, [](WindowHandle dialog) {
        Set(dialog, "Resize", 100);
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(platform::CurrentMemoryUse().allocations - before, 1u);
    });
}

TEST_F(MuralTest, BuildBeforeAnySampleFails) {
    WithTile(4, 4, [](WindowHandle dialog) {
        EXPECT_EQ(Build(dialog), 0);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(Build(dialog), 1);
    });
}

TEST_F(MuralTest, BuildTakesItsSizeFromTheTargetAndTestFromThePicture) {
    WithTile(4, 4, [](WindowHandle dialog) {
        SetTarget(dialog, {10, 10, 16, 13});
        Set(dialog, "Frames", 2);
        const auto frames = TakePixels(RenderBuild(Subject(), dialog));
        ASSERT_EQ(frames.size(), 2u);
        EXPECT_EQ(frames[0], (Pixels4{1, 2, 3, 4, 1, 2, 5, 6, 7, 8, 5, 6, 9, 10, 11, 12, 9, 10}));
        EXPECT_EQ(SampleSize(dialog), (std::pair{4, 4}));
    });
}

TEST_F(MuralTest, CrossedAndImmenseTargetsFail) {
    WithTile(4, 4, [](WindowHandle dialog) {
        SetTarget(dialog, {5, 0, 4, 9});
        EXPECT_EQ(Build(dialog), 0);
        SetTarget(dialog, {-2000000000, 0, 2000000000, 9});
        EXPECT_EQ(Build(dialog), 0);
        SetTarget(dialog, {0, 0, 2000000000, 2000000000});
        EXPECT_EQ(Build(dialog), 0);
        // The width would be 2 if it were cut to 32 bits.
        SetTarget(dialog, {2147483647, 0, -2147483647, 9});
        EXPECT_EQ(Build(dialog), 0);
    });
}

TEST_F(MuralTest, MissingElementIsDrawnAsTheDefaultTile) {
    InDialog([](WindowHandle dialog) {
        {
            const LockedMatrixTile tile = LockMatrixTile(Matrix(dialog));
            ASSERT_TRUE(tile);
            EXPECT_EQ(tile->Image, nullptr);
        }
        MatrixTile standard;
        ASSERT_NE(InitMatrixTile(&standard), 0);
        const platform::OwnedBlock picture(standard.Image);
        const std::vector<ColorWord> pixels = Pixels(picture.Get());
        EXPECT_GT(std::set<ColorWord>(pixels.begin(), pixels.end()).size(), 16u);
        EXPECT_EQ(TakePixels(RenderTest(Subject(), dialog)), pixels);
        const auto frames = Frames(dialog);
        ASSERT_EQ(frames.size(), 64u);
        EXPECT_EQ(frames[0], pixels);
    });
}

TEST_F(MuralTest, PictureOfNoSizeFails) {
    InDialog([](WindowHandle dialog) {
        {
            const LockedMatrixTile tile = LockMatrixTile(Matrix(dialog));
            tile->Image = NewPackedDib(0, 4, nullptr, 24);
        }
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
    });
}

TEST_F(MuralTest, ControlWithoutARecordFails) {
    InDialog([](WindowHandle dialog) {
        platform::SendToWindow(Matrix(dialog), platform::kMessageDestroy, 0, 0);
        EXPECT_EQ(RenderTest(Subject(), dialog), nullptr);
        EXPECT_EQ(Build(dialog), 0);
    });
}

TEST_F(MuralTest, ElementIsReadBackAfterEachRunEvenAFailedOne) {
    WithTile(4, 4, [](WindowHandle dialog) {
        const auto set_element = [dialog](int element) {
            const LockedMatrixTile tile = LockMatrixTile(Matrix(dialog));
            tile->Element = element;
        };
        set_element(7);
        EXPECT_EQ(Build(dialog), 0);
        EXPECT_EQ(SavedElement(), 7u);
        set_element(8);
        platform::FreeBlock(RenderTest(Subject(), dialog));
        EXPECT_EQ(SavedElement(), 8u);
        set_element(9);
        EXPECT_EQ(Build(dialog), 1);
        EXPECT_EQ(SavedElement(), 9u);
    });
}

TEST_F(MuralTest, HasNoBackgroundInAnyMode) {
    WithTile(4, 4, [](WindowHandle dialog) {
        EXPECT_EQ(BackgroundQuery(Subject(), dialog, 0), kNoBackground);
        EXPECT_EQ(BackgroundQuery(Subject(), dialog, 1), kNoBackground);
    });
}

TEST_F(MuralTest, LackOfMemoryFailsCleanly) {
    WithTile(40, 40, [](WindowHandle dialog) {
        Set(dialog, "Resize", 50);
        EXPECT_GT(FailuresOfASample(Subject(), dialog), 1);
    });
}

}  // namespace

}  // namespace tess::test
