// The chunks and their order:
//
//   IHDR   size, bits, colour type 3 (indexed) or 2 (red, green, blue)
//   acTL   of an animation: how many frames, played for ever
//   PLTE   of an indexed picture
//   tEXt   "Comment", where there is one
//   for each frame: fcTL (place, delay; replaces all of the picture), then its rows
//     as IDAT for the first, as fdAT for the others; a still picture has no fcTL
//   IEND
//
// Rows are one zlib stream a frame. A true-colour row takes the filter of the five
// whose bytes, taken as signed, have the least sum of magnitudes; an indexed row is
// left unfiltered, as the format's own text advises.
#include "host/png_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <zlib.h>

#include "host/composition.h"
#include "platform/files.h"

namespace tess {
namespace {

constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::uint8_t kTrueColorType = 2, kIndexedType = 3;
constexpr int kFilters = 5;
constexpr std::size_t kSequenceBytes = 4;  // before the rows in an fdAT
constexpr std::size_t kMaximumChunk = 0x7FFFFFF0;
constexpr int kMaximumSide = 1 << 24;

using Bytes = platform::WorkArray<std::uint8_t>;

void PutNumber(std::uint8_t* place, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
        place[i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

void PutShort(std::uint8_t* place, std::uint32_t value) {
    place[0] = static_cast<std::uint8_t>(value >> 8);
    place[1] = static_cast<std::uint8_t>(value);
}

bool WriteChunk(std::FILE* stream, const char* type, const std::uint8_t* data, std::size_t bytes) {
    std::uint8_t head[8], tail[4];
    PutNumber(head, static_cast<std::uint32_t>(bytes));
    std::memcpy(head + 4, type, 4);
    uLong check = crc32(0, head + 4, 4);
    if (bytes > 0) check = crc32(check, data, static_cast<uInt>(bytes));
    PutNumber(tail, static_cast<std::uint32_t>(check));
    return std::fwrite(head, sizeof head, 1, stream) == 1 &&
           (bytes == 0 || std::fwrite(data, bytes, 1, stream) == 1) &&
           std::fwrite(tail, sizeof tail, 1, stream) == 1;
}

int PaethPredictor(int left, int above, int corner) {
    const int estimate = left + above - corner;
    const int to_left = std::abs(estimate - left);
    const int to_above = std::abs(estimate - above);
    const int to_corner = std::abs(estimate - corner);
    if (to_left <= to_above && to_left <= to_corner) return left;
    return to_above <= to_corner ? above : corner;
}

// Writes the filter's number and the filtered row; returns the sum of magnitudes.
std::uint64_t FilterRow(int filter, const std::uint8_t* row, const std::uint8_t* above,
                        std::size_t bytes, std::uint8_t* out) {
    constexpr std::size_t kPixelBytes = 3;
    std::uint64_t sum = 0;
    *out++ = static_cast<std::uint8_t>(filter);
    for (std::size_t i = 0; i < bytes; ++i) {
        const int left = i >= kPixelBytes ? row[i - kPixelBytes] : 0;
        const int corner = i >= kPixelBytes ? above[i - kPixelBytes] : 0;
        const int predictions[kFilters] = {0, left, above[i], (left + above[i]) / 2,
                                           PaethPredictor(left, above[i], corner)};
        out[i] = static_cast<std::uint8_t>(row[i] - predictions[filter]);
        sum += static_cast<std::uint64_t>(std::abs(static_cast<std::int8_t>(out[i])));
    }
    return sum;
}

// Packs `count` indexes of a byte each into `bits` bits each, leftmost highest.
void PackRow(const std::uint8_t* indexes, std::size_t count, int bits, std::uint8_t* out) {
    const std::size_t per_byte = static_cast<std::size_t>(8 / bits);
    std::memset(out, 0, (count + per_byte - 1) / per_byte);
    for (std::size_t i = 0; i < count; ++i) {
        const auto shift = static_cast<unsigned>(8 - bits * static_cast<int>(i % per_byte + 1));
        out[i / per_byte] = static_cast<std::uint8_t>(out[i / per_byte] | (indexes[i] << shift));
    }
}

// The pixels of one frame as PNG's zlib stream.
class RowCompressor {
public:
    RowCompressor(const Composition& shown, int width, int height)
        : shown_(shown),
          width_(static_cast<std::size_t>(width)),
          height_(static_cast<std::size_t>(height)),
          row_bytes_((width_ * static_cast<std::size_t>(shown.Bits()) + 7) / 8),
          filtered_(kFilters * (row_bytes_ + 1)),
          first_above_(row_bytes_) {
        usable_ = deflateInit(&stream_, Z_BEST_COMPRESSION) == Z_OK;
        if (!usable_) return;
        capacity_ = deflateBound(&stream_, static_cast<uLong>((row_bytes_ + 1) * height_));
        if (capacity_ <= kMaximumChunk) out_ = Bytes(kSequenceBytes + capacity_);
    }
    RowCompressor(const RowCompressor&) = delete;
    RowCompressor& operator=(const RowCompressor&) = delete;
    ~RowCompressor() {
        if (usable_) deflateEnd(&stream_);
    }

    explicit operator bool() const { return usable_ && filtered_ && first_above_ && out_; }

    [[nodiscard]] bool Compress() {
        deflateReset(&stream_);
        stream_.next_out = Stream();
        stream_.avail_out = static_cast<uInt>(capacity_);
        for (std::size_t y = 0; y < height_; ++y) {
            stream_.next_in = PrepareRow(y);
            stream_.avail_in = static_cast<uInt>(row_bytes_ + 1);
            if (deflate(&stream_, Z_NO_FLUSH) != Z_OK) return false;
        }
        return deflate(&stream_, Z_FINISH) == Z_STREAM_END;
    }

    /// The stream; the four bytes before it are free for a sequence number.
    [[nodiscard]] std::uint8_t* Stream() { return out_.data() + kSequenceBytes; }
    [[nodiscard]] std::size_t StreamBytes() const { return stream_.total_out; }

private:
    std::uint8_t* PrepareRow(std::size_t y) {
        const std::uint8_t* row = shown_.Pixels() + y * shown_.RowBytes();
        if (shown_.IsIndexed()) {
            filtered_[0] = 0;
            PackRow(row, width_, shown_.Bits(), filtered_.data() + 1);
            return filtered_.data();
        }
        const std::uint8_t* above = y > 0 ? row - shown_.RowBytes() : first_above_.data();
        std::uint64_t sums[kFilters];
        for (int filter = 0; filter < kFilters; ++filter) {
            sums[filter] = FilterRow(filter, row, above, row_bytes_, Candidate(filter));
        }
        return Candidate(static_cast<int>(std::min_element(sums, sums + kFilters) - sums));
    }
    std::uint8_t* Candidate(int filter) {
        return filtered_.data() + static_cast<std::size_t>(filter) * (row_bytes_ + 1);
    }

    const Composition& shown_;
    std::size_t width_, height_, row_bytes_;
    Bytes filtered_;     // a row in each of the five ways
    Bytes first_above_;  // zeros, above the first row
    Bytes out_;
    std::size_t capacity_ = 0;
    z_stream stream_ = {};
    bool usable_ = false;
};

bool WriteHead(std::FILE* stream, const Animation& animation, const Composition& shown) {
    std::uint8_t header[13] = {};
    PutNumber(header, static_cast<std::uint32_t>(animation.Width));
    PutNumber(header + 4, static_cast<std::uint32_t>(animation.Height));
    header[8] = static_cast<std::uint8_t>(shown.IsIndexed() ? shown.Bits() : 8);
    header[9] = shown.IsIndexed() ? kIndexedType : kTrueColorType;
    return std::fwrite(kSignature, sizeof kSignature, 1, stream) == 1 &&
           WriteChunk(stream, "IHDR", header, sizeof header);
}

bool WritePalette(std::FILE* stream, const Composition& shown) {
    if (!shown.IsIndexed()) return true;
    return WriteChunk(stream, "PLTE", shown.Palette(), std::size_t{3} << shown.Bits());
}

// A line in a tEXt ends with a line feed alone.
bool WriteComment(std::FILE* stream, const Animation& animation) {
    if (!animation.HasComment) return true;
    std::string data = "Comment";
    data += '\0';
    for (const char c : animation.Comment) {
        if (c != '\r') data += c;
    }
    return WriteChunk(stream, "tEXt", reinterpret_cast<const std::uint8_t*>(data.data()),
                      data.size());
}

bool WriteAnimationControl(std::FILE* stream, const Animation& animation) {
    std::uint8_t control[8] = {};  // the second number: played for ever
    PutNumber(control, static_cast<std::uint32_t>(animation.Frames.Count));
    return WriteChunk(stream, "acTL", control, sizeof control);
}

bool WriteFrameControl(std::FILE* stream, const Animation& animation, std::uint32_t sequence,
                       std::uint32_t delay) {
    std::uint8_t control[26] = {};  // offsets 0; no disposal; replaces what was there
    PutNumber(control, sequence);
    PutNumber(control + 4, static_cast<std::uint32_t>(animation.Width));
    PutNumber(control + 8, static_cast<std::uint32_t>(animation.Height));
    PutShort(control + 20, std::min(delay, 0xFFFFu));
    PutShort(control + 22, animation.Unit == DelayUnit::Hundredths ? 100 : 1000);
    return WriteChunk(stream, "fcTL", control, sizeof control);
}

FileResult WriteFrames(std::FILE* stream, const Animation& animation, Composition& shown,
                       bool is_animated) {
    RowCompressor rows(shown, animation.Width, animation.Height);
    if (!rows) return FileResult::OutOfMemory;
    std::uint32_t sequence = 0;
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) == 0 || shown.ShowFrame(i) == 0 || !rows.Compress()) {
            return FileResult::OutOfMemory;
        }
        if (is_animated && !WriteFrameControl(stream, animation, sequence++, frame.Delay)) {
            return FileResult::CannotWrite;
        }
        bool written;
        if (i == 0) {
            written = WriteChunk(stream, "IDAT", rows.Stream(), rows.StreamBytes());
        } else {
            std::uint8_t* data = rows.Stream() - kSequenceBytes;
            PutNumber(data, sequence++);
            written = WriteChunk(stream, "fdAT", data, kSequenceBytes + rows.StreamBytes());
        }
        if (!written) return FileResult::CannotWrite;
    }
    return FileResult::Written;
}

FileResult WriteStream(const Animation& animation, std::FILE* stream, bool is_animated) {
    if (animation.Width > kMaximumSide || animation.Height > kMaximumSide) {
        return FileResult::TooLarge;
    }
    Composition shown(animation);
    if (!shown) return FileResult::OutOfMemory;
    if (!WriteHead(stream, animation, shown) ||
        (is_animated && !WriteAnimationControl(stream, animation)) ||
        !WritePalette(stream, shown) || !WriteComment(stream, animation)) {
        return FileResult::CannotWrite;
    }
    const FileResult result = WriteFrames(stream, animation, shown, is_animated);
    if (result != FileResult::Written) return result;
    return WriteChunk(stream, "IEND", nullptr, 0) ? FileResult::Written : FileResult::CannotWrite;
}

template <class WriteTo>
FileResult WriteFile(std::string_view path, WriteTo write_to) {
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file) return FileResult::CannotCreate;
    const FileResult result = write_to(file.Stream());
    if (result != FileResult::Written) return result;
    return file.Commit() != 0 ? FileResult::Written : FileResult::CannotWrite;
}

}  // namespace

FileResult WriteAnimatedPng(const Animation& animation, std::string_view path) {
    return WriteFile(path, [&](std::FILE* stream) { return WriteStream(animation, stream, true); });
}

FileResult WritePngStream(ImageHandle image, std::FILE* stream) {
    platform::OwnedBlock copy(DuplicateImage(image));
    Animation still;
    {
        const LockedImage locked(copy.Get());
        if (!locked) return FileResult::OutOfMemory;
        still.Width = locked->Width;
        still.Height = locked->Height;
        still.Depth = locked->BitCount;
    }
    const FrameRecord record{copy.Get(), nullptr, 0, -1};
    if (FrameListAdd(&still.Frames, &record) == 0) return FileResult::OutOfMemory;
    static_cast<void>(copy.Release());  // the list owns it now
    return WriteStream(still, stream, false);
}

FileResult WritePng(ImageHandle image, std::string_view path) {
    return WriteFile(path, [&](std::FILE* stream) { return WritePngStream(image, stream); });
}

}  // namespace tess
