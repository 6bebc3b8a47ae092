#include "host/collecting_host.h"

#include <cstring>
#include <gtest/gtest.h>

#include "tests/host/sample_animations.h"

namespace tess {
namespace {

class CollectingHostTest : public ::testing::Test {
protected:
    CollectingHostTest() {
        OpenHost(&host_, DelayUnit::Hundredths, true);
        task_.Size = sizeof task_;
        task_.Version = kHostVersion;
        task_.Depth = 3;
        task_.Width = 2;
        task_.Height = 1;
        test::FillPalette(task_.Palette);
    }
    ~CollectingHostTest() override { CloseHost(); }

    std::int64_t Open(HostOp op = HostOp::OpenBuild) {
        return CallHost(&host_.Services, nullptr, op, 0, &task_);
    }
    std::int64_t Add(ImageHandle image, std::uint32_t delay, int transparent) {
        ImageRecord record{};
        record.Size = sizeof record;
        record.Version = kHostVersion;
        record.Image = image;
        record.Delay = delay;
        record.TransparentIndex = transparent;
        return CallHost(&host_.Services, &task_, HostOp::AddFrame, 0, &record);
    }
    void Close(std::int64_t done) {
        CallHost(&host_.Services, &task_, HostOp::CloseTask, done, std::int64_t{0});
    }

    CollectingHost host_;
    TaskRecord task_{};
};

TEST_F(CollectingHostTest, FlagsSayTheUnitAndTheColors) {
    EXPECT_EQ(host_.Services.HostFlags, HostDelayHundredths | HostTrueColor);
    OpenHost(&host_, DelayUnit::Milliseconds, false);
    EXPECT_EQ(host_.Services.HostFlags, 0u);
    EXPECT_EQ(host_.Services.Version, kHostVersion);
}

TEST_F(CollectingHostTest, TaskIsKeptAsItWasOpened) {
    EXPECT_EQ(Open(), 1);
    EXPECT_EQ(host_.State, TaskState::Open);
    EXPECT_EQ(host_.Collected.Depth, 3);
    EXPECT_EQ(host_.Collected.Width, 2);
    EXPECT_EQ(std::memcmp(host_.Collected.Palette, task_.Palette, kPaletteBytes), 0);
}

TEST_F(CollectingHostTest, FrameOutlivesThePicturesOwner) {
    ASSERT_EQ(Open(), 1);
    {
        const platform::OwnedBlock picture(NewPackedDib(2, 1, task_.Palette, 3));
        SetDibPixel(LockedImage(picture.Get()), 1, 0, 6);
        ASSERT_EQ(Add(picture.Get(), 9, 2), 1);
    }
    FrameRecord frame{};
    ASSERT_EQ(GetFrame(host_.Collected, 0, &frame), 1);
    EXPECT_EQ(GetDibPixel(LockedImage(frame.Image), 1, 0), 6u);
    EXPECT_EQ(frame.Delay, 9u);
    EXPECT_EQ(frame.TransparentIndex, 2);
}

TEST_F(CollectingHostTest, ClosedAsDoneKeepsTheFrames) {
    ASSERT_EQ(Open(), 1);
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 3));
    ASSERT_EQ(Add(picture.Get(), 4, -1), 1);
    Close(1);
    EXPECT_EQ(host_.State, TaskState::Kept);
    EXPECT_EQ(host_.Collected.Frames.Count, 1);
}

TEST_F(CollectingHostTest, ClosedAsFailedDropsTheFrames) {
    ASSERT_EQ(Open(), 1);
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 3));
    ASSERT_EQ(Add(picture.Get(), 4, -1), 1);
    Close(0);
    EXPECT_EQ(host_.State, TaskState::Dropped);
    EXPECT_EQ(host_.Collected.Frames.Count, 0);
}

TEST_F(CollectingHostTest, FrameWithoutATaskIsRefused) {
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 3));
    EXPECT_EQ(Add(picture.Get(), 4, -1), 0);
}

TEST_F(CollectingHostTest, FrameThatFindsNoMemoryIsRefused) {
    ASSERT_EQ(Open(), 1);
    const platform::OwnedBlock picture(NewPackedDib(2, 1, nullptr, 3));
    platform::FailAllocation(1, true);
    EXPECT_EQ(Add(picture.Get(), 4, -1), 0);
    platform::FailAllocation(0);
    EXPECT_TRUE(host_.OutOfMemory);
}

TEST_F(CollectingHostTest, TaskOfAnotherSizeIsRefused) {
    task_.Size = 1079;
    EXPECT_EQ(Open(), 0);
    EXPECT_EQ(host_.State, TaskState::None);
}

TEST_F(CollectingHostTest, TestIsToldFromBuild) {
    ASSERT_EQ(Open(HostOp::OpenTest), 1);
    EXPECT_EQ(host_.OpenedBy, HostOp::OpenTest);
}

TEST_F(CollectingHostTest, CommentIsKept) {
    ASSERT_EQ(Open(), 1);
    CallHost(&host_.Services, &task_, HostOp::AddComment, 0, "made by hand");
    EXPECT_TRUE(host_.Collected.HasComment);
    EXPECT_EQ(host_.Collected.Comment, "made by hand");
}

TEST_F(CollectingHostTest, ColorChooserAnswersOnlyWithAChoice) {
    ColorDialogRecord record{};
    record.Color = 1;
    EXPECT_EQ(CallHost(&host_.Services, nullptr, HostOp::ChooseColor, 0, &record), 0);
    host_.AnswersColor = true;
    host_.Color = 0x123456;
    EXPECT_EQ(CallHost(&host_.Services, nullptr, HostOp::ChooseColor, 0, &record), 1);
    EXPECT_EQ(record.Color, 0x123456u);
}

TEST_F(CollectingHostTest, FileDialogSizeIsWritten) {
    host_.FileDialogWidth = 640;
    host_.FileDialogHeight = 480;
    std::int32_t size[2] = {};
    CallHost(&host_.Services, nullptr, HostOp::FileDialogSize, 0, size);
    EXPECT_EQ(size[0], 640);
    EXPECT_EQ(size[1], 480);
}

TEST_F(CollectingHostTest, ReportsReachTheirReceiver) {
    std::string log;
    host_.Reports = {
        [](void* context, const char* title) { *static_cast<std::string*>(context) += title; },
        [](void* context, std::int64_t done, std::int64_t total) {
            static_cast<std::string*>(context)->append(" ").append(std::to_string(done));
            static_cast<std::string*>(context)->append("/").append(std::to_string(total));
        },
        &log};
    CallHost(&host_.Services, nullptr, HostOp::StageTitle, 0, "Building");
    CallHost(&host_.Services, nullptr, HostOp::Progress, 3, std::int64_t{64});
    EXPECT_EQ(log, "Building 3/64");
}

TEST_F(CollectingHostTest, UnusedOpCodeAnswersZero) {
    EXPECT_EQ(host_.Services.HostCall(nullptr, 7, 0, 0), 0);
}

TEST_F(CollectingHostTest, OpeningAndEndOfATaskAreReported) {
    std::string log;
    host_.Reports.Context = &log;
    host_.Reports.TaskOpening = [](void* context) { *static_cast<std::string*>(context) += "o"; };
    host_.Reports.TaskClosed = [](void* context) { *static_cast<std::string*>(context) += "c"; };
    Open();
    Close(1);
    Close(1);  // nothing is open any more
    EXPECT_EQ(log, "oc");
}

TEST_F(CollectingHostTest, UserIsAskedWhereThereIsOne) {
    host_.Color = 1;
    host_.AnswersColor = true;
    host_.Questions.ChooseColor = [](void*, ColorDialogRecord* record) {
        record->Color += 5;
        return true;
    };
    ColorDialogRecord record{};
    record.Color = 3;
    EXPECT_EQ(CallHost(&host_.Services, nullptr, HostOp::ChooseColor, 0, &record), 1);
    EXPECT_EQ(record.Color, 8u);
    host_.Questions.ShowHelp = [](void*, const char*) { return false; };
    EXPECT_EQ(CallHost(&host_.Services, nullptr, HostOp::ShowHelp, 0, "VORBELx1.HTML"), 0);
    EXPECT_EQ(host_.HelpTarget, "VORBELx1.HTML");
}

TEST_F(CollectingHostTest, UserChoosesTheImageInTheOwnersName) {
    host_.Questions.ChooseImageFile = [](void*, platform::WindowHandle owner, char* path) {
        std::strcpy(path, owner == nullptr ? "none" : "owned");
        return true;
    };
    char path[kHostPathBytes] = "";
    EXPECT_EQ(CallHost(&host_.Services, nullptr, HostOp::ChooseImageFile, 77, path), 1);
    EXPECT_STREQ(path, "owned");
}

}  // namespace
}  // namespace tess
