#include "platform/resources.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "platform/resource_tables.h"

namespace platform {

namespace {

/// Finds the row with the number `id`, or, where `name` is not empty, that name.
template <class Row>
const Row* FindRow(std::span<const Row> rows, int id, std::string_view name) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) {
        return name.empty() ? candidate.name.empty() && candidate.id == id
                            : IsSameName(candidate.name, name);
    });
    return row == rows.end() ? nullptr : &*row;
}

std::span<const std::byte> Bytes(const DataResource* resource) {
    return resource == nullptr ? std::span<const std::byte>() : std::as_bytes(resource->bytes);
}

}  // namespace

const DialogTemplate* FindDialogTemplate(int id) {
    return FindRow(kResourceTables.dialogs, id, "");
}

const DialogTemplate* FindDialogTemplate(std::string_view name) {
    return name.empty() ? nullptr : FindRow(kResourceTables.dialogs, 0, name);
}

std::string_view FindString(int id) {
    const auto row =
        std::find_if(kResourceTables.strings.begin(), kResourceTables.strings.end(),
                     [id](const StringResource& candidate) { return candidate.id == id; });
    return row == kResourceTables.strings.end() ? std::string_view() : row->text;
}

std::span<const std::byte> FindData(int id) {
    return Bytes(FindRow(kResourceTables.data, id, ""));
}

std::span<const std::byte> FindData(std::string_view name) {
    return name.empty() ? std::span<const std::byte>()
                        : Bytes(FindRow(kResourceTables.data, 0, name));
}

}  // namespace platform
