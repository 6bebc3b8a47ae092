#include "shell/entry_points.h"

#include <cstring>

#include "shell/control_contract.h"
#include "tests/shell/main_dialog_fixture.h"

namespace tess::test {

namespace {

TEST(PluginParams, AreFilledAndTheRestIsCleared) {
    std::vector<std::uint8_t> bytes(700, 0xAA);
    auto* params = reinterpret_cast<PluginParams*>(bytes.data());
    params->Size = 600;
    EXPECT_EQ(PLUGIN16GetPluginParams(params), 1);
    EXPECT_EQ(params->Size, 600u);
    EXPECT_EQ(params->Version, 4096u);
    EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[8]), "Tessellomatics #1");
    const std::string description = reinterpret_cast<const char*>(&bytes[269]);
    EXPECT_TRUE(description.starts_with("Tessellomatics #1 Plugin"));
    EXPECT_LE(description.size() - std::strlen("Tessellomatics #1 Plugin"), 65u);
    for (std::size_t i = 8 + std::strlen("Tessellomatics #1"); i < 269; ++i)
        EXPECT_EQ(bytes[i], 0);
    for (std::size_t i = 269 + description.size(); i < 600; ++i)
        EXPECT_EQ(bytes[i], 0);
    for (std::size_t i = 600; i < 700; ++i)
        EXPECT_EQ(bytes[i], 0xAA);
}

using EntryPointsTest = MainDialogTest;

TEST_F(EntryPointsTest, OldHostIsRefusedWithItsMessage) {
    std::vector<std::string> told;
    platform::SetHeadlessUser(
        [](platform::WindowHandle dialog, void* context) {
            static_cast<std::vector<std::string>*>(context)->push_back(
                platform::ControlText(dialog, 101));
            platform::PostCommand(dialog, 1);
        },
        &told);
    const HostServices services{sizeof(HostServices), 0x0FFF, 0, 0, nullptr, 0, 3, 0};
    EXPECT_EQ(PLUGIN16DoBuild(nullptr, &services), 0);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0],
              "You need a newer version of Zandervault Professional or Murgaloft to support this "
              "plugin.\n\nPlease visit the Quorvenstadtholme web page to update your software.");
}

TEST_F(EntryPointsTest, StringTableHasItsTextsAndTellsOfAMissingOne) {
    EXPECT_STREQ(LoadStringText(StringId::MemoryError), "Memory error");
    EXPECT_STREQ(LoadStringText(1606), "256-color orthogonal");
    EXPECT_STREQ(LoadStringText(99), "String table error - this application may be damaged");
}

}  // namespace

}  // namespace tess::test
