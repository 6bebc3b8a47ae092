// The ramp of a gradient. From a fountain: the fountain's strip between two plain
// ends. From two colours: a plain mix, or, where the midpoint is shifted, the strip
// of a fountain made for the purpose. In that one the even mix stands at the
// midpoint, counted without the left end, and the right end is lost: both are
// meant. The two-colour ramps always begin and end in their two colours.
#include <algorithm>

#include "fills/gradient.h"

namespace tess {

namespace {

constexpr int kNoShift = 50;

/// The first product in single precision, the rest in double.
ColorWord MixColors(ColorWord from, ColorWord to, float t) {
    const auto mix = [t](std::uint8_t from_channel, std::uint8_t to_channel) {
        const float part = static_cast<float>(to_channel) * t;
        return static_cast<int>(double{part} + from_channel * (1.0 - t));
    };
    return MakeColor(mix(RedOf(from), RedOf(to)), mix(GreenOf(from), GreenOf(to)),
                     mix(BlueOf(from), BlueOf(to)));
}

/// Sets `count` colours to the fountain's strip. Returns false without memory.
bool CopyStrip(const Fountain& fountain, int count, ColorWord* colors) {
    const platform::OwnedBlock strip(RenderFountainImage(fountain, count, 1));
    const LockedImage image(strip.Get());
    if (!image) return false;
    for (int i = 0; i < count; ++i)
        colors[i] = GetDibPixel(image, i, 0) & kColorBits;
    return true;
}

/// A pad of more than half the ramp would be written outside it.
int EdgePadOf(const Gradient& gradient) {
    return std::clamp(std::int32_t{gradient.EdgePad}, 0, 50);
}

Fountain ShiftedFountain(const Gradient& gradient) {
    const int pad = static_cast<int>(EdgePadOf(gradient) / 100.0 * 255.0);
    const int midpoint = std::clamp(std::int32_t{gradient.Midpoint}, 0, 100);
    const int middle = static_cast<int>((255 - 2 * pad) * (midpoint / 100.0));
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    fountain.Start = gradient.StartColor;
    fountain.End = (gradient.EndColor & kColorBits) | 0xFF000000;
    fountain.Count = 2;
    fountain.Markers[0] = MakeMarker(pad, gradient.StartColor);
    fountain.Markers[1] =
        MakeMarker(middle, MixColors(gradient.StartColor, gradient.EndColor, 0.5F));
    // Written but not counted: the run after the middle must go to the end.
    fountain.Markers[2] = MakeMarker(255 - pad, gradient.EndColor);
    return fountain;
}

bool FillRamp(const Gradient& gradient, int count, ColorWord* colors) {
    const int pad = static_cast<int>(EdgePadOf(gradient) / 100.0 * count);
    const int inner = count - 2 * pad;
    for (int i = 0; i < pad; ++i) {
        colors[i] = gradient.StartColor;
        colors[count - pad + i] = gradient.EndColor;
    }
    if (gradient.TwoColor == 0) return CopyStrip(gradient.Ramp, inner, colors + pad);
    if (gradient.Midpoint == kNoShift) {
        for (int i = 0; i < inner; ++i) {
            const float t = static_cast<float>(i) / static_cast<float>(inner);
            colors[pad + i] = MixColors(gradient.StartColor, gradient.EndColor, t);
        }
    } else if (!CopyStrip(ShiftedFountain(gradient), count, colors)) {
        return false;
    }
    colors[0] = gradient.StartColor;
    colors[count - 1] = gradient.EndColor;
    return true;
}

}  // namespace

RampHandle BuildGradientRamp(const Gradient& gradient, int count) {
    if (count < 0) return nullptr;
    platform::OwnedBlock block(
        platform::AllocateBlock(sizeof(ColorWord) * (1 + static_cast<std::size_t>(count))));
    {
        const LockedRamp ramp(block.Get());
        if (!ramp) return nullptr;
        ramp->Count = static_cast<std::uint32_t>(count);
        if (count > 0 && !FillRamp(gradient, count, ramp->Colors())) return nullptr;
    }
    return block.Release();
}

}  // namespace tess
