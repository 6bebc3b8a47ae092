// The command that measures how an animation joins itself.
#include <cstdio>

#include "host/gif_player.h"
#include "host/json_writer.h"
#include "host/seams.h"
#include "programs/cli/commands.h"
#include "programs/cli/session.h"

namespace tess {
namespace {

struct Join {
    const char* name;  // in JSON
    const char* text;
    JoinFigures SeamFigures::*figures;
};
constexpr Join kJoins[] = {
    {"columns", "left to right", &SeamFigures::Columns},
    {"rows", "top to bottom", &SeamFigures::Rows},
    {"frames", "last to first", &SeamFigures::Frames},
};

bool HasAnySeam(const SeamFigures& figures) {
    for (const Join& join : kJoins) {
        if (HasSeam(figures.*join.figures)) return true;
    }
    return false;
}

void PrintTable(const std::string& path, const GifPlayer& player, int hundredths,
                const SeamFigures& figures) {
    std::printf("%s: %d x %d pixels, %d frames, %d.%02d seconds\n\n", path.c_str(), player.Width(),
                player.Height(), player.FrameCount(), hundredths / 100, hundredths % 100);
    std::printf("mean difference of a step, 0 to 255\n");
    std::printf("%-15s%10s%15s%15s\n", "", "at join", "inside, mean", "inside, most");
    for (const Join& join : kJoins) {
        const JoinFigures& step = figures.*join.figures;
        std::printf("%-15s%10.2f%15.2f%15.2f   %s\n", join.text, step.Join, step.InsideMean,
                    step.InsideMost, HasSeam(step) ? "a seam" : "seamless");
    }
}

void PrintJson(const GifPlayer& player, int hundredths, const SeamFigures& figures) {
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
    json.Key("joins");
    json.BeginObject();
    for (const Join& join : kJoins) {
        const JoinFigures& step = figures.*join.figures;
        json.Key(join.name);
        json.BeginObject();
        json.Key("join");
        json.Decimal(step.Join);
        json.Key("insideMean");
        json.Decimal(step.InsideMean);
        json.Key("insideMost");
        json.Decimal(step.InsideMost);
        json.Key("seamless");
        json.Boolean(!HasSeam(step));
        json.EndObject();
    }
    json.EndObject();
    json.EndObject();
}

}  // namespace

int RunCheck(const Request& request) {
    const std::string& path = request.Operands[0];
    GifPlayer player(path);
    if (!player) {
        TellUser(path + " " + player.Problem());
        return kFailed;
    }
    SeamMeter meter(player.Width(), player.Height());
    if (!meter) {
        TellUser(path + " needs more memory than there is");
        return kFailed;
    }
    int hundredths = 0;
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
    return HasAnySeam(figures) ? kFailed : kDone;
}

}  // namespace tess
