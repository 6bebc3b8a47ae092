// The library as a file: what it exports and imports, and its two entries.

#include <algorithm>
#include <cctype>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <span>

#include "tests/windows/plugin_run.h"

namespace tess::test {

namespace {

/// A table of the loaded image, as its headers point at it.
template <class T>
const T* At(HMODULE module, DWORD offset) {
    return reinterpret_cast<const T*>(reinterpret_cast<const std::uint8_t*>(module) + offset);
}

DWORD DirectoryOf(HMODULE module, int directory) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(dos->e_lfanew));
    return headers->OptionalHeader.DataDirectory[directory].VirtualAddress;
}

std::set<std::string> ExportsOf(HMODULE module) {
    const auto* table =
        At<IMAGE_EXPORT_DIRECTORY>(module, DirectoryOf(module, IMAGE_DIRECTORY_ENTRY_EXPORT));
    EXPECT_EQ(table->NumberOfNames, table->NumberOfFunctions);
    std::set<std::string> names;
    for (DWORD i = 0; i < table->NumberOfNames; ++i)
        names.insert(At<char>(module, At<DWORD>(module, table->AddressOfNames)[i]));
    return names;
}

std::set<std::string> ImportsOf(HMODULE module) {
    std::set<std::string> names;
    for (const auto* entry =
             At<IMAGE_IMPORT_DESCRIPTOR>(module, DirectoryOf(module, IMAGE_DIRECTORY_ENTRY_IMPORT));
         entry->Name != 0; ++entry) {
        std::string name = At<char>(module, entry->Name);
        for (char& c : name)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        names.insert(name);
    }
    return names;
}

TEST(PluginLibrary, ExportsThreeNames) {
    const Plugin plugin;
    ASSERT_NE(plugin.module, nullptr);
    EXPECT_EQ(ExportsOf(plugin.module),
              (std::set<std::string>{"DllMain", "PLUGIN16DoBuild", "PLUGIN16GetPluginParams"}));
}

TEST(PluginLibrary, NeedsSystemLibrariesAlone) {
    const Plugin plugin;
    ASSERT_NE(plugin.module, nullptr);
    const std::set<std::string> system = {
        "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",   "gdiplus.dll",
        "kernel32.dll", "msvcrt.dll",   "ole32.dll",    "shell32.dll", "user32.dll"};
    for (const std::string& name : ImportsOf(plugin.module))
        EXPECT_TRUE(system.contains(name)) << name;
}

TEST(PluginLibrary, ParamsAreByteForByteWhatTheHostReads) {
    const Plugin plugin;
    constexpr std::uint32_t kSize = 400;
    std::vector<std::uint8_t> bytes(kSize + 16, 0xAA);
    std::memcpy(bytes.data(), &kSize, sizeof kSize);
    ASSERT_EQ(plugin.get_params(reinterpret_cast<PluginParams*>(bytes.data())), 1);
    std::vector<std::uint8_t> expected(bytes.size(), 0xAA);
    std::fill_n(expected.begin(), kSize, std::uint8_t{0});
    const auto put = [&expected](std::size_t offset, std::string_view text) {
        std::memcpy(&expected[offset], text.data(), text.size());
    };
    put(0, std::string_view("\x90\x01\0\0", 4));
    put(4, std::string_view("\0\x10\0\0", 4));
    put(8, "Tessellomatics #1");
    put(269, "Tessellomatics #1 Plugin - seamless animated background tiles");
    EXPECT_EQ(bytes, expected);
}

TEST(PluginLibrary, OldHostIsRefusedWithAText) {
    const Plugin plugin;
    HostRecord host;
    host.version = 0x0F00;
    PluginRun run(plugin, host);
    HWND message = run.WaitForMessage("You need a newer version");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(TextOf(message, kMessageText),
              "You need a newer version of Zandervault Professional or Murgaloft to support this "
              "plugin.\n\nPlease visit the Quorvenstadtholme web page to update your software.");
    Click(message, IDOK);
    EXPECT_EQ(run.WaitForEnd(), 0);
    EXPECT_TRUE(run.AllCalls().empty());
}

}  // namespace

}  // namespace tess::test
