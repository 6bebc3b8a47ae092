// Material files: 1270 bytes, docs/formats/material.md has the layout. They differ from
// the record in that each handle has 4 bytes in place of 8.
#pragma once

#include <cstdint>
#include <string_view>

#include "fills/material.h"

namespace tess {

#pragma pack(push, 1)
/// A fountain whose preview field has 4 bytes.
struct NarrowedFountain {
    char Magic[8];
    std::uint32_t Version;
    std::uint32_t Size;  ///< 581
    std::uint32_t Flags;
    char Name[260];
    char NameEnd;           ///< zero
    std::uint32_t Preview;  ///< zero
    std::int32_t Count;
    ColorWord Start;
    ColorWord End;
    FountainMarker Markers[kFountainMarkers];
    std::uint8_t ControlState[28];  ///< zero
};
#pragma pack(pop)
static_assert(sizeof(NarrowedFountain) == 581);

/// These carry over everything but the size, which becomes that of the form, and the
/// state of a control with its preview, which become zero.
void NarrowFountain(NarrowedFountain* out, const Fountain& in);
void WidenFountain(Fountain* out, const NarrowedFountain& in);

/// Reads a file into a record, whose tile and preview then have no pictures. Returns 0
/// and leaves the record as it is when the file cannot be opened, is short or has
/// another magic.
[[nodiscard]] int ReadMaterialFile(std::string_view path, Material* material);

/// Returns a new record, or null without memory; FreeMaterial frees it. With `use_file`
/// nonzero it is that of the file, with its tile's picture, if that can be read;
/// otherwise a plain one of `color`.
[[nodiscard]] MaterialHandle LoadMaterial(std::string_view path, ColorWord color, int use_file);

/// Writes the record to the file, whole or not at all. Returns 1 on success.
int SaveMaterial(MaterialHandle handle, std::string_view path);

}  // namespace tess
