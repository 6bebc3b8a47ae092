// The first colours of an animation, for one that needs no quantizing.
#pragma once

#include <cstdint>

#include "pipeline/image_buffers.h"

namespace tess {

class UniqueColors {
public:
    /// Goes on with `image` (24 bits), rows from the top, each from the left.
    void Gather(const PackedDib* image);

    /// Returns how many colours there are. Once 256 are stored, each further
    /// pixel counts as one more, be its colour new or not, and the count stops at
    /// 257: so 256 colours may count as too many.
    [[nodiscard]] int Count() const { return count_; }

    /// Writes the stored colours (red, green, blue) in order of appearance.
    void Write(std::uint8_t* palette) const;

private:
    static constexpr int kPlaces = 1024;  // a power of two, well above the entries

    void Add(ColorWord color);

    ColorWord colors_[kPaletteEntries] = {};
    std::uint16_t places_[kPlaces] = {};  // open hash table: index + 1; 0: free
    int count_ = 0;
};

}  // namespace tess
