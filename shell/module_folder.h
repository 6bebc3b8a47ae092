// Where the plug-in lies.
#pragma once

#include <string>

namespace tess {

/// The folder of the library, with a trailing separator. Set at the start of each run
/// (PLUGIN16DoBuild); empty before.
extern std::string ModuleFolder;

}  // namespace tess
