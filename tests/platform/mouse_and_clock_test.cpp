// Sliders, timers, and the control that has the mouse.

#include "tests/platform/added_control.h"
#include "tests/platform/dialog_fixture.h"

namespace {

using platform::WindowHandle;

constexpr int kSlider = 900, kDither = 15, kPalette = 13, kDelayEdit = 11;

class Slider : public DialogFixture {
protected:
    void WithSlider(const Handler& action) {
        WithMainDialog([&action](WindowHandle dialog) {
            platform::test::AddControlTo(dialog, kSlider, "msctls_trackbar32", 0);
            platform::SetSliderRange(dialog, kSlider, 1, 99, 10);
            action(dialog);
        });
    }
};

TEST_F(Slider, PositionIsHeldInTheRange) {
    WithSlider([](WindowHandle dialog) {
        platform::SetSliderPosition(dialog, kSlider, 50);
        EXPECT_EQ(platform::SliderPosition(dialog, kSlider), 50);
        platform::SetSliderPosition(dialog, kSlider, 0);
        EXPECT_EQ(platform::SliderPosition(dialog, kSlider), 1);
        platform::SetSliderPosition(dialog, kSlider, 100);
        EXPECT_EQ(platform::SliderPosition(dialog, kSlider), 99);
    });
}

TEST_F(Slider, NarrowerRangeMovesThePosition) {
    WithSlider([](WindowHandle dialog) {
        platform::SetSliderPosition(dialog, kSlider, 80);
        platform::SetSliderRange(dialog, kSlider, 1, 60, 10);
        EXPECT_EQ(platform::SliderPosition(dialog, kSlider), 60);
    });
}

TEST_F(Slider, OtherControlsHaveNoPosition) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetSliderPosition(dialog, kDither, 5);
        EXPECT_EQ(platform::SliderPosition(dialog, kDither), 0);
    });
}

class Surroundings : public DialogFixture {};

TEST_F(Surroundings, ControlHasTheMouseUntilItIsReleased) {
    WithMainDialog([](WindowHandle dialog) {
        const WindowHandle control = platform::Control(dialog, kDither);
        EXPECT_FALSE(platform::HasMouse(control));
        platform::CaptureMouse(control);
        EXPECT_TRUE(platform::HasMouse(control));
        EXPECT_FALSE(platform::HasMouse(platform::Control(dialog, kPalette)));
        platform::ReleaseMouse();
        EXPECT_FALSE(platform::HasMouse(control));
    });
}

TEST_F(Surroundings, TimerRunsUntilItIsStopped) {
    WithMainDialog([](WindowHandle dialog) {
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 0);
        platform::StartTimer(dialog, 10, 200000);
        platform::StartTimer(dialog, 11, 300000);
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 200000);
        platform::StopTimer(dialog, 10);
        platform::StopTimer(dialog, 10);  // which does not run
        EXPECT_EQ(platform::TimerInterval(dialog, 10), 0);
        EXPECT_EQ(platform::TimerInterval(dialog, 11), 300000);
        platform::StopTimer(dialog, 11);
    });
}

TEST_F(Surroundings, ControlHasTheSizeThatItIsGiven) {
    WithMainDialog([](WindowHandle dialog) {
        platform::SetControlSize(dialog, kDither, 197, 50);
        EXPECT_EQ(platform::ClientSize(platform::Control(dialog, kDither)),
                  (platform::PixelSize{197, 50}));
    });
}

TEST_F(Surroundings, UserTypesNoMoreThanTheLimit) {
    WithMainDialog([](WindowHandle dialog) {
        platform::LimitText(dialog, kDelayEdit, 3);
        platform::TypeText(dialog, kDelayEdit, "12345");
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "123");
        platform::SetControlText(dialog, kDelayEdit, "12345");  // the program may
        EXPECT_EQ(platform::ControlText(dialog, kDelayEdit), "12345");
    });
}

TEST(MousePlace, HoldsBothCoordinatesWithTheirSigns) {
    const std::intptr_t place = platform::MousePlace(-3, 40);
    EXPECT_EQ(platform::MouseX(place), -3);
    EXPECT_EQ(platform::MouseY(place), 40);
}

}  // namespace
