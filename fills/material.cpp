#include "fills/material.h"

#include <algorithm>
#include <cstring>

namespace tess {

namespace {

constexpr ColorWord kGradientStart = 0x404040, kGradientEnd = 0xC0C0C0;
constexpr int kMiddle = 50;

void InitGradient(Gradient* gradient) {
    gradient->Type = GradientType::Linear;
    gradient->StartColor = kGradientStart;
    gradient->EndColor = kGradientEnd;
    gradient->Midpoint = kMiddle;
    gradient->TwoColor = 1;
    Fountain ramp{};
    InitFountain(&ramp, FountainPreset::SevenColors);
    gradient->Ramp = ramp;
}

void Fill(PackedDib* image, ColorWord color) {
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x)
            SetDibPixel(image, x, y, color);
    }
}

/// Copies as much of `source` as `image` has room for, from (left, top) on.
int CopyFrom(ImageHandle source_handle, int left, int top, PackedDib* image) {
    const LockedImage source(source_handle);
    if (!source) return 0;
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x)
            SetDibPixel(image, x, y, GetDibPixel(source, left + x, top + y));
    }
    return 1;
}

ImageHandle RenderTextureSquare(TextureItem* item, int side) {
    const TextureKindEntry* kind = FindTextureKind(item->TextureType);
    if (kind == nullptr) return nullptr;
    item->Left = item->Top = 0;
    item->Right = item->Bottom = side;
    return kind->Render(*item);
}

/// Field by field: the rectangle of a packed record may lie at any address.
void SetTargetRect(MatrixTile* tile, int width, int height) {
    tile->TargetRect.left = tile->TargetRect.top = 0;
    tile->TargetRect.right = width;
    tile->TargetRect.bottom = height;
}

/// Draws the material over the zeroed image. Returns 0 when a source failed.
int DrawMaterial(Material* material, PackedDib* image) {
    const int width = image->Width, height = image->Height;
    switch (material->Mode) {
        case MaterialMode::Simple:
            Fill(image, material->SimpleColor);
            return 1;
        case MaterialMode::Gradient: {
            const platform::OwnedBlock source(RenderGradient(width, height, material->Gradient));
            return CopyFrom(source.Get(), 0, 0, image);
        }
        case MaterialMode::Texture: {
            const int side = std::max(width, height);  // a fractal stays square
            const platform::OwnedBlock source(RenderTextureSquare(&material->Texture, side));
            return CopyFrom(source.Get(), (side - width) / 2, (side - height) / 2, image);
        }
        case MaterialMode::Tile: {
            SetTargetRect(&material->Tile, width, height);
            const platform::OwnedBlock source(RenderMatrixTile(material->Tile));
            return CopyFrom(source.Get(), 0, 0, image);
        }
        default:
            return 1;
    }
}

}  // namespace

void InitMaterial(Material* material, ColorWord color) {
    std::memset(static_cast<void*>(material), 0, sizeof *material);
    std::memcpy(material->Magic, kMaterialMagic, kMaterialMagicBytes);
    material->Size = kMaterialBytes;
    material->Version = kMaterialVersion;
    material->SimpleColor = color;
    InitGradient(&material->Gradient);
    InitTextureItem(&material->Texture);
}

bool HasMaterialMagic(const Material& material) {
    return std::memcmp(material.Magic, kMaterialMagic, kMaterialMagicBytes) == 0;
}

void ForgetMaterialHandles(Material* material) {
    material->Gradient.Ramp.Preview = nullptr;
    material->Tile.Image = nullptr;
    material->Preview = nullptr;
}

void FreeMaterial(MaterialHandle handle) {
    const platform::OwnedBlock block(handle);
    const LockedMaterial material(handle);
    if (!material) return;
    platform::FreeBlock(material->Tile.Image);
    platform::FreeBlock(material->Preview);
}

ImageHandle RenderMaterial(Material* material, int width, int height) {
    platform::OwnedBlock picture(NewPackedDib(width, height, nullptr, 24));
    {
        const LockedImage image(picture.Get());
        if (!image || DrawMaterial(material, image) == 0) return nullptr;
    }
    return picture.Release();
}

ColorWord AverageImageColour(ImageHandle handle) {
    const LockedImage image(handle);
    if (!image) return 0;
    std::uint32_t red = 0, green = 0, blue = 0, count = 0;
    for (int y = 0; y < image->Height; ++y) {
        for (int x = 0; x < image->Width; ++x, ++count) {
            const ColorWord color = GetDibPixel(image, x, y);
            red += RedOf(color);
            green += GreenOf(color);
            blue += BlueOf(color);
        }
    }
    if (count == 0) return 0;
    return MakeColor(static_cast<int>(red / count), static_cast<int>(green / count),
                     static_cast<int>(blue / count));
}

}  // namespace tess
