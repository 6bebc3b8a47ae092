// What a folder of frames may be depends on the system's permissions.
#include <filesystem>
#include <gtest/gtest.h>

#include "host/frame_folder.h"
#include "tests/host/sample_animations.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

// Some users may replace it and others not.
TEST(FrameFolderRights, NothingIsLeftBesideAFolderThatIsNotWritable) {
    const test::ScratchFolder scratch;
    const std::string place = scratch.File("frames");
    Animation animation;
    test::StartAnimation(animation, 1, 1, 3);
    test::AddFrame(animation, 4, -1, {1});
    fs::create_directory(place);
    fs::permissions(place, fs::perms{0555});
    const FileResult tried = TryFrameFolder(place);
    EXPECT_EQ(WriteFrameFolder(animation, place), tried);
    EXPECT_EQ(fs::exists(place + "/animation.json"), tried == FileResult::Written);
    EXPECT_EQ(fs::status(place).permissions(), fs::perms{0555});
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch.Path()), {}), 1);
    fs::permissions(place, fs::perms{0755});
}

}  // namespace
}  // namespace tess
