// Writes what a resource script holds as C++ tables.
#pragma once

#include <iosfwd>
#include <string>

#include "resources/compiler/resource_script.h"

namespace resource_compiler {

/// Writes the source that defines platform::kResourceTables. Data files are read
/// from `folder`, which ends in a slash or is empty, and added to
/// `script->files`. Returns false with the error's text.
[[nodiscard]] bool WriteTables(ResourceScript* script, const std::string& folder,
                               std::ostream& output, std::string* error);

}  // namespace resource_compiler
