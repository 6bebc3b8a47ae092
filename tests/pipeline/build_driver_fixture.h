// Runs of the build driver with a toy style, a recording host and a folder of the
// test's own.
#pragma once

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "platform/browser.h"
#include "platform/files.h"
#include "tests/shell_stand_in/shell_stand_in.h"
#include "tests/support/driver_run.h"
#include "tests/support/event_log.h"
#include "tests/support/gif_reader.h"
#include "tests/support/recording_host.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/toy_frames.h"

namespace tess::test {

inline constexpr ColorWord kBlack = 0x000000;
inline constexpr ColorWord kRed = 0x0000FF;    // luminance 77
inline constexpr ColorWord kGreen = 0x00FF00;  // luminance 150
inline constexpr ColorWord kBlue = 0xFF0000;   // luminance 28
inline constexpr ColorWord kWhite = 0xFFFFFF;  // luminance 255

class DriverTest : public testing::Test {
protected:
    DriverTest() {
        platform::SetPluginFolder(folder.Path());
        platform::SuppressBrowser(true);
        Shell() = {};
        Events().clear();
    }
    ~DriverTest() override {
        platform::SetPluginFolder("");
        platform::FailAllocation(0);
        Shell() = {};
    }

    /// Sets what the style delivers.
    static void Frames(std::vector<ToyFrame> frames) { Shell().build = Deliver(std::move(frames)); }
    static void Background(ColorWord color) { Shell().background = color; }

    int Run(BuildMode mode = BuildMode::Build) {
        return RunDriver(settings, host.Services(), mode);
    }

    /// The colours of the task's first palette entries.
    [[nodiscard]] std::vector<ColorWord> Palette(int count) const {
        std::vector<ColorWord> colors;
        for (const std::uint8_t* entry = host.task.Palette; count > 0; --count, entry += 3) {
            colors.push_back(MakeColor(entry[0], entry[1], entry[2]));
        }
        return colors;
    }
    /// The top row of a frame as the host got it.
    [[nodiscard]] std::vector<std::uint32_t> Row(std::size_t frame) const {
        std::vector<std::uint32_t> row;
        for (int x = 0; x < host.frames.at(frame).Picture()->Width; ++x) {
            row.push_back(host.frames[frame].Pixel(x, 0));
        }
        return row;
    }
    /// Entry `index` of a frame's own colour table.
    [[nodiscard]] ColorWord TableEntry(std::size_t frame, int index) const {
        const std::uint8_t* entry =
            DibColorTable(host.frames.at(frame).Picture()) + std::ptrdiff_t{4} * index;
        return MakeColor(entry[2], entry[1], entry[0]);
    }
    [[nodiscard]] std::optional<GifFile> PreviewGif() const {
        return ReadGif(ReadFileBytes(folder.File("preview.gif")));
    }
    [[nodiscard]] static bool Happened(const std::string& event) {
        return std::find(Events().begin(), Events().end(), event) != Events().end();
    }

    ScratchFolder folder;
    RecordingHost host;
    DialogSettings settings;
};

}  // namespace tess::test
