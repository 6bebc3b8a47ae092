// The command that measures how an animation joins itself.
#include <cstdint>
#include <cstdio>
#include <string>

#include "host/gif_player.h"
#include "host/json_writer.h"
#include "host/seams.h"
#include "programs/cli/commands.h"
#include "programs/cli/seam_report.h"
#include "programs/cli/session.h"

namespace tess {
namespace {

void PrintTable(const std::string& path, const GifPlayer& player, std::int64_t hundredths,
                const SeamFigures& figures) {
    std::printf("%s: %d x %d pixels, %d %s, %s.%02d seconds\n\n", path.c_str(), player.Width(),
                player.Height(), player.FrameCount(), player.FrameCount() == 1 ? "frame" : "frames",
                std::to_string(hundredths / 100).c_str(), static_cast<int>(hundredths % 100));
    PrintJoins(figures, kJoins);
}

void PrintJson(const GifPlayer& player, std::int64_t hundredths, const SeamFigures& figures) {
    JsonWriter json(stdout);
    json.BeginObject();
    json.Key("width");
    json.Number(player.Width());
    json.Key("height");
    json.Number(player.Height());
    json.Key("frames");
    json.Number(player.FrameCount());
    json.Key("hundredths");
    json.Number(hundredths);
    WriteJoins(json, figures, kJoins);
    json.EndObject();
}

}  // namespace

int RunCheck(const Request& request) {
    const std::string& path = request.Operands[0];
    GifPlayer player(path);
    if (!player) {
        TellUser(path + ": " + player.Problem());
        return kFailed;
    }
    SeamMeter meter(player.Width(), player.Height());
    if (!meter) {
        TellUser(path + ": needs more memory than there is");
        return kFailed;
    }
    std::int64_t hundredths = 0;
    for (int i = 0; i < player.FrameCount(); ++i) {
        player.ShowFrame();
        meter.AddFrame(player.Pixels());
        hundredths += player.Delay();
    }
    const SeamFigures figures = meter.Figures();
    if (request.Json) {
        PrintJson(player, hundredths, figures);
    } else {
        PrintTable(path, player, hundredths, figures);
    }
    return HasAnySeam(figures, kJoins) ? kFailed : kDone;
}

}  // namespace tess
