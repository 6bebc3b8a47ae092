// The LZW writer as it is described, step by step: a hash table of 5003 slots in
// three tables, codes stored bit by bit. What pipeline/lzw_writer.cpp is held to.
#pragma once

#include <cstdint>
#include <vector>

#include "pipeline/lzw_writer.h"

namespace tess::test {

/// Returns the bytes that LzwWriteImage has to write.
[[nodiscard]] std::vector<std::uint8_t> PlainLzwWriteImage(const PackedDib* image,
                                                           const GifImageDescriptor& descriptor);

}  // namespace tess::test
