// How the commands tell how smoothly an animation or a picture joins itself.
#pragma once

#include <span>

#include "host/json_writer.h"
#include "host/seams.h"

namespace tess {

struct NamedJoin {
    const char* name;  ///< in JSON
    const char* text;
    JoinFigures SeamFigures::*figures;
};

/// Those of an animation. A picture has the first two.
inline constexpr NamedJoin kJoins[] = {
    {"columns", "left to right", &SeamFigures::Columns},
    {"rows", "top to bottom", &SeamFigures::Rows},
    {"frames", "last to first", &SeamFigures::Frames},
};
inline constexpr std::span<const NamedJoin> kPictureJoins(kJoins, 2);

[[nodiscard]] bool HasAnySeam(const SeamFigures& figures, std::span<const NamedJoin> joins);

/// As a table with a head, on standard output.
void PrintJoins(const SeamFigures& figures, std::span<const NamedJoin> joins);

/// As the member "joins" of the object that is being written.
void WriteJoins(JsonWriter& json, const SeamFigures& figures, std::span<const NamedJoin> joins);

}  // namespace tess
