// A strict reader of GIF89a, for files with a global colour table and whole images,
// as the Preview and the substitute host write them. It takes nothing that the format does not
// allow and nothing that is left over: a file cut short at any byte is refused.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tess::test {

struct GifFrame {
    std::uint8_t control_packed = 0;  ///< the Graphic Control Extension's, as it stands
    std::uint16_t delay = 0;          ///< in hundredths of a second
    std::uint8_t transparent_index = 0;
    std::uint16_t width = 0, height = 0;
    std::uint8_t descriptor_packed = 0;
    std::vector<std::uint8_t> own_table;  ///< the Local Color Table, empty for none
    std::uint8_t minimum_code_size = 0;
    std::vector<std::uint8_t> sub_block_sizes;  ///< without the terminator
    std::vector<std::uint8_t> indexes;          ///< a byte a pixel, from the top left
};

struct GifFile {
    std::uint16_t width = 0, height = 0;
    std::uint8_t packed = 0;  ///< the Logical Screen Descriptor's
    int depth = 0;            ///< bits of the Global Color Table's indexes
    std::vector<std::uint8_t> palette;
    bool loops_for_ever = false;
    std::string comment;
    std::vector<GifFrame> frames;
};

/// Any takes GIF87a, too, and images without a Graphic Control Extension: what other
/// programs make of the Preview's file.
enum class GifVersion { Gif89a, Any };

/// Returns the file, or nothing, with the reason in `error` (may be null).
[[nodiscard]] std::optional<GifFile> ReadGif(std::span<const std::uint8_t> bytes,
                                             std::string* error = nullptr,
                                             GifVersion version = GifVersion::Gif89a);

/// Decodes Table Based Image Data: minimum code size, sub-blocks, terminator, all of
/// `bytes`, to exactly `pixels` indexes. Fills the last three fields of `frame`.
/// Returns why it could not, empty if it could.
[[nodiscard]] std::string DecodeImageData(std::span<const std::uint8_t> bytes, std::size_t pixels,
                                          GifFrame* frame);

/// All of a file's bytes; empty if it cannot be read.
[[nodiscard]] std::vector<std::uint8_t> ReadFileBytes(const std::string& path);

}  // namespace tess::test
