// The numbers of a texture's record by their places in it, for the tables that name them.
// The record is packed, so a number in it may have no reference of its own type.
#pragma once

#include <cstddef>
#include <cstring>

#include "fills/texture.h"

namespace tess {

// Offsets of the numbers that stand in rows, by layer or point.
constexpr std::size_t NthNumber(std::size_t first, std::size_t index) {
    return first + 4 * index;
}
constexpr std::size_t ForeColourAt(std::size_t layer) {
    return NthNumber(offsetof(TextureItem, ForeColour), layer);
}
constexpr std::size_t PowerAt(std::size_t layer) {
    return NthNumber(offsetof(TextureItem, Power), layer);
}
constexpr std::size_t SeedAt(std::size_t layer) {
    return NthNumber(offsetof(TextureItem, SeedValue), layer);
}
constexpr std::size_t DimensionAt(std::size_t layer) {
    return NthNumber(offsetof(TextureItem, Dimension), layer);
}
constexpr std::size_t ColorRedAt(std::size_t point) {
    return NthNumber(offsetof(TextureItem, ColorRed), point);
}
constexpr std::size_t ColorGreenAt(std::size_t point) {
    return NthNumber(offsetof(TextureItem, ColorGreen), point);
}
constexpr std::size_t ColorBlueAt(std::size_t point) {
    return NthNumber(offsetof(TextureItem, ColorBlue), point);
}

// Requires: the number at `offset` is of this type.
template <class Number>
[[nodiscard]] Number TextureNumber(const TextureItem& item, std::size_t offset) {
    Number number;
    std::memcpy(&number, reinterpret_cast<const char*>(&item) + offset, sizeof number);
    return number;
}
template <class Number>
void SetTextureNumber(TextureItem* item, std::size_t offset, Number number) {
    std::memcpy(reinterpret_cast<char*>(item) + offset, &number, sizeof number);
}

}  // namespace tess
