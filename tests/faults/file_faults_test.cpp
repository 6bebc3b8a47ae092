// Saving and loading of each kind of file, in which memory and files fail.
#include <cstdio>
#include <cstring>
#include <string>

#include "fills/fountain_control.h"
#include "fills/fountain_library.h"
#include "fills/material_file.h"
#include "fills/matrix_group_file.h"
#include "fills/texture_group_file.h"
#include "shell/control_contract.h"
#include "shell/document.h"
#include "tests/faults/fault_run.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;

const std::string kPluginFolder = "Quorvenstadtholme/Tessellomatics 1/";
const std::string kConfiguration = "Quorvenstadtholme/vorbelx1.ini";

using Files = FaultTest;

TEST_F(Files, SavedConfigurationIsOldOrNew) {
    const std::string path = platform::UserFile(kConfigurationFile);
    const auto prepare = [&] {
        MainDelay = 4;
        ASSERT_EQ(WriteConfigurationFile(path.c_str()), 1);
        MainDelay = 17;
    };
    FailEverything({.kind = "configuration: save",
                    .prepare = prepare,
                    .run = [&] { return WriteConfigurationFile(path.c_str()) == 1; },
                    .told = {},
                    .writes = {kConfiguration},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedConfigurationSaysWhetherItIsWhole) {
    const std::string path = platform::UserFile(kConfigurationFile);
    MainDelay = 17;
    StyleTable[kStyleCount - 1]->Parameters.back().Value = 33;
    ASSERT_EQ(WriteConfigurationFile(path.c_str()), 1);
    const auto prepare = [] {
        MainDelay = 4;
        StyleTable[kStyleCount - 1]->Parameters.back().Value = 0;
    };
    const auto load = [&] {
        if (ReadConfigurationFile(path.c_str()) == 0) return false;
        EXPECT_EQ(MainDelay, 17u);
        EXPECT_EQ(StyleTable[kStyleCount - 1]->Parameters.back().Value, 33u);
        return true;
    };
    FailEverything({.kind = "configuration: load",
                    .prepare = prepare,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Files, SavedDocumentIsOldOrNewAndAFailureIsTold) {
    InMainDialog([&](WindowHandle dialog) {
        FailEverything({.kind = "document: save",
                        .prepare = [&] { Put("a.qv1", "old"); },
                        .run = [&] { return WriteDocument(dialog, File("a.qv1").c_str()) == 1; },
                        .told = {"There has been an error creating the requested file."},
                        .writes = {kPluginFolder + "a.qv1"},
                        .is_whole = nullptr});
    });
}

TEST_F(Files, LoadedDocumentTellsOfAFailure) {
    InMainDialog([&](WindowHandle dialog) {
        ASSERT_EQ(WriteDocument(dialog, File("a.qv1").c_str()), 1);
        const auto load = [&] { return ReadDocument(dialog, File("a.qv1").c_str()) == 1; };
        FailEverything({.kind = "document: load",
                        .prepare = load,
                        .run = load,
                        .told = {"There has been an error opening the requested file."},
                        .writes = {},
                        .is_whole = nullptr,
                        .keeps_blocks = true});
    });
}

Fountain FountainFrom(ColorWord start) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::SevenColors);
    fountain.Start = start;
    return fountain;
}

WindowHandle FountainButton(WindowHandle dialog) {
    for (const WindowHandle control : platform::Children(dialog)) {
        if (std::strcmp(platform::ControlTag(control), kFountainTag) == 0) return control;
    }
    return nullptr;
}

TEST_F(Files, SavedFountainIsOldOrNew) {
    const auto prepare = [&] { ASSERT_EQ(WriteFountainFile(File("a"), FountainFrom(1)), 1); };
    FailEverything({.kind = "fountain: save",
                    .prepare = prepare,
                    .run = [&] { return WriteFountainFile(File("a"), FountainFrom(2)) == 1; },
                    .told = {},
                    .writes = {kPluginFolder + "a"},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedFountainThatFailsLeavesTheOldOne) {
    ASSERT_EQ(WriteFountainFile(File("a"), FountainFrom(2)), 1);
    ASSERT_EQ(WriteFountainFile(File("b"), FountainFrom(1)), 1);
    InMainDialog([&](WindowHandle dialog) {
        const WindowHandle button = FountainButton(dialog);
        ASSERT_NE(button, nullptr);
        const auto load = [&] {
            const bool is_done = LoadFountainFile(button, File("a")) == 1;
            EXPECT_EQ(ColorWord{LockFountain(button)->Start}, is_done ? 2u : 1u);
            return is_done;
        };
        FailEverything({.kind = "fountain: load",
                        .prepare = [&] { ASSERT_EQ(LoadFountainFile(button, File("b")), 1); },
                        .run = load,
                        .told = {},
                        .writes = {},
                        .is_whole = nullptr,
                        .keeps_blocks = true});
    });
}

TEST_F(Files, LibraryThatIsAddedToIsOldOrNew) {
    const std::string path = File("a.fll");
    const auto prepare = [&] {
        platform::RemoveFile(path);
        for (const ColorWord start : {1u, 2u, 3u})
            ASSERT_EQ(AppendToFountainLibrary(path, FountainFrom(start)), 1);
    };
    FailEverything({.kind = "fountain library: add",
                    .prepare = prepare,
                    .run = [&] { return AppendToFountainLibrary(path, FountainFrom(4)) == 1; },
                    .told = {},
                    .writes = {kPluginFolder + "a.fll"},
                    .is_whole = nullptr});
}

TEST_F(Files, LibraryThatIsReadIsWholeOrUnreadable) {
    const std::string path = File("a.fll");
    for (const ColorWord start : {1u, 2u, 3u})
        ASSERT_EQ(AppendToFountainLibrary(path, FountainFrom(start)), 1);
    const auto load = [&] {
        FountainLibraryEntries entries;
        const LibraryState state = ReadFountainLibrary(path, &entries);
        EXPECT_TRUE(state == LibraryState::Whole || state == LibraryState::Unreadable);
        EXPECT_EQ(entries.size(), state == LibraryState::Whole ? 3u : 0u);
        return state == LibraryState::Whole;
    };
    FailEverything({.kind = "fountain library: load",
                    .prepare = nullptr,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Files, EmptiedLibraryIsThereOrGone) {
    const std::string path = File("a.fll");
    const auto prepare = [&] {
        Erase("a.fll");
        ASSERT_EQ(AppendToFountainLibrary(path, FountainFrom(1)), 1);
    };
    FailEverything({.kind = "fountain library: empty",
                    .prepare = prepare,
                    .run = [&] { return WriteFountainLibrary(path, nullptr, 0) == 1; },
                    .told = {},
                    .writes = {kPluginFolder + "a.fll"},
                    .is_whole = nullptr});
}

bool WriteTextures(const std::string& path, int count) {
    TextureGroupWriter writer(path, count);
    TextureItem item{};
    InitTextureItem(&item);
    for (int i = 0; i < count; ++i)
        writer.Add("Texture " + std::to_string(i), item);
    return writer.Commit() == 1;
}

TEST_F(Files, SavedTextureGroupIsOldOrNewWithItsBackup) {
    const auto prepare = [&] {
        ASSERT_TRUE(WriteTextures(File("a.fft"), 1));
        ASSERT_TRUE(WriteTextures(File("a.fft"), 2));
    };
    FailEverything({.kind = "texture group: save",
                    .prepare = prepare,
                    .run = [&] { return WriteTextures(File("a.fft"), 3); },
                    .told = {},
                    .writes = {kPluginFolder + "a.fft"},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedTextureGroupSaysWhetherItIsWhole) {
    ASSERT_TRUE(WriteTextures(File("a.fft"), 3));
    const auto load = [&] {
        TextureGroupReader reader(File("a.fft"));
        int count = 0;
        std::string name;
        TextureItem item;
        while (reader.Next(&name, &item))
            ++count;
        EXPECT_TRUE(!reader.IsRead() || count == 3);
        return reader.IsRead();
    };
    FailEverything({.kind = "texture group: load",
                    .prepare = nullptr,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

bool WriteTiles(const std::string& path, int count) {
    std::vector<platform::OwnedBlock> owners;
    std::vector<ImageHandle> elements;
    for (int i = 0; i < count; ++i) {
        owners.emplace_back(ImageOf(9, std::vector<std::uint32_t>(81, 0x102030)));
        elements.push_back(owners.back().Get());
    }
    return WriteMatrixGroup(path, elements) != 0;
}

TEST_F(Files, SavedMatrixGroupIsOldOrNewWithItsBackup) {
    std::vector<platform::OwnedBlock> owners;
    std::vector<ImageHandle> elements;
    for (int i = 0; i < 5; ++i) {
        owners.emplace_back(ImageOf(9, std::vector<std::uint32_t>(81, 0x102030)));
        elements.push_back(owners.back().Get());
    }
    const auto prepare = [&] {
        ASSERT_TRUE(WriteTiles(File("a.mtx"), 2));
        ASSERT_TRUE(WriteTiles(File("a.mtx"), 3));
    };
    FailEverything({.kind = "matrix group: save",
                    .prepare = prepare,
                    .run = [&] { return WriteMatrixGroup(File("a.mtx"), elements) != 0; },
                    .told = {},
                    .writes = {kPluginFolder + "a.mtx"},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedMatrixGroupIsWholeOrNot) {
    ASSERT_TRUE(WriteTiles(File("a.mtx"), 3));
    const auto load = [&] {
        MatrixGroup group;
        const bool is_whole = ReadMatrixGroup(File("a.mtx"), &group) == GroupReading::Whole;
        EXPECT_TRUE(!is_whole || group.Count() == 3);
        return is_whole;
    };
    FailEverything({.kind = "matrix group: load",
                    .prepare = nullptr,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedMatrixElementIsWholeOrNone) {
    ASSERT_TRUE(WriteTiles(File("a.mtx"), 3));
    const auto load = [&] {
        const platform::OwnedBlock element(LoadMatrixElement(File("a.mtx"), 2));
        EXPECT_TRUE(!element || Pixels(element.Get()) == std::vector<std::uint32_t>(81, 0x102030));
        return static_cast<bool>(element);
    };
    FailEverything({.kind = "matrix element: load",
                    .prepare = nullptr,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Files, SavedMaterialIsOldOrNew) {
    const platform::OwnedBlock old(LoadMaterial("", 0x112233, 0));
    const platform::OwnedBlock material(LoadMaterial("", 0x445566, 0));
    FailEverything({.kind = "material: save",
                    .prepare = [&] { ASSERT_EQ(SaveMaterial(old.Get(), File("a")), 1); },
                    .run = [&] { return SaveMaterial(material.Get(), File("a")) == 1; },
                    .told = {},
                    .writes = {kPluginFolder + "a"},
                    .is_whole = nullptr});
}

TEST_F(Files, LoadedMaterialIsThatOfTheFileOrAPlainOne) {
    ASSERT_TRUE(WriteTiles(File("a.mtx"), 2));
    {
        const platform::OwnedBlock stored(LoadMaterial("", 0x445566, 0));
        const LockedMaterial material(stored.Get());
        material->Mode = MaterialMode::Tile;
        SetMatrixTilePath(&material->Tile, File("a.mtx"));
        ASSERT_EQ(SaveMaterial(stored.Get(), File("a")), 1);
    }
    const auto load = [&] {
        const MaterialHandle handle = LoadMaterial(File("a"), 0x112233, 1);
        bool is_done = false;
        if (const LockedMaterial material(handle); material) {
            const ColorWord color = material->SimpleColor;
            EXPECT_TRUE(color == 0x112233 || color == 0x445566);
            is_done = material->Tile.Image != nullptr;
        }
        FreeMaterial(handle);
        return is_done;
    };
    FailEverything({.kind = "material: load",
                    .prepare = nullptr,
                    .run = load,
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Files, FileThatIsMovedToTheTrashIsInOnePlace) {
    const auto move = [&] {
        const bool is_done = platform::MoveToRecycleBin(File("a.mtx")) == 1;
        EXPECT_NE(Contents().contains(kPluginFolder + "a.mtx"),
                  Contents().contains("Trash/files/a.mtx"));
        return is_done;
    };
    FailEverything({.kind = "file: to the trash",
                    .prepare = [&] { Put("a.mtx", "bytes of a group"); },
                    .run = move,
                    .told = {},
                    .writes = {kPluginFolder + "a.mtx", "Trash/files/a.mtx"},
                    .is_whole = nullptr});
}

}  // namespace

}  // namespace tess::test
