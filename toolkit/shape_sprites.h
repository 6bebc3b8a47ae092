// The service for anti-aliased shapes: one entry, which a record tells what to do.
// What stands here so far is its start and its end; the operations that draw, 3 to 8,
// are not made yet, and no part of the program calls them.
#pragma once

#include <cstdint>

namespace tess {

enum class ShapeOp : std::int32_t {
    Start = 1,  ///< starts the service and stores `Token`
    Stop = 2,   ///< stops the service that `Token` started
};

/// One call of the service. The caller zeroes it and fills in what the operation reads.
struct ShapeRequest {
    std::uint64_t Token;
    std::int32_t Left, Top, Right, Bottom;
    ShapeOp Op;
};

/// Returns 1 when the operation was done, 0 when it failed or is unknown.
std::int64_t RunShapeRequest(ShapeRequest* request);

}  // namespace tess
