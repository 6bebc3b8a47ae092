// Painting pictures in windows. Windows only.
#pragma once

#include "pipeline/image_buffers.h"

struct HDC__;  // a device context of the system

namespace tess {

/// Draws the picture at its own size with its top left at (x, y); one with a colour
/// table through a logical palette of its colours. Does nothing for a null handle.
void PaintDib(HDC__* device, int x, int y, ImageHandle image);

}  // namespace tess
