// Judging pictures that come from outside: of a file, of the host.
#pragma once

#include <cstddef>

#include "pipeline/image_buffers.h"

namespace tess {

/// Whether `bytes` bytes at `block` are a picture that every operation may read: a
/// plain head, at least one pixel, a bit count that is known, a whole colour table,
/// and rows that are all there. May be null.
[[nodiscard]] bool IsWholePicture(const void* block, std::size_t bytes);

/// The same of a block by its handle, which may be null.
[[nodiscard]] bool IsWholePicture(ImageHandle image);

}  // namespace tess
