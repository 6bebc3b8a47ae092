// Which file an output is, by the ending of its name.
#pragma once

#include <string>

#include "host/animation.h"
#include "programs/cli/request.h"

namespace tess {

enum class OutputFormat { Unknown, Gif, WebP, Png, Folder };

/// A name that ends in "/" or ".bmp", has no ending and is not there, or is an existing
/// folder is a folder of frames; "-" is a GIF on standard output.
[[nodiscard]] OutputFormat FormatOf(const std::string& path);

/// Whether an animation can be written to the request's output and folder of frames, found
/// out before the work is done; one of them must be named. Returns kDone, or another exit
/// status after telling the user.
[[nodiscard]] int CheckOutputs(const Request& request);
/// The same for a single picture, .png or .bmp, or "-" for a PNG on standard output; "" is an
/// output that is not named.
[[nodiscard]] int CheckPictureOutput(const std::string& path);
/// The same for a document, .qv1.
[[nodiscard]] int CheckDocumentOutput(const std::string& path);
/// The same for a fountain or material: a picture, "-", or a control's file, .mtrl.
[[nodiscard]] int CheckRecordOutput(const std::string& path);
/// Whether the ending is that of a control's file.
[[nodiscard]] bool IsRecordOutput(const std::string& path);

/// Writes to the request's output and folder of frames, where it names them. Returns the
/// exit status, after telling the user.
[[nodiscard]] int WriteOutputs(const Animation& animation, const Request& request);
/// Tells, unless the request is a quiet one, that delays of the GIF at `path` are 0 that
/// are shorter than it can say.
void TellLostDelay(const Request& request, const std::string& path);

/// Writes a single picture.
[[nodiscard]] int WritePicture(ImageHandle image, const std::string& path);

}  // namespace tess
