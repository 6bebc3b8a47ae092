#include "shell/document.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "controls/control_line.h"
#include "platform/files.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr char kProgram[] = "Tessellomatics #1 Plugin";
constexpr char kMaker[] = "Quorvenstadtholme";
constexpr char kCannotCreate[] = "There has been an error creating the requested file.";
constexpr char kCannotOpen[] = "There has been an error opening the requested file.";
constexpr char kDamaged[] = "This file has been damaged.";

struct LineBuffer {
    char text[8192];
};

bool ReadLine(std::FILE* stream, LineBuffer* line) {
    return std::fgets(line->text, sizeof line->text, stream) != nullptr;
}

/// Gives a line to the control whose id it bears. Lines for unknown ids, and those
/// that their control refuses, are passed over.
void ApplyLine(WindowHandle dialog, char* line) {
    if (line[0] == ';') return;
    line[std::strcspn(line, "\n")] = '\0';
    line[std::strcspn(line, "\r")] = '\0';
    const int id = FindLineId(line);
    if (id <= 0) return;
    const WindowHandle control = platform::Control(dialog, id);
    if (control == nullptr) return;
    platform::SendToWindow(control, LoadControl, 0, reinterpret_cast<std::intptr_t>(line));
}

}  // namespace

int ReadDocument(WindowHandle dialog, const char* path) {
    std::FILE* stream = platform::OpenFile(path, "r");
    if (stream == nullptr) {
        ShowMessage(dialog, kCannotOpen);
        return 0;
    }
    LineBuffer line;
    // An empty file counts as a correct one.
    if (ReadLine(stream, &line) && (std::strstr(line.text, kProgram) == nullptr ||
                                    std::strstr(line.text, kMaker) == nullptr)) {
        std::fclose(stream);
        ShowMessage(dialog, kDamaged);
        return 0;
    }
    while (ReadLine(stream, &line))
        ApplyLine(dialog, line.text);
    std::fclose(stream);
    platform::SendToWindow(dialog, ShowStyle, 0, 0);
    return 1;
}

int WriteDocument(WindowHandle dialog, const char* path) {
    platform::NewFile file(path, platform::FileMode::Text);
    bool written = static_cast<bool>(file);
    if (written) {
        std::fprintf(file.Stream(),
                     ";This is a document created by %s by %s - do not edit.\n"
                     ";Start of document\n",
                     kProgram, kMaker);
        for (const WindowHandle control : platform::Children(dialog)) {
            platform::SendToWindow(control, SaveControl, 0,
                                   reinterpret_cast<std::intptr_t>(file.Stream()));
        }
        std::fputs(";End of document\n", file.Stream());
        written = file.Commit() != 0;
    }
    if (!written) ShowMessage(dialog, kCannotCreate);
    return written ? 1 : 0;
}

}  // namespace tess
