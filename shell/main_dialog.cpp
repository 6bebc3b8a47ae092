#include "shell/main_dialog.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "controls/current_host.h"
#include "controls/help.h"
#include "controls/hexadecimal.h"
#include "controls/skinned_button.h"
#include "controls/spinner.h"
#include "fills/fountain.h"
#include "pipeline/build_driver.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/resources.h"
#include "shell/about_dialog.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/document_commands.h"
#include "shell/logo.h"
#include "shell/style_table.h"
#include "shell/value_controls.h"

namespace tess {

namespace {

using platform::Notification;
using platform::WindowHandle;

constexpr char kPaletteNames[] =
    "Black and white;Sixteen-color Windows;32-color orthogonal;64-color orthogonal;"
    "128-color orthogonal;216-color safe;256-color orthogonal;256-color with gray;"
    "256 gray levels";

/// The state of the one check box without a key: it opens as checked.
std::uint32_t custom_palette = 1;

bool IsPanelId(int id) {
    return (id >= 100 && id <= 1198) || (id >= 10100 && id <= 11198);
}

/// The selected style, held in the table: below it counts as 0.
int SelectedStyle(WindowHandle dialog) {
    return std::clamp(platform::Selection(dialog, kEffectList), 0, kStyleCount - 1);
}

bool HostHas(std::uint32_t flag) {
    return (CurrentHost->HostFlags & flag) != 0;
}

void ForbidCheckBox(WindowHandle dialog, int id) {
    platform::SetChecked(dialog, id, false);
    platform::EnableControl(dialog, id, false);
}

void BindOutputSettings(WindowHandle dialog) {
    custom_palette = 1;
    BindCheckBox(dialog, kTrueColorBox, &Truecolour);
    BindCheckBox(dialog, kDitherBox, &MainDither);
    BindCheckBox(dialog, kCustomPaletteBox, &custom_palette);
    BindCheckBox(dialog, kSupercompressBox, &MainSupercompress);
    BindCheckBox(dialog, kCommentBox, &AddDescriptiveCommentBlock);
    BindCheckBox(dialog, kMaskBackgroundBox, &MainMaskBackground);
    BindSpinner(dialog, kDelayEdit, &MainDelay);
    BindChoiceList(dialog, kPaletteList, kPaletteNames, &MainPalette);
}

void SetDelay(WindowHandle dialog, std::uint32_t delay) {
    MainDelay = delay;
    platform::SetControlNumber(dialog, kDelayEdit, delay, false);
}

/// Suits the delay to the host's unit. The up-down's arrows still run to 1000;
/// the caption holds the limit that GetSpinnerValue keeps.
void ApplyDelayUnit(WindowHandle dialog, bool reset) {
    constexpr int kUpDown = kDelayEdit + kCompanionOffset;
    if (HostHas(HostDelayHundredths)) {
        platform::SetControlText(dialog, kUpDown, "1,25,4");
        if (reset) SetDelay(dialog, 4);
        return;
    }
    platform::SetControlText(dialog, kUpDown, "1,250,40");
    ForbidCheckBox(dialog, kSupercompressBox);
    if (reset) {
        SetDelay(dialog, 10);
        Truecolour = 1;
        if (HostHas(HostTrueColor)) platform::SetChecked(dialog, kTrueColorBox, true);
    }
}

/// Adds every style to the effect list and its panel to the dialog.
int AddStyles(WindowHandle dialog) {
    platform::ClearItems(dialog, kEffectList);
    for (const StyleEntry* style : StyleTable) {
        platform::AddItem(dialog, kEffectList, style->Name);
        StyleContext context{};
        context.Dialog = dialog;
        if (PanelInit(*style, &context) == 0) return 0;
    }
    return 1;
}

/// Overwrites five fountain controls with the stored records that bear their numbers.
/// The stored records bear names, so none is found, and the controls stay as they are:
/// that is meant, since each has started from its own default record.
void ResetFountains(WindowHandle dialog) {
    for (const int id : {270, 290, 306, 451, 496}) {
        const auto record = platform::FindData(id);
        if (record.size() != sizeof(Fountain)) continue;
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(record.data());
        const std::string line =
            kFountainTag + std::to_string(id) + "=" + Hexadecimal({bytes, record.size()});
        platform::SendToWindow(platform::Control(dialog, id), LoadControl, 0,
                               reinterpret_cast<std::intptr_t>(line.c_str()));
        platform::RepaintControl(dialog, id);
        platform::PostToWindow(dialog, RefreshSample, 0, 0);
    }
}

void CloseWithMessage(WindowHandle dialog, const char* text) {
    ShowMessage(dialog, text);
    platform::EndDialog(dialog, 0);
}

void OpenMainDialog(WindowHandle dialog, const HostServices* services) {
    CurrentHost = services;
    SkinButtons = services->SkinButtons;
    constexpr int kSkinnedButtons[] = {kBuildButton, kCancelButton,   kHelpButton,   kAboutButton,
                                       kTestButton,  kOpenSaveButton, kPreviewButton};
    for (const int button : kSkinnedButtons)
        SkinButton(dialog, button);
    ReadConfiguration();
    if (!HostHas(HostTrueColor)) {
        Truecolour = 0;
        ForbidCheckBox(dialog, kTrueColorBox);
    }
    if (services->HostCall == nullptr) return CloseWithMessage(dialog, "Internal error");
    const bool reset = platform::IsShiftHeld();
    if (reset) {
        std::snprintf(CurrentFileName, sizeof CurrentFileName, "%suntitled.qv1",
                      platform::DocumentsFolder().c_str());
    }
    BindOutputSettings(dialog);
    ApplyDelayUnit(dialog, reset);
    if (AddStyles(dialog) == 0) {
        return CloseWithMessage(dialog, "This plugin could not be initialized");
    }
    if (FirstRun != 0 || reset) ResetFountains(dialog);
    FirstRun = 0;
    BindChoiceList(dialog, kEffectList, nullptr, &MainEffect);
    platform::FocusControl(dialog, kBuildButton);
    AskFileDialogSize(services);
    platform::PostCommand(dialog, kCustomPaletteBox);
    platform::SetTitle(dialog, kProgramName);
    platform::CenterOnScreen(dialog);
    platform::PostToWindow(dialog, ShowStyle, 0, 0);
}

/// Tells the host of a pressed button and lets it be seen released before the work
/// that was posted begins.
void PressCommandButton(WindowHandle dialog, int button, int command) {
    platform::PostCommand(dialog, command);
    CallHost(CurrentHost, nullptr, HostOp::ButtonPressed, 0, std::int64_t{0});
    platform::UpdateWindow(platform::Control(dialog, button));
}

void RunBuild(WindowHandle dialog, BuildMode mode) {
    BuildAnimation(dialog, CurrentHost, mode);
    if (mode == BuildMode::Build) {
        platform::EndDialog(dialog, 1);
    } else {
        platform::UpdateWindow(dialog);
    }
}

void SelectEffect(WindowHandle dialog) {
    const int style = platform::Selection(dialog, kEffectList);
    if (static_cast<std::uint32_t>(style) == MainEffect) return;
    ShowStyleControls(dialog, SelectedStyle(dialog));
    MainEffect = static_cast<std::uint32_t>(style);
    platform::RepaintControl(dialog, kSampleBox);
}

void UpdateControl(WindowHandle dialog, int id, Notification notification) {
    if (!platform::IsWindowVisible(dialog)) return;
    if (UpdateBinding(dialog, id, notification) && id >= kFirstSampleControl) {
        platform::RepaintControl(dialog, kSampleBox);
    }
}

void OnCommand(WindowHandle dialog, int id, Notification notification) {
    const bool list_closed = notification == Notification::ComboClosed;
    switch (id) {
        case kBuildButton:
            return PressCommandButton(dialog, id, kBuildCommand);
        case kTestButton:
            return PressCommandButton(dialog, id, kTestCommand);
        case kPreviewButton:
            return PressCommandButton(dialog, id, kPreviewCommand);
        case kBuildCommand:
            return RunBuild(dialog, BuildMode::Build);
        case kTestCommand:
            return RunBuild(dialog, BuildMode::Test);
        case kPreviewCommand:
            return RunBuild(dialog, BuildMode::Preview);
        case kCancelButton:
            platform::EndDialog(dialog, 0);
            return;
        case kHelpButton:
            return ShowHelp(dialog, "PREFACE");
        case kAboutButton:
            return RunAbout(dialog);
        case kOpenSaveButton:
            return ShowDocumentMenu(dialog);
        case kOpenCommand:
            return OpenDocument(dialog);
        case kSaveCommand:
            return SaveDocument(dialog);
        case kSaveAsCommand:
            return SaveDocumentAs(dialog);
        case kPaletteList:
            if (list_closed) {
                MainPalette = static_cast<std::uint32_t>(
                    std::max(platform::Selection(dialog, kPaletteList), 0));
            }
            return;
        case kCustomPaletteBox:
            platform::EnableControl(dialog, kPaletteList,
                                    !platform::IsChecked(dialog, kCustomPaletteBox));
            return;
        case kEffectList:
            if (list_closed) SelectEffect(dialog);
            return;
        default:
            return UpdateControl(dialog, id, notification);
    }
}

std::intptr_t MainDialogProcedure(WindowHandle dialog, std::uint32_t message, std::uintptr_t w,
                                  std::intptr_t l) {
    StepLogo(dialog, kLogo, w);
    switch (message) {
        case platform::kMessageOpen:
            OpenMainDialog(dialog, reinterpret_cast<const HostServices*>(l));
            return 0;  // the focus has been set
        case platform::kMessageCommand:
            OnCommand(dialog, platform::CommandId(w), platform::CommandNotification(w));
            return 1;
        case ShowStyle:
            ShowStyleControls(dialog, SelectedStyle(dialog));
            return 1;
        case RefreshSample:
            platform::RepaintControl(dialog, kSampleBox);
            return 1;
        case platform::kMessageDestroy:
            WriteConfiguration();
            return 1;
        default:
            return 0;
    }
}

}  // namespace

int RunMainDialog(WindowHandle owner, const HostServices* services) {
    return platform::RunDialog(kMainDialogTemplate, owner, MainDialogProcedure,
                               const_cast<HostServices*>(services)) == 1
               ? 1
               : 0;
}

void ShowStyleControls(WindowHandle dialog, int style) {
    for (const WindowHandle control : platform::Children(dialog)) {
        const int id = platform::ControlId(control);
        if (IsPanelId(id)) platform::ShowControl(dialog, id, false);
    }
    for (const int id : ControlList(*StyleTable[style]))
        platform::ShowControl(dialog, id, true);
}

ColorWord MarginColor(ColorWord background) {
    return background == kNoBackground ? MakeColor(255, 255, 255) : background;
}

Sample RenderSample(WindowHandle dialog, int width, int height) {
    const StyleEntry& style = *StyleTable[SelectedStyle(dialog)];
    StyleContext context{};
    context.Dialog = dialog;
    context.SampleWidth = width;
    context.SampleHeight = height;
    Sample sample{nullptr, 0, 0, MarginColor(BackgroundQuery(style, dialog, 0))};
    if (style.Test(&context) == 0) return sample;
    platform::OwnedBlock picture(context.Result);
    const LockedImage image(picture.Get());
    if (!image) return sample;
    sample.Image = picture.Release();
    sample.OffsetX = (width - image->Width) / 2;
    sample.OffsetY = (height - image->Height) / 2;
    char size[64];
    std::snprintf(size, sizeof size, "%d x %d pixels", image->Width, image->Height);
    platform::SetControlText(dialog, kSizeLine, size);
    return sample;
}

}  // namespace tess
