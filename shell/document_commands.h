// The commands of the "Open/Save" button: documents by name.
#pragma once

#include "platform/dialog.h"
#include "shell/host_interface.h"

namespace tess {

/// Commands that are posted, not pressed.
enum DocumentCommand : int {
    kOpenCommand = 37,
    kSaveCommand = 38,
    kSaveAsCommand = 39,
};

/// Pops up the menu of the three commands.
void ShowDocumentMenu(platform::WindowHandle dialog);

/// Asks the host for the size of file dialogs, which is kept within the screen.
void AskFileDialogSize(const HostServices* host);

/// Each lets the user name a file where the document has no name of its own. A
/// document that was opened or saved is CurrentFileName from then on; a failure is
/// told, and leaves all as it was.
void OpenDocument(platform::WindowHandle dialog);
void SaveDocument(platform::WindowHandle dialog);
void SaveDocumentAs(platform::WindowHandle dialog);

/// True for the name that a document has before it is saved first, in any folder.
[[nodiscard]] bool IsUntitled(const char* path);

}  // namespace tess
