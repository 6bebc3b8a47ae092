// A host that writes down what it is asked for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "shell/host_interface.h"

namespace tess::test {

/// One frame as it was handed over.
struct HandedFrame {
    ImageRecord record;
    std::vector<std::uint8_t> picture;  ///< the bytes of its block
    [[nodiscard]] const PackedDib* Picture() const {
        return reinterpret_cast<const PackedDib*>(picture.data());
    }
    /// Pixel (x, y) as an index or colour word.
    [[nodiscard]] std::uint32_t Pixel(int x, int y) const { return GetDibPixel(Picture(), x, y); }
};

/// Events it records: "Progress A B", "Title TEXT", "OpenBuild", "OpenTest",
/// "AddFrame NUMBER", "Comment", "Close A", each with "?" behind it when an argument
/// that has to be null, zero or the open task is not.
struct RecordingHost {
    std::uint32_t flags = HostDelayHundredths | HostTrueColor;
    bool refuses_task = false;
    int refused_frame = -1;

    TaskRecord task{};
    TaskRecord* open_task = nullptr;
    std::vector<HandedFrame> frames;
    std::string comment;
    std::size_t live_blocks_at_close = 0;

    /// Makes this the host that Services() leads to.
    RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;
    ~RecordingHost();

    [[nodiscard]] const HostServices* Services();

private:
    HostServices services_{};
};

}  // namespace tess::test
