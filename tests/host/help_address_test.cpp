#include "host/help_address.h"

#include <gtest/gtest.h>

namespace tess {
namespace {

TEST(HelpAddress, PageStandsInTheFolderAndTheAnchorApart) {
    const HelpPlace place = FindHelp("C:\\host\\", "VORBELx1.HTML#PREFACE");
    EXPECT_EQ(place.Path, "C:\\host\\VORBELx1.HTML");
    EXPECT_EQ(place.Anchor, "PREFACE");
}

TEST(HelpAddress, TargetWithoutAnAnchorIsThePage) {
    const HelpPlace place = FindHelp("/h/", "VORBELx1.HTML");
    EXPECT_EQ(place.Path, "/h/VORBELx1.HTML");
    EXPECT_EQ(HelpAddress(place), "file:///h/VORBELx1.HTML");
}

TEST(HelpAddress, DriveAndSeparatorsAreAnAddressPath) {
    EXPECT_EQ(HelpAddress({"C:\\host\\VORBELx1.HTML", "TILE"}),
              "file:///C:/host/VORBELx1.HTML#TILE");
}

TEST(HelpAddress, OtherCharactersAreCoded) {
    EXPECT_EQ(HelpAddress({"C:\\My files #1\\50%.HTML", ""}),
              "file:///C:/My%20files%20%231/50%25.HTML");
}

}  // namespace
}  // namespace tess
