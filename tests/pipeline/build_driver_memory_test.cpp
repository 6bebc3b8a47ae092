// What a run of the driver needs of memory, and what it does without.
#include <gtest/gtest.h>

#include "tests/pipeline/build_driver_fixture.h"

namespace tess::test {
namespace {

constexpr std::size_t kMebibyte = std::size_t{1} << 20;

/// A setting of the dialog, with the button that is pressed.
struct Case {
    const char* name;
    BuildMode mode;
    DialogSettings settings;
};

std::vector<Case> AllCases() {
    using enum BuildMode;
    return {
        {"Fixed", Build, {.palette = 1}},
        {"FixedTest", Test, {.palette = 6}},
        {"BlackAndWhiteDither", Build, {.palette = 0, .dither = true}},
        {"Dither", Build, {.dither = true}},
        {"Custom", Build, {.custom_palette = true}},
        {"TrueColor", Build, {.true_color = true}},
        {"MaskBackground", Build, {.custom_palette = true, .mask_background = true}},
        {"Supercompress", Build, {.custom_palette = true, .supercompress = true}},
        {"SupercompressFixed", Test, {.supercompress = true}},
        {"SupercompressDither",
         Build,
         {.custom_palette = true, .dither = true, .supercompress = true}},
        {"Preview", Preview, {.palette = 1}},
        {"PreviewMaskBackground", Preview, {.custom_palette = true, .mask_background = true}},
    };
}

class EveryAllocation : public DriverTest, public testing::WithParamInterface<Case> {
protected:
    EveryAllocation() {
        ToyFrame first{9, 5, {}, 4};
        for (int i = 0; i < 45; ++i)
            first.pixels.push_back(MakeColor(i, i * i, 255 - i));
        ToyFrame second = first;
        second.pixels[7] = kRed;
        Frames({first, second, first});
        Background(first.pixels[0]);
        settings = GetParam().settings;
    }
    /// The number of allocations of a run in which none fails.
    std::size_t CountOfASuccess() {
        const std::size_t before = platform::CurrentMemoryUse().allocations;
        EXPECT_EQ(Run(GetParam().mode), 1);
        return platform::CurrentMemoryUse().allocations - before;
    }
    /// The message that belongs to the stage which the run has reached.
    static std::string ExpectedMessage() {
        // A Preview that has remapped its last frame has cleared the progress.
        const auto title = std::find(Events().begin(), Events().end(), "Title Remapping");
        const bool wrote = std::find(title, Events().end(), "Progress 0 0") != Events().end();
        return wrote ? "Error writing file" : "Memory error";
    }
    void FailEachInTurn(bool later_ones_too) {
        const std::size_t count = CountOfASuccess();
        const platform::MemoryUse before = platform::CurrentMemoryUse();
        ASSERT_GT(count, 4U);
        for (std::size_t failing = 1; failing <= count; ++failing) {
            Shell().messages.clear();
            Events().clear();
            settings.failing_allocation = static_cast<unsigned>(failing);
            settings.later_ones_fail_too = later_ones_too;
            EXPECT_EQ(Run(GetParam().mode), 0) << failing << " of " << count;
            EXPECT_EQ(Shell().messages, std::vector<std::string>{ExpectedMessage()}) << failing;
            EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, before.live_blocks) << failing;
            EXPECT_EQ(platform::CurrentMemoryUse().live_bytes, before.live_bytes) << failing;
        }
    }
};

TEST_P(EveryAllocation, FailingAloneEndsInTheMessageWithAllFreed) {
    FailEachInTurn(false);
}

TEST_P(EveryAllocation, FailingWithAllLaterOnesEndsInTheMessageWithAllFreed) {
    FailEachInTurn(true);
}

TEST_P(EveryAllocation, RunAfterAFailureGivesTheSameFrames) {
    ASSERT_EQ(Run(GetParam().mode), 1);
    const std::vector<HandedFrame> frames = host.frames;
    host.frames.clear();
    settings.failing_allocation = 5;
    EXPECT_EQ(Run(GetParam().mode), 0);
    settings.failing_allocation = 0;
    host.frames.clear();
    ASSERT_EQ(Run(GetParam().mode), 1);
    ASSERT_EQ(host.frames.size(), frames.size());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_EQ(host.frames[i].picture, frames[i].picture);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, EveryAllocation, testing::ValuesIn(AllCases()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

class PeakMemory : public DriverTest {
protected:
    static constexpr int kSize = 512;
    static constexpr int kFrames = 40;
    static constexpr std::size_t kFrameBytes = std::size_t{3} * kSize * kSize;
    static constexpr std::size_t kRemappedBytes = std::size_t{1} * kSize * kSize;
    static constexpr std::size_t kListBytes = kFrameBytes * kFrames;

    PeakMemory() {
        Shell().build = [](StyleContext* context) {
            for (int i = 0; i < kFrames; ++i) {
                platform::OwnedBlock picture(NewPackedDib(kSize, kSize, nullptr, 24));
                const LockedImage image(picture.Get());
                if (!image) return 0;
                for (int y = 0; y < kSize; ++y) {
                    // 512 colours, and one row in sixteen changes.
                    const ColorWord color = MakeColor(y / 2, y & 1, (y & 15) == 0 ? i : 0);
                    for (int x = 0; x < kSize; ++x)
                        SetDibPixel(image, x, y, color);
                }
                const FrameRecord record{picture.Get(), nullptr, 4, -1};
                if (FrameListAdd(context->Frames, &record) == 0) return 0;
                static_cast<void>(picture.Release());
            }
            return 1;
        };
    }
    /// What a run needs at most, beyond what stood before.
    std::size_t PeakOfARun(BuildMode mode = BuildMode::Build) {
        const std::size_t before = platform::CurrentMemoryUse().live_bytes;
        platform::ResetPeakMemory();
        EXPECT_EQ(Run(mode), 1);
        host.frames.clear();
        return platform::CurrentMemoryUse().peak_bytes - before;
    }
};

TEST_F(PeakMemory, PlainBuildNeedsTheListAndOneRemappedFrame) {
    EXPECT_LE(PeakOfARun(), kListBytes + kRemappedBytes + 2 * kMebibyte);
}

TEST_F(PeakMemory, PreviewNeedsNoMoreThanABuild) {
    EXPECT_LE(PeakOfARun(BuildMode::Preview), kListBytes + kRemappedBytes + 2 * kMebibyte);
}

TEST_F(PeakMemory, TrueColorBuildNeedsTheListAlone) {
    settings.true_color = true;
    EXPECT_LE(PeakOfARun(), kListBytes + 2 * kMebibyte);
}

TEST_F(PeakMemory, FullestBuildStaysWithin48MebibytesMore) {
    settings.custom_palette = settings.dither = settings.supercompress = true;
    EXPECT_LE(PeakOfARun(), kListBytes + kRemappedBytes + kFrameBytes + 48 * kMebibyte);
}

TEST_F(PeakMemory, SupercompressAddsLastImageAndTheMasks) {
    settings.supercompress = true;
    constexpr std::size_t kMasks = kListBytes / 24;
    // Forcing the background makes a second remapped frame.
    EXPECT_LE(PeakOfARun(), kListBytes + 2 * kRemappedBytes + kFrameBytes + kMasks + 2 * kMebibyte);
}

}  // namespace
}  // namespace tess::test
