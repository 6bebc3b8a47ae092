#include "programs/cli/fountain_text.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "controls/hexadecimal.h"
#include "fills/fountain_markers.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

constexpr int kNoPosition = -1;
constexpr int kLastPosition = 255;

struct ColorStop {
    int Position = kNoPosition;
    ColorWord Color = 0;
};

// Reads "#RRGGBB" or "POSITION:#RRGGBB".
std::string ReadStop(std::string_view text, ColorStop* stop) {
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos) {
        const auto position = ParseNumber(text.substr(0, colon));
        if (!position || *position < 1 || *position > kLastPosition) {
            return "has the position " + ShownText(text.substr(0, colon)) + "; it takes 1 to 255";
        }
        stop->Position = static_cast<int>(*position);
        text.remove_prefix(colon + 1);
    }
    const auto color = text.starts_with('#') ? ReadColor(text) : std::nullopt;
    if (!color) return "has the color " + ShownText(text) + "; it takes #RRGGBB";
    stop->Color = *color;
    return "";
}

std::string ReadStops(std::string_view text, std::vector<ColorStop>* stops) {
    constexpr std::size_t kMostStops = kFountainMarkers + 2;
    for (bool is_last = false; !is_last;) {
        const std::size_t comma = text.find(',');
        is_last = comma == std::string_view::npos;
        ColorStop stop;
        std::string error = ReadStop(text.substr(0, comma), &stop);
        if (!error.empty()) return error;
        stops->push_back(stop);
        if (!is_last) text.remove_prefix(comma + 1);
        if (stops->size() > kMostStops) return "has more than 64 colors between its ends";
    }
    if (stops->size() < 2) return "has one color; a fountain has two ends";
    if (stops->front().Position != kNoPosition || stops->back().Position != kNoPosition) {
        return "has a position at an end; the ends have none";
    }
    return "";
}

}  // namespace

std::string ReadFountainColors(std::string_view text, Fountain* fountain) {
    std::vector<ColorStop> stops;
    std::string error = ReadStops(text, &stops);
    if (!error.empty()) return error;
    Fountain colors;
    InitFountain(&colors, FountainPreset::Plain);
    colors.Start = stops.front().Color;
    colors.End = (colors.End & ~kColorBits) | stops.back().Color;
    const int last = static_cast<int>(stops.size()) - 1;
    for (int i = 1; i < last; ++i) {
        const ColorStop& stop = stops[static_cast<std::size_t>(i)];
        const int even = std::max(kLastPosition * i / last, 1);
        InsertMarker(&colors,
                     MakeMarker(stop.Position == kNoPosition ? even : stop.Position, stop.Color));
    }
    fountain->Count = colors.Count;
    fountain->Start = colors.Start;
    fountain->End = colors.End;
    std::memcpy(fountain->Markers, colors.Markers, sizeof fountain->Markers);
    return "";
}

std::string ReadFountainDigits(std::string_view text, Fountain* fountain) {
    Fountain read{};
    const std::string digits(text);
    auto* bytes = reinterpret_cast<std::uint8_t*>(&read);
    if (digits.size() != 2 * sizeof read ||
        !ReadHexadecimal(digits.c_str(), {bytes, sizeof read}) || !HasFountainMagic(read)) {
        return std::string("is no fountain; it takes ") + kFountainForms;
    }
    read.Preview = nullptr;
    *fountain = read;
    return "";
}

std::string ReadFountainText(std::string_view text, Fountain* fountain) {
    if (text.find('#') == std::string_view::npos) return ReadFountainDigits(text, fountain);
    InitFountain(fountain, FountainPreset::Plain);
    return ReadFountainColors(text, fountain);
}

std::string FountainText(const Fountain& fountain) {
    std::string text = ColorText(fountain.Start);
    for (int i = 0; i < MarkerCount(fountain); ++i) {
        const FountainMarker marker = fountain.Markers[i];
        text.append(",").append(std::to_string(MarkerPosition(marker)));
        text.append(":").append(ColorText(MarkerColor(marker)));
    }
    return text.append(",").append(ColorText(fountain.End));
}

}  // namespace tess
