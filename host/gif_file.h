// Animations as GIF files. The blocks and their order:
//
//   Header, Logical Screen Descriptor, Global Color Table   the animation's palette
//   Application Extension "NETSCAPE2.0"                     endless looping
//   Comment Extension                                       where there is a comment
//   for each frame:
//     Graphic Control Extension    delay; disposal "do not dispose"; the transparent
//                                  index and its flag, where the frame has one
//     Image Descriptor             at 0, 0
//     Local Color Table            only where the frame's colours are not the palette's
//     Table Based Image Data
//   Trailer
//
// (CompuServe, "Graphics Interchange Format, Version 89a", 1990.) This is the file
// of a host, made from what it was handed; the plug-in's own preview file has
// quirks of its own and is written by pipeline/gif_writer.
#pragma once

#include <cstdio>
#include <string_view>

#include "host/animation.h"

namespace tess {

/// Writes the animation to a stream, from first to last. Frames must have 8 bits or fewer.
[[nodiscard]] FileResult WriteGifStream(const Animation& animation, std::FILE* stream);
/// Writes it to a file, whole or not at all.
[[nodiscard]] FileResult WriteGifFile(const Animation& animation, std::string_view path);

}  // namespace tess
