// What the programs that make files of the resources share: bitmap files, and the
// command line
//
//   PROGRAM FOLDER            makes its files there
//   PROGRAM --check FOLDER    compares the files that are there with what it makes
#pragma once

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace artwork {

struct DrawnFile {
    std::string name;
    std::string bytes;
};

struct Pixel {
    int red = 0, green = 0, blue = 0, alpha = 255;
};

/// A picture, its pixels from the top left.
struct Picture {
    int width, height;
    std::vector<Pixel> pixels;
};

inline void AddNumber(std::string* bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i)
        bytes->push_back(static_cast<char>(number >> (8 * i) & 255));
}

/// The bitmap file of a picture, its bottom row first, at 24 bits or at 32 with an
/// alpha that is not multiplied into the colours.
inline std::string BitmapFile(const Picture& picture, int bits) {
    constexpr std::uint32_t kHeaders = 54;
    const auto width = static_cast<std::uint32_t>(picture.width);
    const auto height = static_cast<std::uint32_t>(picture.height);
    const std::uint32_t stride = (width * static_cast<std::uint32_t>(bits) + 31) / 32 * 4;
    std::string file = "BM";
    AddNumber(&file, kHeaders + stride * height, 4);
    AddNumber(&file, 0, 4);
    AddNumber(&file, kHeaders, 4);
    AddNumber(&file, 40, 4);
    AddNumber(&file, width, 4);
    AddNumber(&file, height, 4);
    AddNumber(&file, 1, 2);
    AddNumber(&file, static_cast<std::uint32_t>(bits), 2);
    AddNumber(&file, 0, 4);
    AddNumber(&file, stride * height, 4);
    for (int i = 0; i < 4; ++i)
        AddNumber(&file, 0, 4);
    for (std::uint32_t y = height; y-- > 0;) {
        const std::size_t row = file.size();
        for (std::uint32_t x = 0; x < width; ++x) {
            const Pixel& pixel = picture.pixels[std::size_t{y} * width + x];
            for (const int channel : {pixel.blue, pixel.green, pixel.red})
                file.push_back(static_cast<char>(channel));
            if (bits == 32) file.push_back(static_cast<char>(pixel.alpha));
        }
        file.resize(row + stride);
    }
    return file;
}

inline bool IsSame(const std::string& path, const std::string& bytes) {
    std::ifstream stream(path, std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(stream), {}};
    if (file == bytes) return true;
    std::fprintf(stderr, "%s is not what this program makes\n", path.c_str());
    return false;
}

inline bool Write(const std::string& path, const std::string& bytes) {
    std::ofstream stream(path, std::ios::binary);
    stream << bytes;
    if (stream.flush()) return true;
    std::fprintf(stderr, "%s cannot be written\n", path.c_str());
    return false;
}

/// Makes or compares `files`, as the arguments say. Returns the exit status.
inline int Deliver(const std::vector<DrawnFile>& files, int count, char** arguments) {
    const bool is_check = count == 3 && std::string_view(arguments[1]) == "--check";
    if (count != 2 && !is_check) {
        std::fprintf(stderr, "usage: %s [--check] FOLDER\n", arguments[0]);
        return 2;
    }
    bool is_done = true;
    for (const DrawnFile& file : files) {
        const std::string path = std::string(arguments[count - 1]) + "/" + file.name;
        is_done = (is_check ? IsSame : Write)(path, file.bytes) && is_done;
    }
    return is_done ? 0 : 1;
}

}  // namespace artwork
