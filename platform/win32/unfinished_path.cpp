#include "platform/unfinished_path.h"

namespace platform {

UnfinishedPath::UnfinishedPath(std::string_view) {}

void UnfinishedPath::Forget() {
    place_ = -1;
}

EndingHeld::EndingHeld() = default;
EndingHeld::~EndingHeld() = default;

}  // namespace platform
