#include "fills/matrix_element_list.h"

#include <algorithm>

#include "fills/group_list.h"
#include "fills/matrix_group_file.h"
#include "platform/block_guards.h"
#include "platform/list_box.h"

namespace tess {

MatrixGroupState CurrentMatrixGroup;

using platform::WindowHandle;

GroupReading LoadMatrixGroup(WindowHandle dialog) {
    MatrixGroup group;
    const GroupReading reading = ReadMatrixGroup(GroupPath(MatrixGroupFile), &group);
    if (reading != GroupReading::Whole) return reading;
    CurrentMatrixGroup.IsWriteable = group.IsWriteable;
    FreeMatrixElements(dialog);
    for (int i = 0; i < group.Count(); ++i) {
        platform::OwnedBlock element(group.Take(i));
        if (AddMatrixElement(dialog, element.Get()) == 0) {
            // A part of the group must not be written over the whole of it.
            FreeMatrixElements(dialog);
            CurrentMatrixGroup = {};
            return GroupReading::Damaged;
        }
        static_cast<void>(element.Release());  // the list owns it now
    }
    return reading;
}

int SaveMatrixGroup(WindowHandle dialog) {
    const int count = platform::ItemCount(dialog, kMatrixElementList);
    platform::WorkArray<ImageHandle> elements(static_cast<std::size_t>(count));
    if (!elements) return 0;
    for (int i = 0; i < count; ++i)
        elements[static_cast<std::size_t>(i)] = MatrixElementAt(dialog, i);
    return WriteMatrixGroup(GroupPath(MatrixGroupFile), {elements.data(), elements.size()});
}

ImageHandle MatrixElementAt(WindowHandle dialog, int index) {
    return static_cast<ImageHandle>(platform::ListItemData(dialog, kMatrixElementList, index));
}

int AddMatrixElement(WindowHandle dialog, ImageHandle element) {
    return platform::AddListItem(dialog, kMatrixElementList, "", element) < 0 ? 0 : 1;
}

void DeleteMatrixElement(WindowHandle dialog, int index) {
    const platform::OwnedBlock element(MatrixElementAt(dialog, index));
    platform::DeleteListItem(dialog, kMatrixElementList, index);
}

void FreeMatrixElements(WindowHandle dialog) {
    for (int i = platform::ItemCount(dialog, kMatrixElementList); i-- > 0;)
        platform::FreeBlock(MatrixElementAt(dialog, i));
    platform::ClearItems(dialog, kMatrixElementList);
}

ElementBox PlaceElement(const ElementBox& entry, int width, int height, bool is_selected) {
    constexpr int kEdge = 4;
    if (width < 1 || height < 1) return {entry.X, entry.Y, 0, 0};
    const ElementBox inner{entry.X + kEdge, entry.Y + kEdge, entry.Width - 2 * kEdge,
                           entry.Height - 2 * kEdge};
    const int percent = std::min(100 * inner.Width / width, 100 * inner.Height / height);
    const auto scale = [percent](int size) {
        return static_cast<int>(std::int64_t{size} * percent / 100);
    };
    const int shift = is_selected ? 1 : 0;
    return {inner.X + (inner.Width - scale(width)) / 2 + shift,
            inner.Y + (inner.Height - scale(height)) / 2 + shift, scale(width), scale(height)};
}

}  // namespace tess
