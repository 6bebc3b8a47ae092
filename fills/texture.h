// Textures: pictures computed from a small record. The record is 268 packed
// little-endian bytes, the same in memory and in a material's file.
//
// Whether a texture joins itself depends on its kind: the fractal kinds do where the
// picture is square and of even width, Perturbation does at any size, Craters never.
//
// The renderers start the runtime's generator anew and keep the tables of
// Perturbation's noise, so they are not re-entrant.
#pragma once

#include <cstdint>
#include <span>

#include "pipeline/image_buffers.h"

namespace tess {

inline constexpr int kTextureLayers = 5;  ///< in the record; no kind uses the last
inline constexpr int kCurvePoints = 4;
/// What a colour curve starts as: nearly the line from dark to bright.
inline constexpr float kStartCurve[kCurvePoints] = {0.0F, 0.33F, 0.67F, 1.0F};
inline constexpr int kTextureKinds = 6;

enum class BubbleShape : std::int32_t { Ellipse, Fuzzy, Luminous, Sphere };
inline constexpr int kBubbleShapes = 4;

#pragma pack(push, 1)
/// Fields are named as the keys of a group file are, misspelled ones too.
struct TextureItem {
    std::int32_t TextureType;               ///< index into TextureKindTable
    std::int32_t Left, Top, Right, Bottom;  ///< the size to render; set before each render
    std::uint32_t Reserved20[5];            ///< zero
    std::uint32_t Reserved40;               ///< 1
    std::uint32_t Reserved44;               ///< zero
    float Reserved48[6];                    ///< kept and copied; nothing reads them
    std::int32_t MatrixSize;                ///< the fractals' mesh; Perturbation's octaves
    ColorWord ForeColour[kTextureLayers];
    ColorWord BackColour;
    float Power[kTextureLayers];  ///< exponents of the layers' fields
    std::int32_t SeedValue[kTextureLayers];
    float Dimension[kTextureLayers];  ///< fractal dimensions
    std::int32_t CreaterCount;        ///< tens of craters
    float CreaterDepth;               ///< an exponent
    float ColorRed[kCurvePoints];     ///< 0 to 1, as are the other two curves
    float ColorGreen[kCurvePoints];
    float ColorBlue[kCurvePoints];
    std::int32_t BubbleCount;
    std::int32_t BubbleSize;  ///< radius in pixels
    float BubblePower;
    float PerturbationPower;
    std::int32_t BubbleShape;      ///< of enum BubbleShape
    std::uint32_t Reserved236[8];  ///< zero
};
#pragma pack(pop)
static_assert(sizeof(TextureItem) == 268);

/// Writes the defaults into a zeroed record. The kind stays 0.
void InitTextureItem(TextureItem* item);

using RenderTextureFunction = ImageHandle (*)(const TextureItem& item);

struct TextureKindEntry {
    const char* Name;
    RenderTextureFunction Render;
    int Layers;                     ///< of a fractal; else 0
    std::span<const int> Controls;  ///< those that the dialog shows for the kind
};
extern const TextureKindEntry TextureKindTable[kTextureKinds];

/// Returns the kind's row, or null for a kind that is none.
[[nodiscard]] const TextureKindEntry* FindTextureKind(int kind);

/// What the kind alone promises of a picture of `width` x `height`: that its opposite
/// sides are neighbours.
[[nodiscard]] bool TextureTiles(int kind, int width, int height);

/// Renders an item of any kind, at the size of its target rectangle. Returns a new
/// 24-bit picture, owned by the caller, or null: without memory, or for a kind that is
/// none.
[[nodiscard]] ImageHandle RenderTexture(const TextureItem& item);
/// The same at a size of its own; the item's rectangle does not matter.
[[nodiscard]] ImageHandle RenderTextureAt(const TextureItem& item, int width, int height);

// The renderers of the table, with the same result.
[[nodiscard]] ImageHandle RenderFractalTexture(const TextureItem& item);
[[nodiscard]] ImageHandle RenderCraterTexture(const TextureItem& item);
[[nodiscard]] ImageHandle RenderPerturbationTexture(const TextureItem& item);

/// Lets the next Perturbation build the tables of its noise anew, from its own seed,
/// as the first one does in the life of the program or library. For tests, whose
/// outcome must not hang on which of them ran first.
void ForgetLatticeNoise();

}  // namespace tess
