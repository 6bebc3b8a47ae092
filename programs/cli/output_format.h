// Which file an output is, by the ending of its name.
#pragma once

#include <string>

#include "host/animation.h"

namespace tess {

enum class OutputFormat { Unknown, Gif, WebP, Png, Folder };

/// A name that ends in "/" or ".bmp", has no ending, or is an existing folder is a
/// folder of frames.
[[nodiscard]] OutputFormat FormatOf(const std::string& path);

/// Whether an animation can be written to `path`, found out before the work is
/// done. Returns kDone, or another exit status after telling the user.
[[nodiscard]] int CheckOutput(const std::string& path);
/// The same for a folder of frames.
[[nodiscard]] int CheckFolder(const std::string& path);
/// The same for a single picture, .png or .bmp.
[[nodiscard]] int CheckPictureOutput(const std::string& path);
/// The same for a document, .qv1.
[[nodiscard]] int CheckDocumentOutput(const std::string& path);
/// The same for a fountain or material: a picture, or a control's file, .mtrl.
[[nodiscard]] int CheckRecordOutput(const std::string& path);
/// Whether the ending is that of a control's file.
[[nodiscard]] bool IsRecordOutput(const std::string& path);

/// Writes to `output` and, unless that is empty, `frames_folder`. Returns the exit
/// status, after telling the user.
[[nodiscard]] int WriteOutputs(const Animation& animation, const std::string& output,
                               const std::string& frames_folder);
/// Writes a single picture.
[[nodiscard]] int WritePicture(ImageHandle image, const std::string& path);

}  // namespace tess
