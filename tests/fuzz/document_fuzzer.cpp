// Any text as a document, read into a dialog with controls of every kind: judged first as the
// command line does, then read. What was read is a state that is written and read back as it
// is; the records that controls own are then drawn and worked on with the mouse, as a user
// would.
//
// Each input has a dialog of its own, with the panels of a few styles and, where the main
// dialog has its sample, a material button.
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "controls/current_host.h"
#include "fills/fountain_control.h"
#include "fills/material_control.h"
#include "fills/matrix_control.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "programs/cli/document_file.h"
#include "shell/document.h"
#include "shell/main_dialog.h"
#include "shell/style_table.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;
using platform::WindowHandle;

constexpr int kBubbles = 1, kFountain = 4, kMural = 10;
constexpr int kFountainButton = 270, kTileButton = 362, kMaterialButton = kSampleBox;

/// Header and end, which few inputs would come to have by themselves.
constexpr char kHeader[] =
    ";This is a document created by Tessellomatics #1 Plugin by Quorvenstadtholme\n";

/// The lines of all controls.
std::string Written(WindowHandle dialog) {
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* stream = open_memstream(&text, &length);
    for (const WindowHandle control : platform::Children(dialog))
        platform::SendToWindow(control, SaveControl, 0, reinterpret_cast<std::intptr_t>(stream));
    std::fclose(stream);
    std::string written = kHeader + std::string(text, length);
    std::free(text);
    return written;
}

void Mouse(WindowHandle control, std::uint32_t message, int x) {
    constexpr int kAmongTheMarkers = 6;
    platform::SendToWindow(control, message, 0, platform::MousePlace(x, kAmongTheMarkers));
}

/// Each step draws the button anew, which takes longer than most inputs, so a fountain
/// that is still the control's own is left alone.
void WorkOnFountain(WindowHandle button) {
    Fountain fountain, own;
    InitFountain(&own, FountainPreset::SevenColors);
    if (ReadFountainButton(button, &fountain) == 0 ||
        std::memcmp(&fountain.Count, &own.Count,
                    offsetof(Fountain, Selected) - offsetof(Fountain, Count)) == 0)
        return;
    platform::SendToWindow(button, AddFountainMarker, 77, 0);
    Mouse(button, platform::kMessageLeftButtonDown, 15);
    Mouse(button, platform::kMessageMouseMove, 30);
    Mouse(button, platform::kMessageLeftButtonUp, 30);
    platform::SendToWindow(button, DeleteFountainMarker, 0, 0);
}

void DrawRecords(WindowHandle dialog) {
    fuzz::UsePicture(RenderMatrixFace(platform::Control(dialog, kTileButton)).Picture);
    FreeMaterial(ReadMaterialButton(platform::Control(dialog, kMaterialButton)));
}

void Judge(WindowHandle dialog, const std::string& document) {
    static const fuzz::InputFile file;
    file.Put(reinterpret_cast<const std::uint8_t*>(document.data()), document.size());
    const DocumentFile judged = CheckDocumentFile(dialog, file.Path());
    fuzz::Expect(judged.Fault.empty() || judged.Fault.starts_with(file.Path()),
                 "a fault names the file");
}

void ReadInput(WindowHandle dialog, std::string_view input) {
    // Writing all lines and reading them takes longer than most inputs.
    constexpr std::size_t kSeldom = 8;
    const std::string whole = kHeader + std::string(input);
    Judge(dialog, whole);
    static_cast<void>(ReadDocumentText(dialog, input));
    fuzz::Expect(ReadDocumentText(dialog, whole) == 1, "a document with its header is read");
    if (input.size() % kSeldom == 0) {
        const std::string written = Written(dialog);
        fuzz::Expect(ReadDocumentText(dialog, written) == 1, "what was written is a document");
        fuzz::Expect(Written(dialog) == written, "what was written reads back");
    }
    DrawRecords(dialog);
    WorkOnFountain(platform::Control(dialog, kFountainButton));
}

void MakePanel(int style, WindowHandle dialog) {
    StyleContext context{};
    context.Dialog = dialog;
    fuzz::Expect(PanelInit(*StyleTable[style], &context) == 1, "the panel is made");
}

/// Most of the time goes into what is drawn, so little is.
void MakeControls(WindowHandle dialog) {
    constexpr std::size_t kNoPicture = 1024;                     // only a fountain's record
    constexpr std::size_t kLittleMemory = std::size_t{4} << 20;  // for no large mesh
    platform::SetMemoryLimit(kNoPicture);
    MakePanel(kFountain, dialog);
    platform::SetMemoryLimit(kLittleMemory);
    MakePanel(kBubbles, dialog);
    MakePanel(kMural, dialog);
    platform::SetControlSize(dialog, kMaterialButton, 24, 10);
    BindMaterialButton(dialog, kMaterialButton, 0x4080C0);
    platform::SetControlSize(dialog, kTileButton, 12, 9);
    platform::SetControlSize(dialog, kFountainButton, 40, 20);
}

std::intptr_t Handle(WindowHandle dialog, std::uint32_t message, std::uintptr_t, std::intptr_t l) {
    if (message != platform::kMessageOpen) return 0;
    MakeControls(dialog);
    ReadInput(dialog, *reinterpret_cast<const std::string_view*>(l));
    return 1;
}

/// The colour chooser is left with OK.
std::int64_t AnswerHost(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 1;
}

/// Once the dialog has nothing left to do it is closed, and so is each message before.
void Close(WindowHandle dialog, void*) {
    if (platform::TemplateOf(dialog) == "1000") {
        platform::EndDialog(dialog, 1);
    } else {
        platform::PostCommand(dialog, 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    platform::SetUserFolder("/nonexistent");
    static const HostServices services{
        sizeof(HostServices), kHostVersion, 0, 0, AnswerHost, 0, HostDelayHundredths, 0};
    CurrentHost = &services;
    platform::SetHeadlessUser(Close, nullptr);
    std::string_view input(reinterpret_cast<const char*>(bytes), count);
    platform::RunDialog(kMainDialogTemplate, nullptr, Handle, &input);
    fuzz::ExpectNoBlocks();
    return 0;
}
