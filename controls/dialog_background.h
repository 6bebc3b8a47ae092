// What dialogs are filled with: the system's face colour, or a picture tinted by it.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

inline constexpr int kBackgroundResource = 7012;

/// Configuration: 1 fills dialogs with the face colour alone.
extern std::uint32_t SolidBackground;

/// True where dialogs are filled with the face colour alone: with SolidBackground
/// set, or on a screen of 8 bits a pixel or fewer.
[[nodiscard]] bool IsBackgroundSolid(int screen_bits);

/// The colour by which the picture's channels are moved: the face colour, or where
/// that is brighter than 200, (2 x shadow + face) / 3 a channel.
[[nodiscard]] ColorWord BackgroundTint(ColorWord face, ColorWord shadow);

/// A channel moved by the tint's channel - 128, held in 0 to 255.
[[nodiscard]] int TintedChannel(int channel, int tint);

/// Returns the tinted picture, 24 bits, or null. The caller owns it.
[[nodiscard]] ImageHandle MakeDialogBackground(ColorWord tint);

}  // namespace tess
