#include "controls/current_host.h"

namespace tess {

const HostServices* CurrentHost = nullptr;

}  // namespace tess
