// An animation as GIF89a (CompuServe Incorporated, "Graphics Interchange Format,
// Version 89a", 1990), in the order of the blocks:
//
//   Header, Logical Screen Descriptor, Global Color Table      GifOpen
//   Application Extension NETSCAPE2.0: loop without end        GifOpen
//   for each frame:                                            GifAddFrame
//     Graphic Control Extension
//     Image Descriptor, Table Based Image Data
//   Trailer                                                    the driver
//
// There is always a Global Color Table, and no frame has a table of its own. All
// frames lie at the screen's top left.
#include "pipeline/gif_writer.h"

#include <memory>

#include "pipeline/lzw_writer.h"
#include "platform/block_guards.h"
#include "platform/files.h"
#include "shell/host_interface.h"

namespace tess {

namespace {

constexpr char kPage[] =
    "<html>\n<head>\n<title>Preview</title>\n</head>\n"
    "<body background=\"preview.gif\">\n</body>\n</html>";

/// Frames are large: this many bytes go to the system at a time.
constexpr std::size_t kStreamBuffer = std::size_t{1} << 16;

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using OpenStream = std::unique_ptr<std::FILE, CloseStream>;

constexpr std::uint8_t LowByte(std::int64_t value) {
    return static_cast<std::uint8_t>(value & 255);
}
constexpr std::uint8_t HighByte(std::int64_t value) {
    return static_cast<std::uint8_t>(value >> 8 & 255);
}

bool WriteBytes(std::FILE* stream, const std::uint8_t* bytes, std::size_t count) {
    return std::fwrite(bytes, 1, count, stream) == count;
}
template <std::size_t Count>
bool WriteBytes(std::FILE* stream, const std::uint8_t (&bytes)[Count]) {
    return WriteBytes(stream, bytes, Count);
}

bool WritePage(const std::string& path) {
    OpenStream page(platform::OpenFile(path, "w"));
    if (page == nullptr) return false;
    const bool written = std::fputs(kPage, page.get()) != EOF;
    return std::fclose(page.release()) == 0 && written;
}

bool WriteHeaderAndScreen(std::FILE* stream, int width, int height, int depth) {
    constexpr std::uint8_t kGlobalTable = 0x80;
    const std::uint8_t head[] = {
        'G',
        'I',
        'F',
        '8',
        '9',
        'a',
        LowByte(width),
        HighByte(width),
        LowByte(height),
        HighByte(height),
        static_cast<std::uint8_t>((depth - 1) | kGlobalTable),
        0,  // background colour index
        0,  // pixel aspect ratio: not given
    };
    return WriteBytes(stream, head);
}

bool WriteLoopExtension(std::FILE* stream) {
    constexpr std::uint8_t kLoop[] = {
        0x21, 0xFF,                                                    // Application Extension
        11,   'N',  'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0',  //
        3,    1,    0,   0,                                            // loop count 0: for ever
        0,
    };
    return WriteBytes(stream, kLoop);
}

bool WriteGraphicControl(std::FILE* stream, const FrameRecord& frame) {
    // The packed byte holds the transparent index itself, without the flag bit that
    // the format has for it. That is meant: the Preview has no transparency, and its
    // frames come with -1, which writes 0.
    const std::uint8_t packed =
        frame.TransparentIndex == -1 ? std::uint8_t{0} : LowByte(frame.TransparentIndex);
    const std::uint8_t control[] = {
        0x21,
        0xF9,
        4,
        packed,
        LowByte(frame.Delay),
        HighByte(frame.Delay),
        LowByte(frame.TransparentIndex),
        0,
    };
    return WriteBytes(stream, control);
}

bool WriteDescriptor(std::FILE* stream, const GifImageDescriptor& image) {
    const std::uint8_t descriptor[] = {
        0x2C,
        LowByte(image.Left),
        HighByte(image.Left),
        LowByte(image.Top),
        HighByte(image.Top),
        LowByte(image.Width),
        HighByte(image.Width),
        LowByte(image.Height),
        HighByte(image.Height),
        image.Packed,
    };
    return WriteBytes(stream, descriptor);
}

}  // namespace

std::uint32_t GifDelay(std::uint32_t delay, std::uint32_t host_flags) {
    return (host_flags & HostTrueColor) != 0 ? delay / 10 : delay;
}

std::FILE* GifOpen(std::string* html_path, int width, int height, const std::uint8_t* palette,
                   int depth) {
    // Any other depth would read beyond the palette.
    if (depth < 1 || depth > 8) return nullptr;
    *html_path = platform::PluginFile("preview.html");
    const std::string gif_path = platform::PluginFile("preview.gif");
    if (!WritePage(*html_path)) return nullptr;
    OpenStream stream(platform::OpenFile(gif_path, "wb"));
    if (stream == nullptr) return nullptr;
    std::setvbuf(stream.get(), nullptr, _IOFBF, kStreamBuffer);
    // Flushed, so that a full disk is met here and not at the first frame.
    if (!WriteHeaderAndScreen(stream.get(), width, height, depth) ||
        !WriteBytes(stream.get(), palette, std::size_t{3} << depth) ||
        !WriteLoopExtension(stream.get()) || std::fflush(stream.get()) != 0) {
        return nullptr;
    }
    return stream.release();
}

int GifAddFrame(std::FILE* stream, const FrameRecord* frame) {
    const LockedImage image(frame->Image);
    if (!image) return 0;
    const GifImageDescriptor descriptor{0, 0, static_cast<std::uint16_t>(image->Width),
                                        static_cast<std::uint16_t>(image->Height),
                                        static_cast<std::uint8_t>(image->BitCount - 1)};
    if (!WriteGraphicControl(stream, *frame) || !WriteDescriptor(stream, descriptor)) return 0;
    platform::WorkArray<std::uint32_t> codes(kLzwSlots);
    platform::WorkArray<std::uint8_t> buffer(kLzwBufferBytes);
    if (!codes || !buffer) return 0;
    LzwState state{};
    state.Codes = codes.data();
    state.Buffer = buffer.data();
    return LzwWriteImage(stream, image.Get(), &descriptor, &state);
}

}  // namespace tess
