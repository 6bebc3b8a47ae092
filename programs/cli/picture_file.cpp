// PNG is libpng's. BMP is read in the forms that programs write without
// compression: a header of 40 bytes or more, 1, 4, 8, 24 or 32 bits, either row
// order. PPM is read in both forms, P3 (text) and P6, of up to 16 bits a channel.
#include "programs/cli/picture_file.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <png.h>

#include "platform/files.h"
#include "programs/cli/file_faults.h"

namespace tess {
namespace {

using Bytes = platform::WorkArray<std::uint8_t>;

constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;
constexpr char kDamaged[] = "is damaged or cut off";
constexpr char kTooLarge[] = "is too large";
constexpr char kOtherBmp[] =
    "is a BMP of a kind that is not supported (compressed, or of other bits or an old head)";

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

// Returns an empty array, and what is wrong, when the file cannot be read.
Bytes ReadWhole(const std::string& path, std::string* error) {
    const Stream stream(platform::OpenFile(path, "rb"));
    if (!stream || std::fseek(stream.get(), 0, SEEK_END) != 0) {
        // To try a pipe once more would take from it, or wait for it.
        const bool is_pipe = stream && errno == ESPIPE;
        *error =
            is_pipe ? "cannot be read: it is a pipe, and a file is needed" : UnreadableText(path);
        return {};
    }
    const long size = std::ftell(stream.get());
    if (size < 0 || size == LONG_MAX || std::fseek(stream.get(), 0, SEEK_SET) != 0) {
        *error = UnreadableText(path);
        return {};
    }
    if (size == 0) {
        *error = "is empty";
        return {};
    }
    Bytes bytes(static_cast<std::size_t>(size));
    if (!bytes) {
        *error = "cannot be read: memory is short";
        return {};
    }
    if (std::fread(bytes.data(), 1, bytes.size(), stream.get()) != bytes.size()) {
        *error = UnreadableText(path);
        return {};
    }
    error->clear();
    return bytes;
}

// A new 24-bit picture, or what is wrong with its size.
ImageHandle NewPicture(std::int64_t width, std::int64_t height, std::string* error) {
    if (width <= 0 || height <= 0) {
        *error = kDamaged;
        return nullptr;
    }
    if (width > kMostPixels || height > kMostPixels || width * height > kMostPixels) {
        *error = kTooLarge;
        return nullptr;
    }
    const ImageHandle image =
        NewPackedDib(static_cast<int>(width), static_cast<int>(height), nullptr, 24);
    if (image == nullptr) *error = "cannot be read: memory is short";
    return image;
}

ImageHandle ReadPng(const Bytes& file, std::string* error) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&png, file.data(), file.size()) == 0) {
        *error = kDamaged;
        return nullptr;
    }
    platform::OwnedBlock picture(NewPicture(png.width, png.height, error));
    const LockedImage image(picture.Get());
    if (!image) {
        png_image_free(&png);
        return nullptr;
    }
    png.format = PNG_FORMAT_BGR;
    const png_color white{255, 255, 255};
    const int stride = Stride(image->Width, 24);
    // The stride is negative since a picture's bottom row comes first.
    if (png_image_finish_read(&png, &white, DibRow(image, image->Height - 1), -stride, nullptr) ==
        0) {
        *error = kDamaged;
        return nullptr;
    }
    return picture.Release();
}

std::uint32_t NumberAt(const Bytes& file, std::size_t place, int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i) {
        value |= std::uint32_t{file[place + static_cast<std::size_t>(i)]} << (8 * i);
    }
    return value;
}

struct BmpLayout {
    std::int64_t width, height;
    bool top_down;
    int bits;
    std::size_t table, table_entries, pixels, stride;
};

constexpr std::size_t kFileHeader = 14, kInfoHeader = 40;
// Of BMPs before these, whose fields stand elsewhere.
constexpr std::size_t kCoreHeader = 12, kShortHeader = 16;

std::optional<BmpLayout> ReadBmpLayout(const Bytes& file, std::string* error) {
    *error = kDamaged;
    if (file.size() < kFileHeader + 4) return std::nullopt;
    const std::size_t header = NumberAt(file, 14, 4);
    if (header == kCoreHeader || header == kShortHeader) {
        *error = kOtherBmp;
        return std::nullopt;
    }
    if (file.size() < kFileHeader + kInfoHeader) return std::nullopt;
    BmpLayout layout{};
    layout.width = static_cast<std::int32_t>(NumberAt(file, 18, 4));
    layout.height = static_cast<std::int32_t>(NumberAt(file, 22, 4));
    layout.top_down = layout.height < 0;
    if (layout.top_down) layout.height = -layout.height;
    layout.bits = static_cast<int>(NumberAt(file, 28, 2));
    layout.pixels = NumberAt(file, 10, 4);
    layout.table = kFileHeader + header;
    const std::size_t used = NumberAt(file, 46, 4);
    if (header < kInfoHeader || layout.width <= 0 || layout.height == 0) return std::nullopt;
    const bool known_bits = layout.bits == 1 || layout.bits == 4 || layout.bits == 8 ||
                            layout.bits == 24 || layout.bits == 32;
    if (!known_bits || NumberAt(file, 30, 4) != 0) {
        *error = kOtherBmp;
        return std::nullopt;
    }
    if (layout.width > kMostPixels || layout.height > kMostPixels) {
        *error = kTooLarge;
        return std::nullopt;
    }
    if (layout.bits <= 8) {
        const std::size_t full = std::size_t{1} << layout.bits;
        layout.table_entries = used == 0 || used > full ? full : used;
    }
    layout.stride = static_cast<std::size_t>((layout.width * layout.bits + 31) / 32 * 4);
    const bool table_fits = layout.table + 4 * layout.table_entries <= file.size();
    const bool pixels_fit =
        layout.pixels <= file.size() &&
        layout.stride * static_cast<std::size_t>(layout.height) <= file.size() - layout.pixels;
    if (!table_fits || !pixels_fit) return std::nullopt;
    error->clear();
    return layout;
}

// Blue, green and red of one pixel; an index without a table entry is black.
void CopyBmpPixel(const Bytes& file, const BmpLayout& layout, std::size_t row, std::size_t x,
                  std::uint8_t* target) {
    const auto bits = static_cast<std::size_t>(layout.bits);
    if (bits > 8) {
        std::memcpy(target, file.data() + row + x * (bits / 8), 3);
        return;
    }
    const std::size_t bit = x * bits;
    const unsigned shift = static_cast<unsigned>(8 - bits - bit % 8);
    const std::size_t byte = file[row + bit / 8];
    const std::size_t index = (byte >> shift) & ((std::size_t{1} << bits) - 1);
    if (index < layout.table_entries) {
        std::memcpy(target, file.data() + layout.table + 4 * index, 3);
    }
}

ImageHandle ReadBmp(const Bytes& file, std::string* error) {
    const auto layout = ReadBmpLayout(file, error);
    if (!layout) return nullptr;
    platform::OwnedBlock picture(NewPicture(layout->width, layout->height, error));
    const LockedImage image(picture.Get());
    if (!image) return nullptr;
    for (int y = 0; y < image->Height; ++y) {
        const int stored = layout->top_down ? y : image->Height - 1 - y;
        const std::size_t row = layout->pixels + layout->stride * static_cast<std::size_t>(stored);
        std::uint8_t* target = DibRow(image, y);
        for (int x = 0; x < image->Width; ++x, target += 3) {
            CopyBmpPixel(file, *layout, row, static_cast<std::size_t>(x), target);
        }
    }
    return picture.Release();
}

class PpmReader {
public:
    explicit PpmReader(const Bytes& file) : file_(file), is_text_(file[1] == '3') {}

    [[nodiscard]] ImageHandle Read(std::string* error) {
        const auto width = ReadNumber(), height = ReadNumber(), most = ReadNumber();
        *error = kDamaged;
        if (!width || !height || !most || *most < 1 || *most > 65535) return nullptr;
        ++place_;  // the one blank behind the head
        platform::OwnedBlock picture(NewPicture(*width, *height, error));
        const LockedImage image(picture.Get());
        if (!image) return nullptr;
        for (int y = 0; y < image->Height; ++y) {
            if (!ReadRow(DibRow(image, y), image->Width, *most)) {
                *error = kDamaged;
                return nullptr;
            }
        }
        error->clear();
        return picture.Release();
    }

private:
    [[nodiscard]] bool ReadRow(std::uint8_t* target, int width, std::int64_t most) {
        for (int x = 0; x < width; ++x, target += 3) {
            for (int channel = 2; channel >= 0; --channel) {  // red first, stored last
                const auto sample = is_text_ ? ReadNumber() : ReadSample(most > 255 ? 2 : 1);
                if (!sample || *sample > most) return false;
                target[channel] = static_cast<std::uint8_t>((*sample * 255 + most / 2) / most);
            }
        }
        return true;
    }

    [[nodiscard]] std::optional<std::int64_t> ReadSample(std::size_t bytes) {
        if (place_ + bytes > file_.size()) return std::nullopt;
        std::int64_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | file_[place_++];
        return value;
    }

    [[nodiscard]] std::optional<std::int64_t> ReadNumber() {
        SkipBlanks();
        std::int64_t value = 0;
        const std::size_t start = place_;
        while (place_ < file_.size() && std::isdigit(file_[place_]) != 0 && value <= INT_MAX) {
            value = value * 10 + (file_[place_++] - '0');
        }
        if (place_ == start || value > INT_MAX) return std::nullopt;
        return value;
    }

    void SkipBlanks() {
        while (place_ < file_.size()) {
            if (file_[place_] == '#') {
                while (place_ < file_.size() && file_[place_] != '\n')
                    ++place_;
            } else if (std::isspace(file_[place_]) == 0) {
                return;
            } else {
                ++place_;
            }
        }
    }

    const Bytes& file_;
    bool is_text_;
    std::size_t place_ = 2;
};

bool Begins(const Bytes& file, std::string_view with) {
    return file.size() >= with.size() && std::memcmp(file.data(), with.data(), with.size()) == 0;
}

}  // namespace

ImageHandle ReadPicture(const std::string& path, std::string* error) {
    const Bytes file = ReadWhole(path, error);
    if (!file) return nullptr;
    if (Begins(file, "\x89PNG")) return ReadPng(file, error);
    if (Begins(file, "BM")) return ReadBmp(file, error);
    if (Begins(file, "P3") || Begins(file, "P6")) return PpmReader(file).Read(error);
    *error = "is no picture that can be read; .png, .bmp and .ppm can";
    return nullptr;
}

}  // namespace tess
