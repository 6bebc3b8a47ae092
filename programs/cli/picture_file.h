// Pictures that the user brings: PNG, BMP and PPM files, told apart by how they
// begin.
#pragma once

#include <string>

#include "pipeline/image_buffers.h"

namespace tess {

/// Returns the picture at 24 bits, owned by the caller; or null, and what is wrong
/// as the end of a sentence that begins with the path. Transparent places show
/// white.
[[nodiscard]] ImageHandle ReadPicture(const std::string& path, std::string* error);

}  // namespace tess
