#include "fills/curve_graph.h"

#include <cmath>
#include <set>
#include <utility>

#include "tests/fills/texture_dialog_fixture.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

constexpr CurveBox kArea{4, 12, 94, 88};  // of a control of 98 x 100

TEST(CurveGraph, AreaIsTheControlLess4AcrossAnd12Down) {
    EXPECT_EQ(CurveArea({98, 100}), kArea);
}

TEST(CurveGraph, HandlesStandAtThirds) {
    EXPECT_EQ(PlaceHandle(kArea, 0, 0.0F), (CurveHandle{4, 88}));
    EXPECT_EQ(PlaceHandle(kArea, 1, 0.33F), (CurveHandle{34, 88 - 25}));  // 76 x 0.33 is 25.08
    EXPECT_EQ(PlaceHandle(kArea, 2, 0.5F), (CurveHandle{64, 88 - 38}));
    EXPECT_EQ(PlaceHandle(kArea, 3, 1.0F), (CurveHandle{94, 12}));
    EXPECT_EQ(PlaceHandle(kArea, 3, 9.0F), (CurveHandle{94, 12}));
}

TEST(CurveGraph, HandleIsFoundWithinFivePixels) {
    TextureItem item = DefaultTexture(5, 0, 0);
    const CurveGraph graph{&item, CurveChannel::Green};
    EXPECT_EQ(HandleAt(kArea, graph, 34 + 5, 63 - 5), 1);
    EXPECT_EQ(HandleAt(kArea, graph, 34 + 6, 63), -1);
    EXPECT_EQ(HandleAt(kArea, graph, 34, 63 - 6), -1);
}

TEST(CurveGraph, RowsOfTheAreaAreValues) {
    EXPECT_EQ(ValueAtRow(kArea, 88), 0.0F);
    EXPECT_EQ(ValueAtRow(kArea, 50), 0.5F);
    EXPECT_EQ(ValueAtRow(kArea, -100), 1.0F);
    EXPECT_EQ(ValueAtRow(kArea, 1000), 0.0F);
    EXPECT_EQ(ValueAtRow({0, 5, 10, 5}, 5), 0.0F);  // an area without height
}

TEST(CurveGraph, NumberCountsDownFrom255) {
    EXPECT_EQ(HandleNumber(1.0F), 255);
    EXPECT_EQ(HandleNumber(0.0F), 0);
    EXPECT_EQ(HandleNumber(0.5F), 128);  // 255 - trunc(127.5)
    EXPECT_EQ(HandleNumber(HUGE_VALF), 255);
    EXPECT_EQ(HandleNumber(-HUGE_VALF), 0);
    EXPECT_EQ(HandleNumber(NAN), 0);
}

TEST(CurveGraph, NumberStandsInwardsOfItsHandle) {
    // Handles 0 and 1 have it at the right; below in the upper half, above in the lower.
    EXPECT_EQ(PlaceNumber(kArea, 0, {4, 88}, {20, 10}), (CurveBox{10, 72, 30, 82}));
    EXPECT_EQ(PlaceNumber(kArea, 3, {94, 12}, {20, 10}), (CurveBox{68, 18, 88, 28}));
}

TEST(CurveGraph, ShrunkPixelsAreMeansOfFour) {
    const platform::OwnedBlock wide(
        ImageOf(8, {0x00, 0x04, 0x08, 0x0D, 0x0100, 0x0100, 0x0100, 0x0100}));
    const platform::OwnedBlock narrow(ShrinkImageWidth(wide.Get()));
    EXPECT_EQ(Pixels(narrow.Get()), (std::vector<std::uint32_t>{0x06, 0x0100}));  // 25 / 4
    const platform::OwnedBlock tall(ImageOf(1, {1, 2, 3, 6, 9}));
    const platform::OwnedBlock low(ShrinkImageHeight(tall.Get()));
    EXPECT_EQ(Pixels(low.Get()), std::vector<std::uint32_t>{3});
}

TEST(CurveGraph, CurvePassesItsHandlesInItsColor) {
    TextureItem item = DefaultTexture(5, 0, 0);
    constexpr float kZigzag[] = {0.1F, 0.9F, 0.2F, 0.8F};
    constexpr ColorWord kColors[] = {0x404080, 0x408040, 0x804040};
    for (const CurveChannel channel :
         {CurveChannel::Red, CurveChannel::Green, CurveChannel::Blue}) {
        for (int point = 0; point < kCurvePoints; ++point)
            SetCurvePoint(&item, channel, point, kZigzag[point]);
        const platform::OwnedBlock picture(DrawCurveGraph({98, 100}, {&item, channel}));
        const LockedImage image(picture.Get());
        ASSERT_TRUE(image);
        EXPECT_EQ(image->Width, 98);
        EXPECT_EQ(image->Height, 100);
        EXPECT_EQ(GetDibPixel(image, 0, 0), 0xFFFFFFu);
        for (int point = 1; point < 3; ++point) {
            const CurveHandle handle = PlaceHandle(kArea, point, kZigzag[point]);
            bool is_near = false;
            for (int y = -1; y <= 1; ++y)
                is_near = is_near || GetDibPixel(image, handle.X, handle.Y + y) ==
                                         kColors[static_cast<int>(channel)];
            EXPECT_TRUE(is_near) << point;
        }
    }
}

TEST(CurveGraph, WithoutMemoryThePictureBeforeStandsOrNone) {
    TextureItem item = DefaultTexture(5, 0, 0);
    const CurveGraph graph{&item, CurveChannel::Red};
    std::set<std::pair<int, int>> sizes;
    for (std::size_t allocation = 1; allocation < 30; ++allocation) {
        platform::FailAllocation(allocation, true);
        const platform::OwnedBlock picture(DrawCurveGraph({20, 40}, graph));
        platform::FailAllocation(0);
        const LockedImage image(picture.Get());
        sizes.insert(image ? std::pair{image->Width, image->Height} : std::pair{0, 0});
    }
    EXPECT_EQ(sizes, (std::set<std::pair<int, int>>{{0, 0}, {80, 160}, {20, 160}, {20, 40}}));
}

class CurveMouse : public TextureDialogTest {
protected:
    static constexpr int kRed = 525, kGreen = 526, kBlue = 527;

    CurveMouse() {
        item.TextureType = 5;
        WriteGroup("vorbelx1.fft", "Writeable=0", {"Moss"});
    }
    static CurveBox AreaOf(WindowHandle dialog, int id) {
        return CurveArea(platform::ClientSize(platform::Control(dialog, id)));
    }
    /// The mouse on the handle of a point of the red curve's start values.
    static CurveHandle HandleOf(WindowHandle dialog, int point) {
        constexpr float kLine[] = {0.0F, 0.33F, 0.67F, 1.0F};
        return PlaceHandle(AreaOf(dialog, kRed), point, kLine[point]);
    }
};

TEST_F(CurveMouse, DragMovesAHandleUpAndDownWithinItsArea) {
    Edit({[](WindowHandle dialog) {
        const CurveHandle handle = HandleOf(dialog, 1);
        const CurveBox area = AreaOf(dialog, kRed);
        Mouse(dialog, kRed, platform::kMessageLeftButtonDown, handle.X + 2, handle.Y - 2);
        EXPECT_EQ(HeldHandle(platform::Control(dialog, kRed)), 1);
        Mouse(dialog, kRed, platform::kMessageMouseMove, handle.X + 90, area.Top - 50);
        EXPECT_EQ(EditedTexture()->ColorRed[1], 1.0F);
        Mouse(dialog, kRed, platform::kMessageMouseMove, handle.X, area.Bottom);
        Mouse(dialog, kRed, platform::kMessageLeftButtonUp, handle.X, area.Bottom);
        EXPECT_EQ(HeldHandle(platform::Control(dialog, kRed)), -1);
        Mouse(dialog, kRed, platform::kMessageMouseMove, handle.X, area.Top);
    }});
    EXPECT_EQ(item.ColorRed[1], 0.0F);
    EXPECT_EQ(item.ColorGreen[1], 0.33F);
}

TEST_F(CurveMouse, PressBesideTheHandlesHoldsNone) {
    Edit({[](WindowHandle dialog) {
        const CurveHandle handle = HandleOf(dialog, 1);
        Mouse(dialog, kRed, platform::kMessageLeftButtonDown, handle.X + 6, handle.Y);
        EXPECT_FALSE(platform::HasMouse(platform::Control(dialog, kRed)));
        Mouse(dialog, kRed, platform::kMessageMouseMove, handle.X, 0);
    }});
    EXPECT_EQ(item.ColorRed[1], 0.33F);
}

TEST_F(CurveMouse, DoubleClickGivesAChosenColorToAllThreeCurves) {
    chooser_color = 0x0033FF;
    item.ColorGreen[2] = 0.5F;
    Edit({[](WindowHandle dialog) {
        const CurveHandle handle = HandleOf(dialog, 2);
        Mouse(dialog, kRed, platform::kMessageLeftDoubleClick, handle.X, handle.Y);
    }});
    EXPECT_EQ(chooser_start, 0xAA7FAAu);  // 0.67 and 0.5 of 255
    EXPECT_EQ(item.ColorRed[2], 1.0F);
    EXPECT_EQ(item.ColorGreen[2], 0.2F);
    EXPECT_EQ(item.ColorBlue[2], 0.0F);
    EXPECT_EQ(item.ColorRed[1], 0.33F);
}

TEST_F(CurveMouse, RightDoubleClickRestoresTheCurve) {
    for (int point = 0; point < kCurvePoints; ++point)
        item.ColorRed[point] = item.ColorBlue[point] = 0.5F;
    Edit({[](WindowHandle dialog) {
        Mouse(dialog, kBlue, platform::kMessageRightDoubleClick, 1, 1);
    }});
    const TextureItem line = DefaultTexture(5, 0, 0);
    for (int point = 0; point < kCurvePoints; ++point) {
        EXPECT_EQ(item.ColorBlue[point], line.ColorBlue[point]);
        EXPECT_EQ(item.ColorRed[point], 0.5F);
    }
}

}  // namespace

}  // namespace tess::test
