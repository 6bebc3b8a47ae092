// What a frame's pixels may be is its own affair: the plug-in marks unchanged
// pixels with the highest index of the picture where the palette has no slot for
// them, and gives the transparent slot a colour in the frame's table alone. So a
// frame that holds an index behind the palette's end, or whose table differs from
// the palette, gets a table of its own.
#include "host/gif_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "pipeline/lzw_writer.h"
#include "platform/files.h"

namespace tess {
namespace {

constexpr std::uint8_t kExtension = 0x21;
constexpr std::uint8_t kGraphicControlLabel = 0xF9;
constexpr std::uint8_t kCommentLabel = 0xFE;
constexpr std::uint8_t kImageSeparator = 0x2C;
constexpr std::uint8_t kTrailer = 0x3B;
constexpr std::uint8_t kColorTableFlag = 0x80;
constexpr std::uint8_t kTransparentColorFlag = 1;
constexpr std::uint8_t kDoNotDispose = 1 << 2;
constexpr int kMaximumSide = 65535;
constexpr std::size_t kMaximumSubBlock = 255;

bool Write(std::FILE* stream, const void* bytes, std::size_t count) {
    return std::fwrite(bytes, 1, count, stream) == count;
}

void PutShort(std::uint8_t* place, std::uint32_t value) {
    place[0] = static_cast<std::uint8_t>(value);
    place[1] = static_cast<std::uint8_t>(value >> 8);
}

constexpr std::size_t ColorTableSize(int bits) {
    return std::size_t{3} << bits;
}

bool WriteScreen(std::FILE* stream, const Animation& animation, int bits) {
    std::uint8_t screen[13] = {'G', 'I', 'F', '8', '9', 'a'};
    PutShort(screen + 6, static_cast<std::uint32_t>(animation.Width));
    PutShort(screen + 8, static_cast<std::uint32_t>(animation.Height));
    screen[10] = static_cast<std::uint8_t>(kColorTableFlag | ((bits - 1) << 4) | (bits - 1));
    return Write(stream, screen, sizeof screen) &&
           Write(stream, animation.Palette, ColorTableSize(bits));
}

bool WriteLooping(std::FILE* stream) {
    constexpr std::uint8_t kBlock[] = {kExtension, 0xFF, 11,  'N', 'E', 'T', 'S', 'C', 'A', 'P',
                                       'E',        '2',  '.', '0', 3,   1,   0,   0,   0};
    return Write(stream, kBlock, sizeof kBlock);
}

bool WriteComment(std::FILE* stream, const Animation& animation) {
    if (!animation.HasComment || animation.Comment.empty()) return true;
    constexpr std::uint8_t kHead[] = {kExtension, kCommentLabel};
    if (!Write(stream, kHead, sizeof kHead)) return false;
    const std::string_view text = animation.Comment;
    for (std::size_t start = 0; start < text.size(); start += kMaximumSubBlock) {
        const std::string_view block = text.substr(start, kMaximumSubBlock);
        if (std::fputc(static_cast<int>(block.size()), stream) == EOF ||
            !Write(stream, block.data(), block.size())) {
            return false;
        }
    }
    return std::fputc(0, stream) != EOF;
}

bool WriteGraphicControl(std::FILE* stream, const FrameRecord& frame, std::uint32_t delay) {
    const bool transparent = frame.TransparentIndex >= 0;
    std::uint8_t block[8] = {kExtension, kGraphicControlLabel, 4, kDoNotDispose};
    if (transparent) {
        block[3] |= kTransparentColorFlag;
        block[6] = static_cast<std::uint8_t>(frame.TransparentIndex);
    }
    PutShort(block + 4, std::min(delay, 0xFFFFu));
    return Write(stream, block, sizeof block);
}

bool WriteDescriptor(std::FILE* stream, const PackedDib* image, int own_table_bits) {
    std::uint8_t block[10] = {kImageSeparator};
    PutShort(block + 5, static_cast<std::uint32_t>(image->Width));
    PutShort(block + 7, static_cast<std::uint32_t>(image->Height));
    if (own_table_bits > 0) {
        block[9] = static_cast<std::uint8_t>(kColorTableFlag | (own_table_bits - 1));
    }
    return Write(stream, block, sizeof block);
}

int HighestIndex(const PackedDib* image) {
    std::uint32_t highest = 0;
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x) {
            highest = std::max(highest, GetDibPixel(image, x, y));
        }
    }
    return static_cast<int>(highest);
}

struct FrameColors {
    int Bits;       ///< per pixel, as they are compressed
    bool OwnTable;  ///< the palette does not hold the frame's colours
    std::uint8_t Table[kPaletteBytes];
};

FrameColors ColorsOf(const PackedDib* image, const std::uint8_t* palette, int palette_bits) {
    FrameColors colors{};
    ReadColorTable(image, colors.Table);
    const bool same_layout = palette_bits == image->BitCount ||
                             (image->BitCount == 4 && palette_bits >= 2 && palette_bits <= 4) ||
                             (image->BitCount == 8 && palette_bits >= 5);
    if (same_layout && HighestIndex(image) < 1 << palette_bits &&
        std::memcmp(colors.Table, palette, ColorTableSize(palette_bits)) == 0) {
        colors.Bits = palette_bits;
    } else {
        colors.Bits = image->BitCount;
        colors.OwnTable = true;
    }
    return colors;
}

class GifWriter {
public:
    GifWriter(std::FILE* stream, const Animation& animation)
        : stream_(stream), animation_(animation), codes_(kLzwSlots), buffer_(kLzwBufferBytes) {
        palette_bits_ = std::clamp(animation.Depth, 1, 8);
        lzw_.Codes = codes_.data();
        lzw_.Buffer = buffer_.data();
    }

    [[nodiscard]] FileResult WriteAll() {
        if (!codes_ || !buffer_) return FileResult::OutOfMemory;
        if (!WriteScreen(stream_, animation_, palette_bits_) || !WriteLooping(stream_) ||
            !WriteComment(stream_, animation_)) {
            return FileResult::CannotWrite;
        }
        for (int i = 0; i < animation_.Frames.Count; ++i) {
            const FileResult result = WriteFrame(i);
            if (result != FileResult::Written) return result;
        }
        return std::fputc(kTrailer, stream_) != EOF ? FileResult::Written : FileResult::CannotWrite;
    }

private:
    [[nodiscard]] FileResult WriteFrame(int index) {
        FrameRecord frame;
        if (GetFrame(animation_, index, &frame) == 0) return FileResult::OutOfMemory;
        const LockedImage image(frame.Image);
        if (!image) return FileResult::OutOfMemory;
        if (image->BitCount > 8) return FileResult::TrueColorInGif;
        const FrameColors colors = ColorsOf(image, animation_.Palette, palette_bits_);
        GifImageDescriptor descriptor{};
        descriptor.Width = static_cast<std::uint16_t>(image->Width);
        descriptor.Height = static_cast<std::uint16_t>(image->Height);
        descriptor.Packed = static_cast<std::uint8_t>(colors.Bits - 1);
        const bool written =
            WriteGraphicControl(stream_, frame, DelayInHundredths(animation_, frame)) &&
            WriteDescriptor(stream_, image, colors.OwnTable ? colors.Bits : 0) &&
            (!colors.OwnTable || Write(stream_, colors.Table, ColorTableSize(colors.Bits))) &&
            LzwWriteImage(stream_, image, &descriptor, &lzw_) != 0;
        return written ? FileResult::Written : FileResult::CannotWrite;
    }

    std::FILE* stream_;
    const Animation& animation_;
    int palette_bits_;
    platform::WorkArray<std::uint32_t> codes_;
    platform::WorkArray<std::uint8_t> buffer_;
    LzwState lzw_ = {};
};

}  // namespace

FileResult WriteGifStream(const Animation& animation, std::FILE* stream) {
    if (animation.Width > kMaximumSide || animation.Height > kMaximumSide) {
        return FileResult::TooLarge;
    }
    return GifWriter(stream, animation).WriteAll();
}

FileResult WriteGifFile(const Animation& animation, std::string_view path) {
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file) return FileResult::CannotCreate;
    const FileResult result = WriteGifStream(animation, file.Stream());
    if (result != FileResult::Written) return result;
    return file.Commit() != 0 ? FileResult::Written : FileResult::CannotWrite;
}

}  // namespace tess
