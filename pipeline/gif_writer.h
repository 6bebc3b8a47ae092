// The Preview's files: a GIF89a animation and the page that shows it as its
// background.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "pipeline/image_buffers.h"

namespace tess {

/// Creates "preview.html" and "preview.gif" in the plug-in's per-user folder, over
/// older ones, and writes the GIF's head. `html_path` receives the page's path.
/// Requires: `depth` is 1 to 8. Returns the open stream, which the caller closes, or
/// null; what was written before a failure stays on disk.
[[nodiscard]] std::FILE* GifOpen(std::string* html_path, int width, int height,
                                 const std::uint8_t* palette, int depth);

/// Writes the blocks of one frame; `frame`'s picture is indexed and its delay in
/// hundredths of a second, as GifDelay gives it. Returns 1, or 0 when a write
/// failed or a block could not be had or locked.
[[nodiscard]] int GifAddFrame(std::FILE* stream, const FrameRecord* frame);

/// A delay in the unit of a host with these `HostFlags`, in a GIF's. A host that takes
/// true colour counts ten times finer; a remainder is dropped.
[[nodiscard]] std::uint32_t GifDelay(std::uint32_t delay, std::uint32_t host_flags);

/// The byte that ends a GIF.
inline constexpr std::uint8_t kGifTrailer = 0x3B;

}  // namespace tess
