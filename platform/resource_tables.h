// The tables that resources/compiler writes: all resources of the project.
#pragma once

#include <span>
#include <string_view>

#include "platform/resources.h"

namespace platform {

struct StringResource {
    int id;
    std::string_view text;
};

struct DataResource {
    int id;                 ///< 0 for one that is known by name
    std::string_view name;  ///< in capitals
    std::span<const unsigned char> bytes;
};

struct ResourceTables {
    std::span<const DialogTemplate> dialogs;
    std::span<const StringResource> strings;
    std::span<const DataResource> data;
};

extern const ResourceTables kResourceTables;

}  // namespace platform
