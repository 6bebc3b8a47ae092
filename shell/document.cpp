// A document is text: a comment line that names the program and its maker, by which
// it is known, the comment ";Start of document", one line a control, and the comment
// ";End of document". A control's line is its tag, its id, "=" and its value:
//
//     SPNBTN114=128
//
// Every control writes its own line and reads its own; here they are only asked.
#include "shell/document.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "controls/control_line.h"
#include "platform/files.h"
#include "platform/text_lines.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::WindowHandle;

constexpr char kProgram[] = "Tessellomatics #1 Plugin";
constexpr char kMaker[] = "Quorvenstadtholme";
constexpr char kCannotCreate[] = "There has been an error creating the requested file.";
constexpr char kCannotOpen[] = "There has been an error opening the requested file.";
constexpr char kDamaged[] = "This file has been damaged.";

/// A line of up to 8192 bytes; a longer one is read in pieces.
struct LineBuffer {
    char text[8192 + 1];
};

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

int ReadLines(WindowHandle dialog, platform::TextLines lines) {
    LineBuffer line;
    // An empty file counts as a correct one.
    if (lines.Next(line.text) && !IsDocumentHeader(line.text)) {
        ShowMessage(dialog, kDamaged);
        return 0;
    }
    while (lines.Next(line.text))
        ApplyLine(dialog, line.text);
    return 1;
}

}  // namespace

int ReadDocument(WindowHandle dialog, const char* path) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) {
        ShowMessage(dialog, kCannotOpen);
        return 0;
    }
    const int is_document = ReadLines(dialog, platform::TextLines(stream));
    // A folder can be opened on some systems, but not read.
    const bool is_whole = std::ferror(stream) == 0;
    std::fclose(stream);
    if (is_document != 0) platform::SendToWindow(dialog, ShowStyle, 0, 0);
    if (!is_whole) ShowMessage(dialog, kCannotOpen);
    return is_document != 0 && is_whole ? 1 : 0;
}

int ReadDocumentText(WindowHandle dialog, std::string_view text) {
    if (ReadLines(dialog, platform::TextLines(text)) == 0) return 0;
    platform::SendToWindow(dialog, ShowStyle, 0, 0);
    return 1;
}

bool IsDocumentHeader(const char* line) {
    return std::strstr(line, kProgram) != nullptr && std::strstr(line, kMaker) != nullptr;
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
        std::fprintf(file.Stream(), "%s\n", kDocumentEnd);
        written = file.Commit() != 0;
    }
    if (!written) ShowMessage(dialog, kCannotCreate);
    return written ? 1 : 0;
}

}  // namespace tess
