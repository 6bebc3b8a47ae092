#include "programs/cli/seam_report.h"

#include <algorithm>
#include <cstdio>

namespace tess {

bool HasAnySeam(const SeamFigures& figures, std::span<const NamedJoin> joins) {
    return std::any_of(joins.begin(), joins.end(),
                       [&](const NamedJoin& join) { return HasSeam(figures.*join.figures); });
}

void PrintJoins(const SeamFigures& figures, std::span<const NamedJoin> joins) {
    std::printf("mean difference of a step, 0 to 255\n");
    std::printf("%-15s%10s%15s%15s\n", "", "at join", "inside, mean", "inside, most");
    for (const NamedJoin& join : joins) {
        const JoinFigures& step = figures.*join.figures;
        std::printf("%-15s%10.2f%15.2f%15.2f   %s\n", join.text, step.Join, step.InsideMean,
                    step.InsideMost, HasSeam(step) ? "a seam" : "seamless");
    }
}

void WriteJoins(JsonWriter& json, const SeamFigures& figures, std::span<const NamedJoin> joins) {
    json.Key("joins");
    json.BeginObject();
    for (const NamedJoin& join : joins) {
        const JoinFigures& step = figures.*join.figures;
        json.Key(join.name);
        json.BeginObject();
        json.Key("join");
        json.Decimal(step.Join);
        json.Key("inside_mean");
        json.Decimal(step.InsideMean);
        json.Key("inside_most");
        json.Decimal(step.InsideMost);
        json.Key("seamless");
        json.Boolean(!HasSeam(step));
        json.EndObject();
    }
    json.EndObject();
}

}  // namespace tess
