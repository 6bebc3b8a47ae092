// Groups of matrix tiles as files: reading one element, a whole group, and writing
// one. docs/formats/matrix_group.md has the layout.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "pipeline/image_buffers.h"

namespace tess {

inline constexpr char kDefaultMatrixGroup[] = "vorbelx1.mtx";

/// The file name of the current group, in PluginFile's folder; kept in the
/// configuration.
inline constexpr int kMatrixGroupFileBytes = 260;
extern char MatrixGroupFile[kMatrixGroupFileBytes];

/// Whether a user's picture is refused as an element. One side alone may exceed the limit.
[[nodiscard]] constexpr bool IsTooLargeForTile(const PackedDib& image) {
    constexpr int kLargest = 512;  // pixels
    return image.Width > kLargest && image.Height > kLargest;
}

/// The elements of a group in order. Owns their pictures.
class MatrixGroup {
public:
    MatrixGroup() = default;
    MatrixGroup(const MatrixGroup&) = delete;
    MatrixGroup& operator=(const MatrixGroup&) = delete;
    ~MatrixGroup() { FrameListFree(&elements_); }

    bool IsWriteable = false;

    [[nodiscard]] int Count() const { return elements_.Count; }
    /// Null for an index out of range. Stays the group's.
    [[nodiscard]] ImageHandle Element(int index) const;
    /// The caller owns it then; null is left in its place.
    [[nodiscard]] ImageHandle Take(int index);
    /// Adds a picture at the end, and owns it. Returns 1, or 0 without memory: it
    /// stays the caller's.
    [[nodiscard]] int Add(ImageHandle element);

private:
    FrameList elements_{};
};

/// Returns the element with that index as a new picture, owned by the caller. Null
/// for a file or an element that is not there, is no such file or is damaged.
[[nodiscard]] ImageHandle LoadMatrixElement(std::string_view path, int index);

enum class GroupReading {
    Whole,
    Missing,  ///< the file could not be opened
    Damaged,  ///< it is no group, is cut off or holds what is no picture; or memory is short
};
/// Reads a whole group into `group`, which must be empty.
[[nodiscard]] GroupReading ReadMatrixGroup(std::string_view path, MatrixGroup* group);

/// Writes a group that may be changed, of those `elements` that can be locked; an
/// older file stays as PATH.bak, and in its place when the writing fails. Returns
/// nonzero on success.
[[nodiscard]] int WriteMatrixGroup(std::string_view path, std::span<const ImageHandle> elements);

}  // namespace tess
