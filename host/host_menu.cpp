#include "host/host_menu.h"

#include <cstdio>

namespace tess {
namespace {

constexpr HostMenuItem kItems[] = {
    {"&File", "&Load a plug-in...", kLoadPlugin},
    {"&File", "&Run the plug-in...\tF5", kRunPlugin},
    {"&File", "&Save as GIF...\tCtrl+S", kSaveGif},
    {"&File", "", kSeparator},
    {"&File", "E&xit", kExit},
    {"&View", "&Play\tSpace", kPlay},
    {"&View", "&Tiled, as on a page", kTiled},
    {"&Host", "Counts delays in &hundredths", kHundredths},
    {"&Host", "Takes &24-bit frames", kTrueColor},
    {"&Host", "", kSeparator},
    {"&Host", "&System buttons", kSystemButtons},
    {"&Host", "&Rounded buttons", kRoundedButtons},
    {"&Host", "&Bevelled buttons", kBevelledButtons},
    {"&Host", "&Gradient buttons", kGradientButtons},
    {"H&elp", "&Help\tF1", kHelp},
    {"H&elp", "&About", kAbout},
};

constexpr bool IsButtonLook(HostCommand command) {
    return command >= kSystemButtons && command <= kGradientButtons;
}

double Seconds(const Animation& animation) {
    std::uint64_t milliseconds = 0;
    for (int i = 0; i < animation.Frames.Count; ++i) {
        FrameRecord frame;
        if (GetFrame(animation, i, &frame) != 0) {
            milliseconds += DelayInMilliseconds(animation, frame);
        }
    }
    return static_cast<double>(milliseconds) / 1000.0;
}

}  // namespace

std::span<const HostMenuItem> HostMenu() {
    return kItems;
}

ItemState StateOf(HostCommand command, const HostStatus& status) {
    // The host's flags and buttons are read as the dialog opens.
    const bool is_free = !status.IsRunning;
    if (IsButtonLook(command)) {
        return {is_free,
                static_cast<std::uint32_t>(command - kSystemButtons) == status.SkinButtons};
    }
    switch (command) {
        case kRunPlugin:
            return {is_free && status.HasPlugin, false};
        case kSaveGif:
            // A GIF holds no 24-bit frames.
            return {is_free && status.HasAnimation && status.Depth <= 8, false};
        case kPlay:
            return {status.HasAnimation, status.IsPlaying};
        case kTiled:
            return {status.HasAnimation, status.IsTiled};
        case kHundredths:
            return {is_free, status.Unit == DelayUnit::Hundredths};
        case kTrueColor:
            return {is_free, status.TakesTrueColor};
        default:
            return {is_free, false};
    }
}

bool ApplyCommand(HostCommand command, HostStatus* status) {
    if (IsButtonLook(command)) {
        status->SkinButtons = static_cast<std::uint32_t>(command - kSystemButtons);
        return true;
    }
    switch (command) {
        case kPlay:
            status->IsPlaying = !status->IsPlaying;
            return true;
        case kTiled:
            status->IsTiled = !status->IsTiled;
            return true;
        case kHundredths:
            status->Unit = status->Unit == DelayUnit::Hundredths ? DelayUnit::Milliseconds
                                                                 : DelayUnit::Hundredths;
            return true;
        case kTrueColor:
            status->TakesTrueColor = !status->TakesTrueColor;
            return true;
        default:
            return false;
    }
}

std::string DescribeAnimation(const Animation& animation, int frame, const HostStatus& status) {
    if (!status.HasAnimation) {
        return status.HasPlugin ? "Run the plug-in, then press Build or Test" : "No plug-in";
    }
    char text[160];
    std::snprintf(text, sizeof text, "Frame %d of %d, %.2f seconds, %d x %d pixels, %d bits",
                  frame + 1, animation.Frames.Count, Seconds(animation), animation.Width,
                  animation.Height, animation.Depth);
    return text;
}

}  // namespace tess
