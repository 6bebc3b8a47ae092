// Requests to begin from, and what a finished picture shows.
#pragma once

#include "toolkit/shape_sprites.h"

namespace tess::test {

/// The service, started for the length of a scope.
class StartedShapes {
public:
    StartedShapes();
    StartedShapes(const StartedShapes&) = delete;
    StartedShapes& operator=(const StartedShapes&) = delete;
    ~StartedShapes();

private:
    ShapeRequest request_{};
};

inline constexpr ColorWord kRed = 0x0000FF;
inline constexpr ColorWord kGreen = 0x00FF00;
inline constexpr ColorWord kBlue = 0xFF0000;
inline constexpr ColorWord kWhite = 0xFFFFFF;

/// A box of `width` by `height`; all colours but the line's and text's are none.
ShapeRequest ShapeOfSize(ShapeOp op, int width, int height);

/// A smooth line in white.
ShapeRequest LineFrom(platform::VectorPoint from, platform::VectorPoint to, int width);

ShapeRequest GradientOfSize(ShapeGradientKind kind, int width, int height, ColorWord first,
                            ColorWord second);

/// Text in white on `target`, with the target's own font.
ShapeRequest TextOn(platform::TextTarget* target, const char* text, ShapeTextMode mode);

/// A picture of the service and what can be measured of it.
class ShapePicture {
public:
    explicit ShapePicture(ShapeRequest request);
    ShapePicture(const ShapePicture&) = delete;
    ShapePicture& operator=(const ShapePicture&) = delete;

    [[nodiscard]] bool IsThere() const { return static_cast<bool>(block_); }
    [[nodiscard]] ImageHandle Get() const { return block_.Get(); }
    [[nodiscard]] int Width() const;
    [[nodiscard]] int Height() const;
    [[nodiscard]] ColorWord At(int x, int y) const;
    /// How many pixels are covered, reckoned from one channel: full ones count 1. The
    /// channel is that of `color`'s highest.
    [[nodiscard]] double Area(ColorWord color = kWhite) const;
    /// The columns and rows that are not black: left, top, right and bottom inside.
    struct Extent {
        int left, top, right, bottom;
    };
    [[nodiscard]] Extent Covered() const;

private:
    platform::OwnedBlock block_;
};

}  // namespace tess::test
