// Opening, use and closing of the dialogs, in which memory and files fail.
#include <cstdio>
#include <deque>
#include <string>

#include "fills/fountain_control.h"
#include "fills/fountain_library.h"
#include "fills/fountain_library_dialog.h"
#include "fills/gradient_dialog.h"
#include "fills/marker_position_dialog.h"
#include "fills/material_control.h"
#include "fills/matrix_dialog.h"
#include "fills/matrix_element_list.h"
#include "fills/matrix_group_file.h"
#include "fills/texture_dialog.h"
#include "fills/texture_group_file.h"
#include "platform/headless_user.h"
#include "shell/control_contract.h"
#include "tests/faults/fault_run.h"
#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

using platform::WindowHandle;
using Step = std::function<void(WindowHandle)>;

constexpr int kOk = 1, kCancel = 2;
const std::string kPluginFolder = "Quorvenstadtholme/Tessellomatics 1/";

class Dialogs : public FaultTest {
protected:
    /// From now on the user takes these steps, one at a time, and then presses `button`.
    void Take(std::deque<Step> steps, int button = kOk) {
        user = [steps = std::move(steps), button](WindowHandle dialog) mutable {
            if (steps.empty()) return platform::PostCommand(dialog, button);
            const Step step = steps.front();
            steps.pop_front();
            step(dialog);
        };
    }
    static int FindItem(WindowHandle dialog, int list, const std::string& text) {
        for (int i = 0; i < platform::ItemCount(dialog, list); ++i) {
            if (platform::ItemText(dialog, list, i) == text) return i;
        }
        return -1;
    }
};

/// The configuration and the fountains' own files are written at the closing, from what
/// could be read at the opening.
bool IsWholeFileOfADialog(const std::string& name, const std::string& bytes) {
    if (name.ends_with(".ini")) {
        std::size_t lines = 0;
        for (const char c : bytes)
            lines += c == '\n' ? 1 : 0;
        constexpr std::size_t kHeadLines = 5;
        return lines == kHeadLines + ConfigurationTable().size() && bytes.ends_with('\n');
    }
    return name.ends_with(".mtrl") && bytes.size() == sizeof(Fountain) &&
           bytes.starts_with(kFountainMagic);
}

TEST_F(Dialogs, MainDialogOpensAndClosesAndItsFilesAreWhole) {
    const auto open = [&] {
        InMainDialog([](WindowHandle dialog) {
            const Sample sample = RenderSample(dialog, 100, 100);
            platform::FreeBlock(sample.Image);
        });
        return true;
    };
    MainEffect = 4;
    open();
    FailEverything({.kind = "main dialog",
                    .prepare =
                        [&] {
                            MainEffect = 4;
                            MainDelay = 9;
                        },
                    .run = open,
                    .told = {},
                    .writes = {},
                    .is_whole = IsWholeFileOfADialog});
}

TEST_F(Dialogs, StylesCanBeTriedInAMainDialogThatOpenedWithoutMemory) {
    for (const std::size_t first : {1u, 4u, 9u}) {
        platform::FailAllocation(first, true);
        InMainDialog([](WindowHandle dialog) {
            platform::FailAllocation(0);
            for (int style = 0; style < kStyleCount; ++style) {
                platform::SetSelection(dialog, kEffectList, style);
                ShowStyleControls(dialog, style);
                const Sample sample = RenderSample(dialog, 100, 100);
                platform::FreeBlock(sample.Image);
            }
        });
        platform::FailAllocation(0);
        EXPECT_EQ(platform::CurrentMemoryUse().live_blocks, 0u);
    }
}

class TextureDialogs : public Dialogs {
protected:
    static constexpr int kList = 102, kGroups = 103, kAdd = 104, kDelete = 105;

    TextureDialogs() { InitTextureItem(&item); }

    void PrepareGroups() const {
        std::snprintf(TextureGroupFile, sizeof TextureGroupFile, "%s", kDefaultTextureGroup);
        for (const std::string name : {kDefaultTextureGroup, "Other.FFT"}) {
            Erase(name);
            Erase(name + ".bak");
            TextureGroupWriter writer(File(name), 3);
            for (const char* texture : {"a", "b", "c"})
                writer.Add(texture, item);
            ASSERT_EQ(writer.Commit(), 1);
        }
    }
    FaultCase Case(const char* kind, std::deque<Step> steps) {
        return {.kind = kind,
                .prepare = [this] { PrepareGroups(); },
                .run =
                    [this, steps = std::move(steps)] {
                        Take(steps);
                        TextureItem edited = item;
                        return EditTexture(nullptr, &edited) == 1 && Messages().empty();
                    },
                .told = {"There has been an error importing the selected texture file. The file "
                         "may be damaged.",
                         "There has been an error adding your texture.",
                         "This file cannot be edited or overwritten.\n\nThe default texture set "
                         "cannot be modified. To edit this file, save it to a new name. Hold "
                         "down the Shift key and click on the + button.",
                         "The primary texture group cannot be deleted.", "Memory error",
                         "Error writing file"},
                .writes = {},
                .is_whole = nullptr};
    }
    static void ShiftClick(WindowHandle dialog, int button) {
        platform::HoldShift(true);
        platform::ClickControl(dialog, button);
        platform::HoldShift(false);
    }

    TextureItem item{};
};

TEST_F(TextureDialogs, OpenAndClose) {
    FailEverything(Case("texture dialog", {}));
}

TEST_F(TextureDialogs, AddedTextureIsInTheGroupOrTheGroupIsOld) {
    FaultCase fault_case = Case("texture dialog: add", {[](WindowHandle dialog) {
                                    platform::ChooseItem(dialog, kList, 1);
                                    platform::ClickControl(dialog, kAdd);
                                }});
    fault_case.writes = {kPluginFolder + kDefaultTextureGroup};
    FailEverything(fault_case);
}

TEST_F(TextureDialogs, OtherGroupIsNeverThatOfAnother) {
    FaultCase fault_case = Case("texture dialog: group", {[](WindowHandle dialog) {
                                    const int other = FindItem(dialog, kGroups, "Other");
                                    // Without a list of the folder there is no other group.
                                    if (other < 0) return;
                                    platform::ClickControl(dialog, kAdd);
                                    platform::ChooseItem(dialog, kGroups, other);
                                    platform::ClickControl(dialog, kAdd);
                                }});
    fault_case.changes = {kPluginFolder + "Other.FFT"};
    FailEverything(fault_case);
}

TEST_F(TextureDialogs, DeletedGroupIsInTheTrashOrStays) {
    FaultCase fault_case =
        Case("texture dialog: delete", {[](WindowHandle dialog) {
                 platform::ChooseItem(dialog, kList, 1);
                 std::snprintf(TextureGroupFile, sizeof TextureGroupFile, "Other.FFT");
                 ShiftClick(dialog, kDelete);
             }});
    fault_case.changes = {kPluginFolder + "Other.FFT", "Trash/files/Other.FFT"};
    const auto run = fault_case.run;
    fault_case.run = [&] {
        const bool is_done = run();
        EXPECT_NE(Contents().contains(kPluginFolder + "Other.FFT"),
                  Contents().contains("Trash/files/Other.FFT"));
        return is_done;
    };
    FailEverything(fault_case);
}

TEST_F(TextureDialogs, NewGroupIsWholeOrNotThere) {
    FaultCase fault_case =
        Case("texture dialog: new group", {[](WindowHandle dialog) {
                                               if (platform::ItemCount(dialog, kList) == 3)
                                                   ShiftClick(dialog, kAdd);
                                           },
                                           [](WindowHandle box) {
                                               if (platform::TemplateOf(box) == "9999")
                                                   platform::TypeText(box, 101, "New");
                                               platform::PostCommand(box, kOk);
                                           }});
    fault_case.changes = {kPluginFolder + "New.FFT"};
    FailEverything(fault_case);
}

class MatrixDialogs : public Dialogs {
protected:
    static constexpr int kDelete = 104, kGroups = 108;

    void PrepareGroups() const {
        std::snprintf(MatrixGroupFile, sizeof MatrixGroupFile, "%s", kDefaultMatrixGroup);
        for (const std::string name : {kDefaultMatrixGroup, "Other.MTX"}) {
            Erase(name);
            Erase(name + ".bak");
        }
        std::vector<platform::OwnedBlock> owners;
        std::vector<ImageHandle> elements;
        for (const ColorWord color : {1u, 2u, 3u}) {
            owners.emplace_back(ImageOf(9, std::vector<std::uint32_t>(81, color)));
            elements.push_back(owners.back().Get());
        }
        ASSERT_NE(WriteMatrixGroup(File(kDefaultMatrixGroup), elements), 0);
        ASSERT_NE(WriteMatrixGroup(File("Other.MTX"), std::span(elements).first(2)), 0);
    }
    /// Chooses the group that is not the current one. Where that is not listed or is
    /// refused, the dialog is cancelled and false returned.
    static bool ChooseOther(WindowHandle dialog) {
        const int other = FindItem(dialog, kGroups, "Other");
        if (other >= 0) platform::ChooseItem(dialog, kGroups, other);
        if (std::string(MatrixGroupFile).starts_with("Other")) return true;
        platform::ClickControl(dialog, kCancel);
        return false;
    }
    FaultCase Case(const char* kind, std::deque<Step> steps) {
        return {.kind = kind,
                .prepare = [this] { PrepareGroups(); },
                .run =
                    [this, steps = std::move(steps)] {
                        Take(steps);
                        MatrixTile tile{};
                        if (InitMatrixTile(&tile) == 0) {
                            ShowMessage(nullptr, "Memory error");
                            return false;
                        }
                        EditMatrixTile(nullptr, &tile);
                        platform::FreeBlock(tile.Image);
                        return Messages().empty();
                    },
                .told = {"There has been an error loading the matrix element file.",
                         "This file cannot be edited or overwritten.\n\nThe default matix set "
                         "cannot be modified. To edit this file, save it to a new name. Hold "
                         "down the Shift key and click on the + button.",
                         "The primary matrix group cannot be deleted.", "Memory error",
                         "Error writing file"},
                .writes = {},
                .is_whole = nullptr};
    }
};

TEST_F(MatrixDialogs, OpenAndClose) {
    FailEverything(Case("matrix dialog", {}));
}

TEST_F(MatrixDialogs, GroupWithoutADeletedElementIsOldOrNew) {
    FaultCase fault_case = Case("matrix dialog: element", {[](WindowHandle dialog) {
                                    platform::ChooseItem(dialog, kMatrixElementList, 1);
                                    platform::ClickControl(dialog, kDelete);
                                }});
    fault_case.changes = {kPluginFolder + kDefaultMatrixGroup};
    FailEverything(fault_case);
}

TEST_F(MatrixDialogs, OtherGroupIsNeverThatOfAnother) {
    FaultCase fault_case = Case("matrix dialog: group", {[](WindowHandle dialog) {
                                    platform::ChooseItem(dialog, kMatrixElementList, 1);
                                    platform::ClickControl(dialog, kDelete);
                                    if (!ChooseOther(dialog)) return;
                                    platform::ChooseItem(dialog, kMatrixElementList, 1);
                                    platform::ClickControl(dialog, kDelete);
                                }});
    fault_case.changes = {kPluginFolder + "Other.MTX"};
    FailEverything(fault_case);
}

TEST_F(MatrixDialogs, DeletedGroupIsInTheTrashOrStays) {
    FaultCase fault_case = Case("matrix dialog: delete", {[](WindowHandle dialog) {
                                    if (!ChooseOther(dialog)) return;
                                    platform::ChooseItem(dialog, kMatrixElementList, 1);
                                    platform::HoldShift(true);
                                    platform::ClickControl(dialog, kDelete);
                                    platform::HoldShift(false);
                                }});
    fault_case.changes = {kPluginFolder + "Other.MTX", "Trash/files/Other.MTX"};
    const auto run = fault_case.run;
    fault_case.run = [&] {
        const bool is_done = run();
        EXPECT_NE(Contents().contains(kPluginFolder + "Other.MTX"),
                  Contents().contains("Trash/files/Other.MTX"));
        return is_done;
    };
    FailEverything(fault_case);
}

class FountainLibraryDialogs : public Dialogs {
protected:
    FaultCase Case(const char* kind, const Step& step) {
        const std::string library = kPluginFolder + kFountainLibraryFile;
        return {.kind = kind,
                .prepare =
                    [this] {
                        Fountain fountain;
                        InitFountain(&fountain, FountainPreset::SevenColors);
                        platform::RemoveFile(FountainLibraryPath());
                        for (int i = 0; i < 3; ++i)
                            ASSERT_EQ(AppendToFountainLibrary(fountain), 1);
                    },
                .run =
                    [this, step] {
                        Take({step});
                        Fountain colors;
                        InitFountain(&colors, FountainPreset::Plain);
                        RunFountainLibraryDialog(nullptr, &colors);
                        return Messages().empty();
                    },
                .told = {"There has been an error loading the fountain library.",
                         "There has been an error updating the fountain library."},
                .writes = {library},
                .is_whole = nullptr};
    }
};

TEST_F(FountainLibraryDialogs, OpenAndClose) {
    FaultCase fault_case = Case(
        "library dialog", [](WindowHandle dialog) { platform::ClickControl(dialog, kCancel); });
    fault_case.writes = {};
    FailEverything(fault_case);
}

TEST_F(FountainLibraryDialogs, OkWritesTheLibraryOrTells) {
    FailEverything(Case("library dialog: OK", [](WindowHandle dialog) {
        platform::ClickControl(dialog, kDeleteEntryButton);
        platform::ClickControl(dialog, kOk);
    }));
}

TEST_F(FountainLibraryDialogs, OkRemovesAnEmptiedLibraryOrTells) {
    FailEverything(Case("library dialog: empty", [](WindowHandle dialog) {
        for (int i = 0; i < 3; ++i)
            platform::ClickControl(dialog, kDeleteEntryButton);
        platform::ClickControl(dialog, kOk);
    }));
}

TEST_F(Dialogs, GradientDialogEndsWithOk) {
    FailEverything({.kind = "gradient dialog",
                    .prepare = nullptr,
                    .run =
                        [&] {
                            Take({});
                            Gradient gradient{};
                            InitFountain(&gradient.Ramp, FountainPreset::OneGrey);
                            return EditGradient(nullptr, &gradient) == 1;
                        },
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

TEST_F(Dialogs, MarkerPositionDialogEndsWithOk) {
    FailEverything({.kind = "position dialog",
                    .prepare = nullptr,
                    .run =
                        [&] {
                            Take({});
                            int position = 7;
                            RunMarkerPositionDialog(nullptr, &position);
                            return position == 7;
                        },
                    .told = {},
                    .writes = {},
                    .is_whole = nullptr});
}

/// Makes a material button on the main dialog's template, and closes the dialog.
std::intptr_t MaterialProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t,
                                std::intptr_t) {
    if (message != platform::kMessageOpen) return 0;
    BindMaterialButton(dialog, kSampleBox, 0x4080C0);
    platform::EndDialog(dialog, 0);
    return 1;
}

TEST_F(Dialogs, MaterialButtonKeepsAWholeFile) {
    constexpr std::size_t kMaterialFileBytes = 1270;
    const auto open = [] {
        return platform::RunDialog(kMainDialogTemplate, nullptr, MaterialProcedure, nullptr) == 0;
    };
    ASSERT_TRUE(open());
    FailEverything({.kind = "material button",
                    .prepare = nullptr,
                    .run = open,
                    .told = {},
                    .writes = {},
                    .is_whole = [](const std::string&, const std::string& bytes) {
                        return bytes.size() == kMaterialFileBytes;
                    }});
}

}  // namespace

}  // namespace tess::test
