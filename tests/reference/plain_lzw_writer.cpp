#include "tests/reference/plain_lzw_writer.h"

#include <algorithm>
#include <cstddef>

namespace tess::test {

namespace {

constexpr std::uint32_t kSlots = 5003;

struct PlainLzwState {
    int Minimum = 0;  // the minimum code size
    int CodeBits = 0;
    int ClearCode = 0, EndCode = 0;
    int BitPosition = 0, ByteIndex = 0, BitIndex = 0;
    int NextLimit = 0;
    int NextCode = 0;
    std::vector<std::uint32_t> Prefixes = std::vector<std::uint32_t>(kSlots);
    std::vector<std::uint32_t> Codes = std::vector<std::uint32_t>(kSlots);
    std::vector<std::uint8_t> Suffixes = std::vector<std::uint8_t>(kSlots);
    std::vector<std::uint8_t> Buffer = std::vector<std::uint8_t>(259);
};

using Bytes = std::vector<std::uint8_t>;

void WriteSubBlock(Bytes* out, const PlainLzwState& state, int count) {
    out->push_back(static_cast<std::uint8_t>(count));
    out->insert(out->end(), state.Buffer.begin(), state.Buffer.begin() + count);
}

void PutCode(Bytes* out, int code, PlainLzwState* state) {
    state->ByteIndex = state->BitPosition >> 3;
    state->BitIndex = state->BitPosition & 7;
    if (state->ByteIndex >= 251) {
        WriteSubBlock(out, *state, state->ByteIndex);
        state->Buffer[0] = state->Buffer[static_cast<std::size_t>(state->ByteIndex)];
        state->ByteIndex = 0;
        state->BitPosition = state->BitIndex;
    }
    for (int bit = 0; bit < state->CodeBits; ++bit) {
        const int place = state->BitPosition + bit;
        std::uint8_t& byte = state->Buffer[static_cast<std::size_t>(place >> 3)];
        if ((place & 7) == 0) byte = 0;
        byte = static_cast<std::uint8_t>(byte | ((code >> bit) & 1) << (place & 7));
    }
    state->BitPosition += state->CodeBits;
}

void Start(PlainLzwState* state) {
    state->CodeBits = state->Minimum + 1;
    state->ClearCode = 1 << state->Minimum;
    state->EndCode = state->ClearCode + 1;
    state->NextCode = state->ClearCode + 2;
    state->NextLimit = 1 << state->CodeBits;
    std::fill(state->Codes.begin(), state->Codes.end(), 0U);
}

/// All pixels in the order in which they are taken, a byte each, `bits` bits of it.
Bytes PixelsInOrder(const PackedDib* image, const GifImageDescriptor& descriptor, int bits) {
    std::vector<int> rows;
    if ((descriptor.Packed & kGifInterlaced) != 0) {
        for (int y = 0; y < image->Height; y += 8)
            rows.push_back(y);
        for (int y = 4; y < image->Height; y += 8)
            rows.push_back(y);
        for (int y = 2; y < image->Height; y += 4)
            rows.push_back(y);
        for (int y = 1; y < image->Height; y += 2)
            rows.push_back(y);
    } else {
        for (int y = 0; y < image->Height; ++y)
            rows.push_back(y);
    }
    Bytes pixels;
    for (const int y : rows) {
        for (int x = 0; x < image->Width; ++x) {
            pixels.push_back(
                static_cast<std::uint8_t>(GetDibPixel(image, x, y) & ((1U << bits) - 1)));
        }
    }
    return pixels;
}

void PutMiss(Bytes* out, std::uint32_t ent, std::uint8_t c, std::uint32_t h, PlainLzwState* state) {
    PutCode(out, static_cast<int>(ent), state);
    const int before = state->NextCode;
    if (state->NextCode < 4096) {
        state->Prefixes[h] = ent;
        state->Suffixes[h] = c;
        state->Codes[h] = static_cast<std::uint32_t>(state->NextCode);
        state->NextCode += 1;
    }
    if (before == state->NextLimit) {
        if (state->CodeBits >= 12) {
            PutCode(out, state->ClearCode, state);
            Start(state);
        } else {
            state->CodeBits += 1;
            state->NextLimit *= 2;
        }
    }
}

}  // namespace

Bytes PlainLzwWriteImage(const PackedDib* image, const GifImageDescriptor& descriptor) {
    const int bits = (descriptor.Packed & 7) + 1;
    const int minimum = std::max(bits, 2);
    const Bytes pixels = PixelsInOrder(image, descriptor, bits);
    Bytes out{static_cast<std::uint8_t>(minimum)};
    PlainLzwState state;
    state.Minimum = minimum;
    Start(&state);
    PutCode(&out, state.ClearCode, &state);
    std::uint32_t ent = pixels.at(0);
    for (std::size_t i = 1; i < pixels.size(); ++i) {
        const std::uint8_t c = pixels[i];
        std::uint32_t h = ((std::uint32_t{c} << 5) ^ ent) % kSlots;
        bool hit = false;
        for (std::uint32_t step = 1; state.Codes[h] != 0; step += 2) {
            hit = state.Prefixes[h] == ent && state.Suffixes[h] == c;
            if (hit) break;
            h += step;
            while (h >= kSlots)
                h -= kSlots;
        }
        if (hit) {
            ent = state.Codes[h];
        } else {
            PutMiss(&out, ent, c, h, &state);
            ent = c;
        }
    }
    PutCode(&out, static_cast<int>(ent), &state);
    PutCode(&out, state.EndCode, &state);
    if (state.BitPosition > 0) WriteSubBlock(&out, state, (state.BitPosition + 7) / 8);
    out.push_back(0);
    return out;
}

}  // namespace tess::test
