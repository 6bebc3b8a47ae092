#include "platform/unfinished_path.h"

namespace platform {

UnfinishedPath::UnfinishedPath(std::string_view) {}
UnfinishedPath::~UnfinishedPath() = default;

EndingHeld::EndingHeld() = default;
EndingHeld::~EndingHeld() = default;

}  // namespace platform
