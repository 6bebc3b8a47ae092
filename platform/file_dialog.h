// The dialogs in which the user names a file to open or to save. On Windows these
// are the system's; natively a stand-in for the user answers.
#pragma once

#include <span>
#include <string>

#include "platform/dialog.h"
#include "platform/screen.h"

namespace platform {

/// One choice of the kinds of files that are listed.
struct FileFilter {
    const char* Text;     ///< "QV1 files"
    const char* Pattern;  ///< "*.QV1"
};

enum class FileDialogKind {
    Open,  ///< file and folder must exist
    Save   ///< asks before it names a file that exists
};

struct FileDialogRequest {
    WindowHandle Owner;
    FileDialogKind Kind;
    std::span<const FileFilter> Filters;
    const char* DefaultExtension;  ///< without the point
    std::string Folder;            ///< where to start; empty for where the system likes
    /// The dialog's size, in and out: it opens in this size from kLeastKeptSize on, else
    /// in its own, and leaves here the size that the user gave it.
    PixelSize* Size;
    /// Called once with the dialog as it opens; may be null.
    void (*Prepare)(WindowHandle dialog);
};

/// Runs the dialog. Returns the path, empty when the user cancelled. The working
/// folder stays.
[[nodiscard]] std::string ChooseFile(const FileDialogRequest& request);

inline constexpr int kLeastKeptSize = 128;  ///< pixels, each way

/// Where a dialog of `size` opens that is to have the size `kept` if that is large
/// enough, and the middle of the screen in any case.
struct FileDialogBox {
    int Left, Top;
    PixelSize Size;
    bool operator==(const FileDialogBox&) const = default;
};
[[nodiscard]] FileDialogBox PlaceFileDialog(PixelSize kept, PixelSize size, PixelSize screen);

/// A stand-in for the user, in both builds: called in place of the dialog, returns the
/// path, or empty to cancel.
using FileAnswer = std::string (*)(const FileDialogRequest& request, void* context);

/// Null: none. Without one the native build's dialogs are cancelled, and on Windows
/// the real user is asked.
void SetFileAnswer(FileAnswer answer, void* context);

}  // namespace platform
