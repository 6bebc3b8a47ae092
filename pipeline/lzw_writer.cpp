// Variable-length-code LZW (T. Welch, "A Technique for High-Performance Data
// Compression", 1984) as GIF89a, appendix F, has it.
//
//   minimum code size   1 byte: bits per pixel, at least 2
//   sub-blocks          a length of 251 or 252, then that many bytes of codes,
//                       least significant bit first; the last one is shorter
//   terminator          0
//
// Codes below the clear code stand for one pixel, the others for a string already
// in the dictionary and one pixel more. Code size grows from minimum + 1 to 12
// bits. A dictionary that has run full is used for one more string; then the clear
// code restarts it.
//
// The codes depend only on what the dictionary holds, not on how it is searched.
// Here it is a table with linear probing whose slots hold prefix, suffix and code in
// one word, so that a step costs one load and one comparison.
#include "pipeline/lzw_writer.h"

#include <algorithm>
#include <cstring>

namespace tess {

namespace {

constexpr int kLargestCodeBits = 12;
/// From this many bytes on, the buffer is written before another code goes in.
constexpr int kFullBuffer = 251;

/// Pixels are taken in runs of this many at most, a byte each.
constexpr int kRunPixels = 256;

bool WriteSubBlock(std::FILE* stream, const std::uint8_t* bytes, int count) {
    return std::fputc(count, stream) != EOF &&
           std::fwrite(bytes, 1, static_cast<std::size_t>(count), stream) ==
               static_cast<std::size_t>(count);
}

void RestartDictionary(LzwState* state) {
    state->NextCode = state->ClearCode + 2;
    std::memset(state->Codes, 0, kLzwSlots * sizeof(*state->Codes));
}

/// Sets the code sizes of a fresh dictionary for pixels of `bits` bits.
void StartCodes(int bits, LzwState* state) {
    state->CodeBits = std::max(bits, 2) + 1;
    state->ClearCode = 1 << (state->CodeBits - 1);
    state->EndCode = state->ClearCode + 1;
    state->NextLimit = 1 << state->CodeBits;
    RestartDictionary(state);
}

/// The slot of the string `key`, or the free one where it belongs.
std::uint32_t* FindSlot(const LzwState* state, std::uint32_t key) {
    constexpr std::uint32_t kSpread = 2654435761U;  // 2^32 over the golden ratio
    std::uint32_t slot = (key * kSpread) >> 19;
    while (state->Codes[slot] != 0 && state->Codes[slot] >> 12 != key) {
        slot = (slot + 1) & (kLzwSlots - 1);
    }
    return &state->Codes[slot];
}

/// One picture's way through the dictionary. The pending string is made of the pixels
/// so far that no code has been put for.
struct Encoder {
    std::FILE* stream;
    LzwState* state;
    int bits;  ///< per pixel
    bool has_pending = false;
    std::uint32_t pending = 0;
};

/// Puts the pending string, enters it with the pixel that ended it, and lets the
/// code size follow.
bool PutString(const Encoder& encoder, std::uint32_t key, std::uint32_t* slot) {
    LzwState* state = encoder.state;
    if (!LzwPutCode(encoder.stream, static_cast<int>(key >> 8), state)) return false;
    const int code = state->NextCode;
    if (code < kLzwCodes) {
        *slot = key << 12 | static_cast<std::uint32_t>(code);
        ++state->NextCode;
    }
    if (code != state->NextLimit) return true;
    if (state->CodeBits < kLargestCodeBits) {
        ++state->CodeBits;
        state->NextLimit *= 2;
        return true;
    }
    if (!LzwPutCode(encoder.stream, state->ClearCode, state)) return false;
    StartCodes(encoder.bits, state);
    return true;
}

bool PutPixels(Encoder& encoder, const std::uint8_t* pixels, int count) {
    const auto mask = static_cast<std::uint32_t>((1 << encoder.bits) - 1);
    int i = 0;
    if (!encoder.has_pending && count > 0) {
        encoder.has_pending = true;
        encoder.pending = pixels[i++] & mask;
    }
    std::uint32_t string = encoder.pending;
    for (; i < count; ++i) {
        const std::uint32_t pixel = pixels[i] & mask;
        const std::uint32_t key = string << 8 | pixel;
        std::uint32_t* slot = FindSlot(encoder.state, key);
        if (*slot != 0) {
            string = *slot & (kLzwCodes - 1);
            continue;
        }
        if (!PutString(encoder, key, slot)) return false;
        string = pixel;
    }
    encoder.pending = string;
    return true;
}

/// Spreads `count` pixels of 1 or 4 bits, from `x` on, to a byte each.
void SpreadPixels(const std::uint8_t* row, int x, int count, int bits, std::uint8_t* pixels) {
    for (int i = 0; i < count; ++i, ++x) {
        pixels[i] = static_cast<std::uint8_t>(bits == 1      ? row[x >> 3] >> (7 - (x & 7)) & 1
                                              : (x & 1) == 0 ? row[x >> 1] >> 4
                                                             : row[x >> 1] & 15);
    }
}

bool PutRow(Encoder& encoder, const std::uint8_t* row, int width) {
    if (encoder.bits > 4) return PutPixels(encoder, row, width);
    std::uint8_t pixels[kRunPixels];
    for (int x = 0; x < width; x += kRunPixels) {
        const int count = std::min(kRunPixels, width - x);
        SpreadPixels(row, x, count, encoder.bits, pixels);
        if (!PutPixels(encoder, pixels, count)) return false;
    }
    return true;
}

/// Puts all rows, from the top or in the four passes of an interlaced image.
bool PutRows(Encoder& encoder, const PackedDib* image, bool interlaced) {
    struct Pass {
        int first, step;
    };
    constexpr Pass kAllRows[] = {{0, 1}};
    constexpr Pass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    const Pass* pass = interlaced ? kInterlaced : kAllRows;
    for (int passes = interlaced ? 4 : 1; passes > 0; --passes, ++pass) {
        for (int y = pass->first; y < image->Height; y += pass->step) {
            if (!PutRow(encoder, DibRow(image, y), image->Width)) return false;
        }
    }
    return true;
}

}  // namespace

int LzwPutCode(std::FILE* stream, int code, LzwState* state) {
    state->ByteIndex = state->BitPosition >> 3;
    state->BitIndex = state->BitPosition & 7;
    if (state->ByteIndex >= kFullBuffer) {
        if (!WriteSubBlock(stream, state->Buffer, state->ByteIndex)) return 0;
        state->Buffer[0] = state->Buffer[state->ByteIndex];
        state->ByteIndex = 0;
        state->BitPosition = state->BitIndex;
    }
    std::uint8_t* place = state->Buffer + state->ByteIndex;
    // A byte that no bits of this block have reached may hold an earlier one's.
    const unsigned partial = state->BitIndex == 0 ? 0U : *place;
    const unsigned bits = partial | static_cast<unsigned>(code) << state->BitIndex;
    place[0] = static_cast<std::uint8_t>(bits);
    place[1] = static_cast<std::uint8_t>(bits >> 8);
    place[2] = static_cast<std::uint8_t>(bits >> 16);
    state->BitPosition += state->CodeBits;
    return 1;
}

int LzwWriteImage(std::FILE* stream, const PackedDib* image, const GifImageDescriptor* descriptor,
                  LzwState* state) {
    const int bits = (descriptor->Packed & 7) + 1;
    if (std::fputc(std::max(bits, 2), stream) == EOF) return 0;
    StartCodes(bits, state);
    state->BitPosition = 0;
    if (!LzwPutCode(stream, state->ClearCode, state)) return 0;
    Encoder encoder{stream, state, bits};
    if (!PutRows(encoder, image, (descriptor->Packed & kGifInterlaced) != 0)) return 0;
    // A picture without pixels has no first one to start from: only the two codes.
    if (encoder.has_pending && !LzwPutCode(stream, static_cast<int>(encoder.pending), state)) {
        return 0;
    }
    if (!LzwPutCode(stream, state->EndCode, state)) return 0;
    if (state->BitPosition > 0 &&
        !WriteSubBlock(stream, state->Buffer, (state->BitPosition + 7) / 8)) {
        return 0;
    }
    return std::fputc(0, stream) != EOF ? 1 : 0;
}

}  // namespace tess
