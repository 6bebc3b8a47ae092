#include "fills/material_file.h"

#include <cstddef>
#include <cstdio>
#include <cstring>

#include "fills/matrix_group_file.h"
#include "platform/files.h"

namespace tess {

namespace {

#pragma pack(push, 1)
struct StoredGradient {
    std::uint8_t Head[offsetof(Gradient, Ramp)];
    NarrowedFountain Ramp;
};
struct StoredTile {
    char File[kMatrixFileBytes];
    std::int32_t Element;
    std::uint32_t Image;  ///< zero
    raster::Rect TargetRect;
    std::uint32_t Flags;
    std::uint8_t Reserved[28];  ///< zero
};
struct StoredMaterial {
    char Magic[kMaterialMagicBytes];
    std::uint32_t Size;
    std::uint32_t Version;
    MaterialMode Mode;
    ColorWord SimpleColor;
    std::uint32_t Pressed;
    StoredGradient Gradient;
    TextureItem Texture;
    StoredTile Tile;
    std::uint32_t Preview;  ///< zero
    ColorWord AverageColor;
    std::uint8_t Reserved[28];  ///< zero
};
#pragma pack(pop)
static_assert(offsetof(StoredMaterial, Texture) == 649);
static_assert(offsetof(StoredMaterial, Tile) == 917);
static_assert(offsetof(StoredMaterial, Tile.TargetRect) == 1186);
static_assert(offsetof(StoredMaterial, AverageColor) == 1238);
static_assert(sizeof(StoredMaterial) == 1270);

/// What both forms of a fountain have by the same names.
template <class To, class From>
void CopyFountain(To* to, const From& from) {
    std::memset(static_cast<void*>(to), 0, sizeof *to);
    std::memcpy(to->Magic, from.Magic, sizeof to->Magic);
    to->Version = from.Version;
    to->Size = sizeof *to;
    to->Flags = from.Flags;
    std::memcpy(to->Name, from.Name, sizeof to->Name);
    to->Count = from.Count;
    to->Start = from.Start;
    to->End = from.End;
    std::memcpy(to->Markers, from.Markers, sizeof to->Markers);
}

/// What both forms of a material have by the same names, besides the fountain.
template <class To, class From>
void CopyMaterial(To* to, const From& from) {
    std::memcpy(to->Magic, from.Magic, sizeof to->Magic);
    to->Size = from.Size;
    to->Version = from.Version;
    to->Mode = from.Mode;
    to->SimpleColor = from.SimpleColor;
    to->Pressed = from.Pressed;
    to->Texture = from.Texture;
    std::memcpy(to->Tile.File, from.Tile.File, sizeof to->Tile.File);
    to->Tile.Element = from.Tile.Element;
    // Field by field: the rectangle of a packed record may lie at any address.
    to->Tile.TargetRect.left = from.Tile.TargetRect.left;
    to->Tile.TargetRect.top = from.Tile.TargetRect.top;
    to->Tile.TargetRect.right = from.Tile.TargetRect.right;
    to->Tile.TargetRect.bottom = from.Tile.TargetRect.bottom;
    to->Tile.Flags = from.Tile.Flags;
    to->AverageColor = from.AverageColor;
}

void Widen(Material* out, const StoredMaterial& in) {
    std::memset(static_cast<void*>(out), 0, sizeof *out);
    CopyMaterial(out, in);
    std::memcpy(static_cast<void*>(&out->Gradient), in.Gradient.Head, sizeof in.Gradient.Head);
    WidenFountain(&out->Gradient.Ramp, in.Gradient.Ramp);
}

void Narrow(StoredMaterial* out, const Material& in) {
    std::memset(static_cast<void*>(out), 0, sizeof *out);
    CopyMaterial(out, in);
    out->Size = kMaterialBytes;  // that of the record, in the file too
    std::memcpy(out->Gradient.Head, &in.Gradient, sizeof out->Gradient.Head);
    NarrowFountain(&out->Gradient.Ramp, in.Gradient.Ramp);
}

}  // namespace

void NarrowFountain(NarrowedFountain* out, const Fountain& in) {
    CopyFountain(out, in);
}

void WidenFountain(Fountain* out, const NarrowedFountain& in) {
    CopyFountain(out, in);
}

int ReadMaterialFile(std::string_view path, Material* material) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return 0;
    StoredMaterial stored;
    const bool is_whole = std::fread(&stored, sizeof stored, 1, stream) == 1;
    std::fclose(stream);
    if (!is_whole || std::memcmp(stored.Magic, kMaterialMagic, kMaterialMagicBytes) != 0) return 0;
    Widen(material, stored);
    return 1;
}

MaterialHandle LoadMaterial(std::string_view path, ColorWord color, int use_file) {
    platform::OwnedBlock block(platform::AllocateBlock(sizeof(Material)));
    {
        const LockedMaterial material(block.Get());
        if (!material) return nullptr;
        InitMaterial(material, color);
        if (use_file != 0 && ReadMaterialFile(path, material) != 0) {
            const std::string_view group = MatrixTilePath(material->Tile);
            if (!group.empty()) {
                material->Tile.Image = LoadMatrixElement(group, material->Tile.Element);
            }
        }
        material->Pressed = 0;
    }
    return block.Release();
}

int SaveMaterial(MaterialHandle handle, std::string_view path) {
    const LockedMaterial material(handle);
    if (!material) return 0;
    StoredMaterial stored;
    Narrow(&stored, *material.Get());
    platform::NewFile file(path, platform::FileMode::Binary);
    if (!file || std::fwrite(&stored, sizeof stored, 1, file.Stream()) != 1) return 0;
    return file.Commit();
}

}  // namespace tess
