#include "toolkit/shape_sprites.h"

#include "platform/graphics_service.h"

namespace tess {

std::int64_t RunShapeRequest(ShapeRequest* request) {
    switch (request->Op) {
        case ShapeOp::Start:
            return platform::StartGraphics(&request->Token);
        case ShapeOp::Stop:
            platform::StopGraphics(request->Token);
            return 1;
    }
    return 0;
}

}  // namespace tess
