// The elements of the current matrix group as the list of the Matrix dialog: an entry
// each, without a text, with the element's picture as its data.
#pragma once

#include "fills/matrix_group_file.h"
#include "pipeline/image_buffers.h"
#include "platform/dialog.h"

namespace tess {

inline constexpr int kMatrixElementList = 102;
inline constexpr int kMatrixElementSide = 48;  ///< of an entry, pixels

/// What is known of the group in the list.
struct MatrixGroupState {
    bool IsWriteable = false;  ///< may be changed
    bool IsDirty = false;      ///< differs from its file
};
extern MatrixGroupState CurrentMatrixGroup;

/// Puts the elements of the file MatrixGroupFile into the list, in place of those that
/// are there. What is in the list stays where the file is missing or damaged, as does the
/// state.
[[nodiscard]] GroupReading LoadMatrixGroup(platform::WindowHandle dialog);

/// Writes the list to MatrixGroupFile, as a group that may be changed. Returns nonzero
/// on success.
[[nodiscard]] int SaveMatrixGroup(platform::WindowHandle dialog);

/// Stays the list's. Null for an index out of range.
[[nodiscard]] ImageHandle MatrixElementAt(platform::WindowHandle dialog, int index);

/// Adds a picture at the end of the list, which owns it then. Returns 1, or 0: it stays
/// the caller's.
[[nodiscard]] int AddMatrixElement(platform::WindowHandle dialog, ImageHandle element);
void DeleteMatrixElement(platform::WindowHandle dialog, int index);
/// Empties the list.
void FreeMatrixElements(platform::WindowHandle dialog);

/// Where a picture is drawn, in pixels.
struct ElementBox {
    int X, Y, Width, Height;
    bool operator==(const ElementBox&) const = default;
};
/// The place of an element's picture of the size `width` by `height` in its entry:
/// made to fit the entry less its edge, in whole percents, and centred.
[[nodiscard]] ElementBox PlaceElement(const ElementBox& entry, int width, int height,
                                      bool is_selected);

}  // namespace tess
