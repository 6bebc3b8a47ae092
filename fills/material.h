// Materials: one fill out of four modes, a plain colour, a gradient, a texture or a
// matrix tile. The record is 1282 packed little-endian bytes, the same in memory and,
// as hexadecimal text, in a document. It keeps what belongs to all four modes, so that
// a change of the mode loses nothing.
#pragma once

#include <cstdint>

#include "fills/gradient.h"
#include "fills/matrix_tile.h"
#include "fills/texture.h"
#include "pipeline/image_buffers.h"
#include "platform/block_guards.h"

namespace tess {

inline constexpr char kMaterialMagic[] = "QRVNCMAT";
inline constexpr int kMaterialMagicBytes = 8;
inline constexpr std::uint32_t kMaterialVersion = 0x00040000;
inline constexpr int kMaterialBytes = 1282;

/// Any other value draws black.
enum class MaterialMode : std::int32_t { Simple, Gradient, Texture, Tile };
inline constexpr int kMaterialModes = 4;
inline constexpr const char* kMaterialModeNames[kMaterialModes] = {"Simple", "Gradient", "Texture",
                                                                   "Tile"};

/// Bits of Material::Pressed.
inline constexpr std::uint32_t kFacePressed = 1;
inline constexpr std::uint32_t kArrowPressed = 2;

#pragma pack(push, 1)
struct Material {
    char Magic[kMaterialMagicBytes];  ///< kMaterialMagic
    std::uint32_t Size;               ///< 1282
    std::uint32_t Version;
    MaterialMode Mode;
    ColorWord SimpleColor;
    std::uint32_t Pressed;  ///< of a control
    tess::Gradient Gradient;
    TextureItem Texture;
    MatrixTile Tile;
    ImageHandle Preview;        ///< of a control, in memory alone
    ColorWord AverageColor;     ///< of the preview
    std::uint8_t Reserved[28];  ///< zero
};
#pragma pack(pop)
static_assert(sizeof(Material) == kMaterialBytes);

using MaterialHandle = platform::MemoryHandle;
using LockedMaterial = platform::LockedBlock<Material>;

/// Writes a plain colour, with the other modes' own defaults behind it. Its tile has no
/// picture.
void InitMaterial(Material* material, ColorWord color);

[[nodiscard]] bool HasMaterialMagic(const Material& material);

/// Clears what means nothing outside the run that made it. Frees nothing.
void ForgetMaterialHandles(Material* material);

/// Frees the block with the pictures that it owns, those of its tile and its preview.
void FreeMaterial(MaterialHandle handle);

/// Returns a new 24-bit picture, owned by the caller, or null. Sets the target
/// rectangle of the texture or tile that it renders. A texture is rendered as a square,
/// of which the middle is taken.
[[nodiscard]] ImageHandle RenderMaterial(Material* material, int width, int height);

/// The mean of each channel over all pixels of a 24-bit picture, each sum cut to 32
/// bits; 0 for an empty picture and for none.
[[nodiscard]] ColorWord AverageImageColour(ImageHandle image);

}  // namespace tess
