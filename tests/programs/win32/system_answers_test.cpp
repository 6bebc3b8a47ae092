// What the Windows host does without asking a user.

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>

#include "host/bmp_file.h"
#include "platform/files.h"
#include "programs/tilehost/system_dialogs.h"
#include "programs/user_folders.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {
namespace {

TEST(UserFolders, BothAreMadeOnce) {
    const ScratchFolder folder;
    platform::SetUserFolder(folder.Path());
    EXPECT_TRUE(MakeUserFolders());
    EXPECT_TRUE(std::filesystem::is_directory(folder.File("Quorvenstadtholme\\Tessellomatics 1")));
    EXPECT_TRUE(MakeUserFolders());
    platform::SetUserFolder("");
}

TEST(UserFolders, PlaceThatIsAFileIsAFailure) {
    const ScratchFolder folder;
    std::fclose(platform::OpenFile(folder.File("file"), "wb"));
    platform::SetUserFolder(folder.File("file"));
    EXPECT_FALSE(MakeUserFolders());
    platform::SetUserFolder("");
}

TEST(LoadPicture, BitmapComesBackAt24Bits) {
    const ScratchFolder folder;
    const platform::OwnedBlock written(NewPackedDib(3, 2, nullptr, 24));
    {
        const LockedImage image(written.Get());
        SetDibPixel(image, 0, 0, MakeColor(255, 0, 0));
        SetDibPixel(image, 2, 1, MakeColor(1, 2, 3));
    }
    ASSERT_EQ(WriteBmpFile(written.Get(), folder.File("a.bmp")), FileResult::Written);
    const platform::OwnedBlock read(LoadPicture(folder.File("a.bmp").c_str()));
    const LockedImage image(read.Get());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->BitCount, 24);
    EXPECT_EQ(image->Width, 3);
    EXPECT_EQ(image->Height, 2);
    EXPECT_EQ(GetDibPixel(image, 0, 0), MakeColor(255, 0, 0));
    EXPECT_EQ(GetDibPixel(image, 2, 1), MakeColor(1, 2, 3));
    EXPECT_EQ(GetDibPixel(image, 1, 1), 0u);
}

TEST(LoadPicture, FileThatIsNoPictureIsRefused) {
    const ScratchFolder folder;
    std::FILE* file = platform::OpenFile(folder.File("a.png"), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("no picture", file);
    std::fclose(file);
    EXPECT_EQ(LoadPicture(folder.File("a.png").c_str()), nullptr);
    EXPECT_EQ(LoadPicture(folder.File("none.bmp").c_str()), nullptr);
}

TEST(OpenHelp, MissingPageIsAFailure) {
    const ScratchFolder folder;
    EXPECT_FALSE(OpenHelp(folder.Path() + "\\", "VORBELx1.HTML#PREFACE"));
}

}  // namespace
}  // namespace tess::test
