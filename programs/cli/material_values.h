// What can be shown and set of a material on the command line, as rows.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fills/material.h"

namespace tess {

enum class MaterialValueKind { Choice, Color, Number, Switch };

struct MaterialValue {
    const char* Name;
    MaterialValueKind Kind;
    int Least, Most;  ///< of a number; of a choice the indices
    std::int64_t (*Get)(const Material& material);
    void (*Set)(Material& material, std::int64_t value);
};

[[nodiscard]] std::span<const MaterialValue> MaterialValues();

/// The two keys that are no rows: the group of the tile, which is set by its name or path
/// and shown as a path, and the colors of the gradient's fountain, which it shows without
/// two-color.
inline constexpr char kTileGroupKey[] = "tile-group";
inline constexpr char kFountainKey[] = "fountain";

/// The value as people read it; a choice that is none as its number.
[[nodiscard]] std::string ShownMaterialValue(const MaterialValue& row, const Material& material);

/// Sets a value: one of the rows or of the two keys. Returns an empty text, or what is
/// wrong.
[[nodiscard]] std::string SetMaterialValue(Material* material, std::string_view name,
                                           std::string_view value);

/// What is wrong with the material's tile, empty when its group holds it. A material without
/// a group has the default tile, which is its element 0.
[[nodiscard]] std::string MaterialTileFault(const Material& material);

}  // namespace tess
