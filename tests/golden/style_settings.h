// Builds of a style with its start values and with random settings, the same in both
// builds, for the programs that hold all frames against something.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"
#include "shell/style_table.h"

namespace tess::test {

/// Index in StyleTable, -1 for no style's name.
[[nodiscard]] int FindStyle(std::string_view name);

/// Opens the main dialog without a user and with no configuration of this machine's,
/// calls `work` in it once and closes it.
void InMainDialog(void (*work)(platform::WindowHandle dialog, void* context), void* context);

/// Draws settings from a generator of its own.
class RandomSettings {
public:
    explicit RandomSettings(std::uint64_t seed) : random_(seed) {}

    /// From now on animations are long and their fountains looped, so that what they do
    /// from frame to frame shows, and the mesh of clouds, of which a tile shows the first
    /// to the last point, is no coarser than the tile: at the join there is a whole step
    /// of the mesh.
    void MakeLongLoops() { makes_long_loops_ = true; }

    /// Sets every control of the style; what makes pictures large or many stays small
    /// enough to be quick. Returns the settings as text: " 112=64 114=3".
    std::string SetAll(platform::WindowHandle dialog, const StyleEntry& style);

private:
    std::uint32_t Draw(std::uint32_t below);
    int DrawNumber(platform::WindowHandle dialog, const StyleParameter& parameter);
    int LoadFountain(platform::WindowHandle dialog, int id);
    int LoadTile(platform::WindowHandle dialog, int id);
    void Set(platform::WindowHandle dialog, const StyleParameter& parameter, std::string* line);

    std::uint64_t random_;
    bool makes_long_loops_ = false;
};

/// Runs the style's Test, as the dialog's sample does before anyone can build, and its
/// Build. Returns 0 when it failed. The caller frees the list.
[[nodiscard]] int BuildFrames(platform::WindowHandle dialog, const StyleEntry& style,
                              FrameList* frames);

}  // namespace tess::test
