// Documents as files to be judged: read more strictly than the dialog reads them,
// which passes over what it does not know and holds every number in its range.
#pragma once

#include <string>
#include <vector>

#include "platform/dialog.h"

namespace tess {

/// One control's line.
struct DocumentLine {
    int Number;  ///< in the file, from 1
    std::string Tag;
    int Id;
    std::string Value;
};

struct DocumentFile {
    std::vector<DocumentLine> Lines;
    std::string Fault;  ///< what is wrong with the file, as "PATH: ...", empty when nothing is
};

/// Reads the document at `path` and holds each line against its control in `dialog`,
/// the open main dialog.
[[nodiscard]] DocumentFile CheckDocumentFile(platform::WindowHandle dialog,
                                             const std::string& path);

}  // namespace tess
