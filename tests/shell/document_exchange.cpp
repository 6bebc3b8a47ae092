// Documents as one build writes them and the other reads them:
//
//     document_exchange SEED    sets every plain control to a value drawn from the seed
//                               and prints the document, then the configuration
//     document_exchange FILE    reads the document FILE and prints the same
//
// Exit status 1 when the document does not read back to itself.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "controls/hexadecimal.h"
#include "controls/spinner.h"
#include "fills/matrix_tile.h"
#include "platform/files.h"
#include "platform/headless_user.h"
#include "runtime/random.h"
#include "shell/configuration.h"
#include "shell/control_contract.h"
#include "shell/document.h"
#include "shell/main_dialog.h"
#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

struct Task {
    std::string_view word;
    std::string folder;
    bool is_done = false;
    int status = 1;
};

std::uint32_t Draw(std::uint32_t bound) {
    const auto high = static_cast<std::uint32_t>(runtime::rand());
    return (high << 15 | static_cast<std::uint32_t>(runtime::rand())) % bound;
}

std::uint32_t DrawFor(platform::WindowHandle dialog, int id, std::string_view tag) {
    if (tag == kColorButtonTag) return Draw(0x1000000);
    if (tag == kCheckBoxTag || tag == kScroll2Tag || tag == kScrollHvTag) return Draw(2);
    if (tag == kScroll4Tag) return Draw(4);
    if (tag == kShadowDirectionTag) return Draw(8);
    if (tag == kComboBoxTag) {
        return Draw(static_cast<std::uint32_t>(std::max(platform::ItemCount(dialog, id), 1)));
    }
    SpinnerRange range{0, 100, 0};
    ReadSpinnerRange(platform::ControlText(dialog, id + kCompanionOffset), &range);
    return static_cast<std::uint32_t>(range.minimum) +
           Draw(static_cast<std::uint32_t>(range.maximum - range.minimum + 1));
}

/// A matrix tile as a document has it, whose file is no path of this system: a tile's
/// first one names the user's folder.
std::string TileDigits() {
    MatrixTile tile{};
    SetMatrixTilePath(&tile, "tiles.mtx");
    tile.Element = static_cast<std::int32_t>(Draw(100));
    return Hexadecimal({reinterpret_cast<const std::uint8_t*>(&tile), sizeof tile});
}

void SetAll(platform::WindowHandle dialog) {
    for (const platform::WindowHandle control : platform::Children(dialog)) {
        const std::string_view tag = platform::ControlTag(control);
        if (tag.empty() || tag == kFountainTag || tag == kMaterialTag) continue;
        const int id = platform::ControlId(control);
        const std::string line =
            std::string(tag) + std::to_string(id) + "=" +
            (tag == kMatrixTag ? TileDigits() : std::to_string(DrawFor(dialog, id, tag)));
        platform::SendToWindow(control, LoadControl, 0,
                               reinterpret_cast<std::intptr_t>(line.c_str()));
    }
}

/// The document as it stands, without the line ends of Windows.
std::string Written(platform::WindowHandle dialog, const std::string& path) {
    if (WriteDocument(dialog, path.c_str()) == 0) return "";
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    std::erase(text, '\r');
    return text;
}

void PrintPlainConfiguration() {
    for (const ConfigKey& key : ConfigurationTable()) {
        if (key.IsNumber()) {
            std::printf("%s=%u\n", key.Name, *static_cast<const std::uint32_t*>(key.Value));
        }
    }
}

/// Returns the exit status.
int Exchange(platform::WindowHandle dialog, const Task& task) {
    const bool is_seed = task.word.find_first_not_of("0123456789") == std::string_view::npos;
    if (is_seed) {
        runtime::srand(static_cast<std::uint32_t>(std::atoi(std::string(task.word).c_str())));
        SetAll(dialog);
    } else if (ReadDocument(dialog, std::string(task.word).c_str()) == 0) {
        return 1;
    }
    const std::string path = task.folder + "/written.qv1";
    const std::string first = Written(dialog, path);
    if (first.empty() || ReadDocument(dialog, path.c_str()) == 0) return 1;
    if (Written(dialog, path) != first) return 1;
    std::fputs(first.c_str(), stdout);
    if (is_seed) PrintPlainConfiguration();
    return 0;
}

void ActAsUser(platform::WindowHandle dialog, void* context) {
    auto* task = static_cast<Task*>(context);
    if (platform::TemplateOf(dialog) == "1000" && !task->is_done) {
        task->is_done = true;
        task->status = Exchange(dialog, *task);
    }
    // The button that closes a message box as well as the one that cancels the dialog.
    platform::PostCommand(dialog, platform::TemplateOf(dialog) == "1000" ? 2 : 1);
}

std::int64_t AnswerNothing(TaskRecord*, std::int64_t, std::int64_t, std::int64_t) {
    return 0;
}

}  // namespace
}  // namespace tess

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("usage: document_exchange SEED|FILE\n", stderr);
        return 2;
    }
    const tess::test::ScratchFolder folder;
    platform::SetUserFolder(folder.Path());
    tess::Task task{words[1], folder.Path()};
    platform::SetHeadlessUser(tess::ActAsUser, &task);
    constexpr std::uint32_t kFlags = tess::HostDelayHundredths | tess::HostTrueColor;
    const tess::HostServices services{
        sizeof(tess::HostServices), tess::kHostVersion, 0, 0, tess::AnswerNothing, 0, kFlags, 0};
    tess::RunMainDialog(nullptr, &services);
    return task.status;
}
