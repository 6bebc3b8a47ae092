#include "fills/gradient_preview.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "fills/gradient_dialog.h"
#include "runtime/mathematics.h"

namespace tess {

namespace {

using platform::PixelSize;
using platform::WindowHandle;

constexpr int kMargin = 2;  // pixels of the preview that no point lies on

/// The drag that is under way, or was last.
struct Drag {
    PreviewPoint point;
    bool is_marker_shown;
};
Drag drag{};

PreviewPoint CenterOf(PixelSize client) {
    return {client.Width / 2, client.Height / 2};
}

/// A preview too small to have an inside would divide by zero.
int InnerLength(int length) {
    return std::max(length - 2 * kMargin, 1);
}

PreviewMarker LineMarker(PixelSize client, int rotation) {
    constexpr double kRadians = std::numbers::pi / 180.0;
    const double angle = (rotation + 180) * kRadians;
    const auto [x, y] = CenterOf(client);
    return {true,
            {{{x, y, x + static_cast<int>(client.Width * runtime::Cosine(angle)),
               y + static_cast<int>(client.Width * runtime::Sine(angle))}}}};
}

PreviewMarker CrossMarker(PreviewPoint point) {
    const auto [x, y] = point;
    return {false,
            {{{x + 2, y - 2, x + 7, y + 2},
              {x - 2, y - 2, x - 7, y + 2},
              {x - 2, y + 2, x + 2, y + 7},
              {x - 2, y - 2, x + 2, y - 7}}}};
}

void SetSigned(WindowHandle dialog, int id, int value) {
    platform::SetControlNumber(dialog, id, static_cast<std::uint32_t>(value), true);
}

/// Writes what the point says into the edits, whose changes the dialog stores.
void DragTo(WindowHandle control, std::intptr_t place) {
    const Gradient* gradient = EditedGradient();
    if (gradient == nullptr) return;
    const WindowHandle dialog = platform::ParentDialog(control);
    const PixelSize client = platform::ClientSize(control);
    drag.point = HoldInPreview(client, {platform::MouseX(place), platform::MouseY(place)});
    if (DragSetsRotation(gradient->Type)) {
        SetSigned(dialog, kRotationEdit, RotationAt(client, drag.point));
        return;
    }
    const PreviewPoint center = CenterAt(client, drag.point);
    SetSigned(dialog, kCenterXEdit, center.X);
    SetSigned(dialog, kCenterYEdit, center.Y);
}

}  // namespace

PreviewPoint HoldInPreview(PixelSize client, PreviewPoint point) {
    const auto hold = [](int place, int length) {
        return std::clamp(place, kMargin, std::max(length - kMargin - 1, kMargin));
    };
    return {hold(point.X, client.Width), hold(point.Y, client.Height)};
}

bool DragSetsRotation(GradientType type) {
    return type != GradientType::Elliptical && type != GradientType::Rectangular;
}

int RotationAt(PixelSize client, PreviewPoint point) {
    const auto [center_x, center_y] = CenterOf(client);
    const int dx = center_x - point.X, dy = center_y - point.Y;
    const int radius = static_cast<int>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
    constexpr int kHalfTurn = 180, kTurn = 360;
    if (radius == 0) return kHalfTurn;  // the centre itself has no quadrant
    int angle = dy * dy * 90 / (radius * radius);
    if (point.X >= center_x) {
        if (point.Y >= center_y) angle = kTurn - angle;
    } else if (point.Y < center_y) {
        angle = kHalfTurn - angle;
    } else {
        angle += kHalfTurn;
    }
    return kHalfTurn - angle;
}

PreviewPoint CenterAt(PixelSize client, PreviewPoint point) {
    // From the edge of the client, not of its inside, which the 51 makes up for.
    return {point.X * 100 / InnerLength(client.Width) - 51,
            point.Y * 100 / InnerLength(client.Height) - 51};
}

PreviewMarker MarkerOf(GradientType type, PixelSize client, int rotation, PreviewPoint point) {
    return DragSetsRotation(type) ? LineMarker(client, rotation) : CrossMarker(point);
}

void ForgetPreviewMarker() {
    drag.is_marker_shown = false;
}

bool TakePreviewMarker(WindowHandle control, PreviewMarker* marker) {
    const Gradient* gradient = EditedGradient();
    if (gradient == nullptr || drag.is_marker_shown || !platform::HasMouse(control)) return false;
    const auto rotation = static_cast<std::int32_t>(
        platform::ControlNumber(platform::ParentDialog(control), kRotationEdit, true));
    *marker = MarkerOf(gradient->Type, platform::ClientSize(control),
                       std::clamp(rotation, -360, 360), drag.point);
    drag.is_marker_shown = true;
    return true;
}

std::intptr_t GradientPreview(WindowHandle control, std::uint32_t message, std::uintptr_t w,
                              std::intptr_t l) {
    switch (message) {
        case platform::kMessageLeftButtonDown:
        case platform::kMessageLeftDoubleClick:  // the second of two quick presses
            platform::CaptureMouse(control);
            DragTo(control, l);
            return 0;
        case platform::kMessageMouseMove:
            if (platform::HasMouse(control)) DragTo(control, l);
            return 0;
        case platform::kMessageLeftButtonUp:
            if (!platform::HasMouse(control)) return 0;
            DragTo(control, l);
            platform::ReleaseMouse();
            platform::RepaintControl(platform::ParentDialog(control), platform::ControlId(control));
            return 0;
        default:
            return platform::CallOriginal(control, message, w, l);
    }
}

}  // namespace tess
