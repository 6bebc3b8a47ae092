#include "tests/support/gif_reader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/files.h"

namespace tess::test {

namespace {

/// What went wrong, thrown within this file only.
struct Refusal {
    const char* reason;
};

void Require(bool holds, const char* otherwise) {
    if (!holds) throw Refusal{otherwise};
}

/// The bytes that are not read yet.
class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    [[nodiscard]] std::span<const std::uint8_t> Take(std::size_t count) {
        Require(count <= rest_.size(), "the file ends early");
        const auto taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }
    std::uint8_t Byte() { return Take(1)[0]; }
    std::uint16_t Word() {
        const auto bytes = Take(2);
        return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
    }
    void Expect(std::uint8_t byte, const char* otherwise) { Require(Byte() == byte, otherwise); }

private:
    std::span<const std::uint8_t> rest_;
};

/// Codes of a changing number of bits, least significant first.
class CodeReader {
public:
    explicit CodeReader(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] std::size_t BitsLeft() const { return bytes_.size() * 8 - position_; }
    [[nodiscard]] int Peek(int bits) const {
        Require(static_cast<std::size_t>(bits) <= BitsLeft(), "the codes end early");
        int code = 0;
        for (int i = 0; i < bits; ++i) {
            const std::size_t place = position_ + static_cast<std::size_t>(i);
            code |= ((bytes_[place / 8] >> (place % 8)) & 1) << i;
        }
        return code;
    }
    int Take(int bits) {
        const int code = Peek(bits);
        position_ += static_cast<std::size_t>(bits);
        return code;
    }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

class LzwDecoder {
public:
    LzwDecoder(int minimum, std::vector<std::uint8_t> bytes)
        : minimum_(minimum), codes_(std::move(bytes)) {}

    std::vector<std::uint8_t> Decode(std::size_t pixels) {
        Require(codes_.Take(minimum_ + 1) == Clear(), "the first code is not the clear code");
        Restart();
        while (out_.size() < pixels) {
            const int code = codes_.Take(bits_);
            Require(code != Clear() + 1, "the end code comes before the last pixel");
            if (code == Clear()) {
                Restart();
            } else {
                Append(code);
            }
        }
        Require(out_.size() == pixels, "there are more pixels than the image has");
        TakeEnd();
        return std::move(out_);
    }

private:
    [[nodiscard]] int Clear() const { return 1 << minimum_; }

    void Restart() {
        bits_ = minimum_ + 1;
        has_grown_ = false;
        previous_.clear();
        strings_.clear();
    }

    std::vector<std::uint8_t> StringOf(int code) const {
        if (code < Clear()) return {static_cast<std::uint8_t>(code)};
        const auto index = static_cast<std::size_t>(code - Clear() - 2);
        if (index < strings_.size()) return strings_[index];
        Require(index == strings_.size() && !previous_.empty(), "a code is used before its time");
        std::vector<std::uint8_t> string = previous_;
        string.push_back(previous_.front());
        return string;
    }

    void Append(int code) {
        std::vector<std::uint8_t> string = StringOf(code);
        out_.insert(out_.end(), string.begin(), string.end());
        has_grown_ = false;
        const int next = Clear() + 2 + static_cast<int>(strings_.size());
        if (!previous_.empty() && next < 4096) {
            previous_.push_back(string.front());
            strings_.push_back(std::move(previous_));
            if (next + 1 == 1 << bits_ && bits_ < 12) {
                ++bits_;
                has_grown_ = true;
            }
        }
        previous_ = std::move(string);
    }

    /// A writer that counts its own strings has none for the last code, so it may
    /// write the end code before the size grows for it.
    void TakeEnd() {
        const int end = Clear() + 1;
        const bool fits = codes_.BitsLeft() >= static_cast<std::size_t>(bits_);
        const bool grown = fits && codes_.Peek(bits_) == end;
        Require(codes_.Take(grown || !has_grown_ ? bits_ : bits_ - 1) == end,
                "no end code after the last pixel");
        const auto left = static_cast<int>(std::min<std::size_t>(codes_.BitsLeft(), 8));
        Require(left < 8 && codes_.Take(left) == 0, "something follows the end code");
    }

    int minimum_;
    CodeReader codes_;
    int bits_ = 0;
    bool has_grown_ = false;
    std::vector<std::uint8_t> out_;
    std::vector<std::uint8_t> previous_;
    std::vector<std::vector<std::uint8_t>> strings_;
};

void ReadImageData(Input& input, std::size_t pixels, GifFrame* frame) {
    frame->minimum_code_size = input.Byte();
    Require(frame->minimum_code_size >= 2 && frame->minimum_code_size <= 8,
            "a minimum code size that there is not");
    std::vector<std::uint8_t> bytes;
    while (const std::uint8_t size = input.Byte()) {
        const auto block = input.Take(size);
        bytes.insert(bytes.end(), block.begin(), block.end());
        frame->sub_block_sizes.push_back(size);
    }
    frame->indexes = LzwDecoder(frame->minimum_code_size, std::move(bytes)).Decode(pixels);
}

void ReadScreen(Input& input, GifVersion version, GifFile* gif) {
    const auto header = input.Take(6);
    Require(std::memcmp(header.data(), "GIF89a", 6) == 0 ||
                (version == GifVersion::Any && std::memcmp(header.data(), "GIF87a", 6) == 0),
            "no GIF89a header");
    gif->width = input.Word();
    gif->height = input.Word();
    gif->packed = input.Byte();
    Require((gif->packed & 0x80) != 0, "no Global Color Table");
    gif->depth = (gif->packed & 7) + 1;
    Require(input.Byte() < 1 << gif->depth, "the background is no entry of the table");
    input.Expect(0, "a pixel aspect ratio");
    const auto palette = input.Take(std::size_t{3} << gif->depth);
    gif->palette.assign(palette.begin(), palette.end());
}

void ReadLoop(Input& input, GifFile* gif) {
    Require(!gif->loops_for_ever && gif->frames.empty(), "a second or late loop extension");
    input.Expect(11, "a wrong size of an Application Extension");
    Require(std::memcmp(input.Take(11).data(), "NETSCAPE2.0", 11) == 0, "an unknown application");
    input.Expect(3, "a wrong size of the loop block");
    input.Expect(1, "a loop block of another kind");
    gif->loops_for_ever = input.Word() == 0;
    input.Expect(0, "no terminator of the loop extension");
}

void ReadComment(Input& input, GifFile* gif) {
    Require(gif->comment.empty(), "a second comment");
    while (const std::uint8_t size = input.Byte()) {
        const auto block = input.Take(size);
        gif->comment.append(block.begin(), block.end());
    }
    Require(!gif->comment.empty(), "an empty comment");
}

void ReadGraphicControl(Input& input, GifFrame* frame) {
    input.Expect(4, "a wrong size of a Graphic Control Extension");
    frame->control_packed = input.Byte();
    frame->delay = input.Word();
    frame->transparent_index = input.Byte();
    input.Expect(0, "no terminator of a Graphic Control Extension");
}

void ReadImage(Input& input, const GifFile& gif, GifFrame* frame) {
    Require(input.Word() == 0 && input.Word() == 0, "an image away from the top left");
    frame->width = input.Word();
    frame->height = input.Word();
    Require(frame->width <= gif.width && frame->height <= gif.height, "an image beyond the screen");
    frame->descriptor_packed = input.Byte();
    Require((frame->descriptor_packed & 0x60) == 0, "an interlaced image or a sorted table");
    int depth = gif.depth;
    if ((frame->descriptor_packed & 0x80) != 0) {
        depth = (frame->descriptor_packed & 7) + 1;
        const auto table = input.Take(std::size_t{3} << depth);
        frame->own_table.assign(table.begin(), table.end());
    }
    ReadImageData(input, std::size_t{frame->width} * frame->height, frame);
    Require(std::all_of(frame->indexes.begin(), frame->indexes.end(),
                        [&](std::uint8_t index) { return index < 1 << depth; }),
            "an index beyond the table");
}

GifFile ReadBlocks(Input& input, GifVersion version) {
    GifFile gif;
    ReadScreen(input, version, &gif);
    std::optional<GifFrame> frame;
    for (;;) {
        const std::uint8_t block = input.Byte();
        if (block == 0x3B) break;
        if (block == 0x2C) {
            if (version == GifVersion::Any && !frame.has_value()) frame.emplace();
            Require(frame.has_value(), "an image without a Graphic Control Extension");
            ReadImage(input, gif, &*frame);
            gif.frames.push_back(std::move(*frame));
            frame.reset();
            continue;
        }
        Require(block == 0x21, "an unknown block");
        const std::uint8_t label = input.Byte();
        Require(!frame.has_value(),
                "an extension between a Graphic Control Extension and its image");
        if (label == 0xFF) {
            ReadLoop(input, &gif);
        } else if (label == 0xFE) {
            ReadComment(input, &gif);
        } else {
            Require(label == 0xF9, "an unknown extension");
            ReadGraphicControl(input, &frame.emplace());
        }
    }
    Require(!frame.has_value(), "a Graphic Control Extension without an image");
    Require(input.AtEnd(), "something follows the trailer");
    return gif;
}

}  // namespace

std::optional<GifFile> ReadGif(std::span<const std::uint8_t> bytes, std::string* error,
                               GifVersion version) {
    try {
        Input input(bytes);
        return ReadBlocks(input, version);
    } catch (const Refusal& refusal) {
        if (error != nullptr) *error = refusal.reason;
        return std::nullopt;
    }
}

std::string DecodeImageData(std::span<const std::uint8_t> bytes, std::size_t pixels,
                            GifFrame* frame) {
    try {
        Input input(bytes);
        ReadImageData(input, pixels, frame);
        Require(input.AtEnd(), "something follows the terminator");
        return {};
    } catch (const Refusal& refusal) {
        return refusal.reason;
    }
}

std::vector<std::uint8_t> ReadFileBytes(const std::string& path) {
    std::vector<std::uint8_t> bytes;
    std::FILE* file = platform::OpenFile(path, "rb");
    if (file == nullptr) return bytes;
    std::uint8_t part[4096];
    while (const std::size_t count = std::fread(part, 1, sizeof part, file)) {
        bytes.insert(bytes.end(), part, part + count);
    }
    std::fclose(file);
    return bytes;
}

}  // namespace tess::test
