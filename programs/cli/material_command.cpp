// The command that shows a material, makes a picture of it, or writes one.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "fills/material_file.h"
#include "fills/matrix_group_file.h"
#include "host/json_writer.h"
#include "platform/files.h"
#include "programs/cli/commands.h"
#include "programs/cli/material_values.h"
#include "programs/cli/output_format.h"
#include "programs/cli/session.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

constexpr ColorWord kStartColor = 0xC0C0C0;

// A material, with its tile's picture.
class OpenMaterial {
public:
    OpenMaterial() { InitMaterial(&record, kStartColor); }
    OpenMaterial(const OpenMaterial&) = delete;
    OpenMaterial& operator=(const OpenMaterial&) = delete;
    ~OpenMaterial() { platform::FreeBlock(record.Tile.Image); }

    // Loads the picture of its tile, if that is what it draws.
    void LoadTile(bool is_quiet) {
        const std::string_view group = MatrixTilePath(record.Tile);
        if (record.Mode != MaterialMode::Tile || group.empty()) return;
        record.Tile.Image = LoadMatrixElement(group, record.Tile.Element);
        if (record.Tile.Image == nullptr && !is_quiet) {
            TellUser(std::string(group) + ": has no tile " + std::to_string(record.Tile.Element) +
                     "; the default tile stands for it");
        }
    }

    Material record;
};

// Reads the file that the request names, and what is set over it. Returns the exit
// status, after telling the user.
int ReadMaterial(const Request& request, Material* material) {
    if (!request.Operands.empty()) {
        const std::string& path = request.Operands.front();
        if (ReadMaterialFile(path, material) == 0) {
            TellUser(path + (platform::FileExists(path) ? ": is no material, or is cut off"
                                                        : ": cannot be opened"));
            return kFailed;
        }
    }
    for (const Setting& setting : request.Settings) {
        const std::string fault = SetMaterialValue(material, setting.Key, setting.Value);
        if (fault.empty()) continue;
        TellUser(fault);
        return kWrongUse;
    }
    return kDone;
}

std::string FountainText(const Fountain& fountain) {
    const int count = std::clamp(std::int32_t{fountain.Count}, 0, kFountainMarkers);
    std::string text = ColorText(fountain.Start & kColorBits);
    for (int i = 0; i < count; ++i) {
        text.append(1, ' ').append(ColorText(MarkerColor(fountain.Markers[i])));
        text.append(1, '@').append(std::to_string(MarkerPosition(fountain.Markers[i])));
    }
    const bool is_looped = (fountain.Flags & kFountainLooped) != 0;
    const ColorWord last = is_looped ? fountain.Start : fountain.End;
    return text.append(1, ' ').append(ColorText(last & kColorBits));
}

void ShowText(const Material& material) {
    for (const MaterialValue& row : MaterialValues())
        std::printf("%-13s  %s\n", row.Name, ShownMaterialValue(row, material).c_str());
    std::printf("%-13s  %s\n", "tile-group", std::string(MatrixTilePath(material.Tile)).c_str());
    std::printf("%-13s  %s\n", "fountain", FountainText(material.Gradient.Ramp).c_str());
}

void ShowJson(const Material& material) {
    JsonWriter json(stdout);
    json.BeginObject();
    for (const MaterialValue& row : MaterialValues()) {
        json.Key(row.Name);
        if (row.Kind == MaterialValueKind::Number) {
            json.Number(row.Get(material));
        } else if (row.Kind == MaterialValueKind::Switch) {
            json.Boolean(row.Get(material) != 0);
        } else {
            json.Text(ShownMaterialValue(row, material));
        }
    }
    json.Key("tile-group");
    json.Text(MatrixTilePath(material.Tile));
    json.Key("fountain");
    json.Text(FountainText(material.Gradient.Ramp));
    json.EndObject();
}

int Render(const Request& request, OpenMaterial* material, platform::OwnedBlock* picture) {
    material->LoadTile(request.Quiet);
    constexpr int kSide = 128;
    const bool is_sized = request.Width != 0;
    picture->Reset(RenderMaterial(&material->record, is_sized ? request.Width : kSide,
                                  is_sized ? request.Height : kSide));
    if (*picture) return kDone;
    TellUser("the material cannot be rendered");
    return kFailed;
}

int WriteMaterialFile(const Request& request, const Material& material) {
    const platform::OwnedBlock block(platform::AllocateBlock(sizeof material));
    {
        const LockedMaterial copy(block.Get());
        if (copy) std::memcpy(static_cast<void*>(copy.Get()), &material, sizeof material);
    }
    if (SaveMaterial(block.Get(), request.Output) != 0) return kDone;
    TellUser(request.Output + ": cannot be written");
    return kFailed;
}

}  // namespace

int RunMaterial(const Request& request) {
    if (!request.Output.empty()) {
        if (const int status = CheckRecordOutput(request.Output); status != kDone) return status;
    }
    OpenMaterial material;
    if (const int status = ReadMaterial(request, &material.record); status != kDone) return status;
    if (request.Output.empty()) {
        (request.Json ? ShowJson : ShowText)(material.record);
        return kDone;
    }
    platform::OwnedBlock picture;
    if (const int status = Render(request, &material, &picture); status != kDone) return status;
    if (!IsRecordOutput(request.Output)) return WritePicture(picture.Get(), request.Output);
    material.record.AverageColor = AverageImageColour(picture.Get());
    return WriteMaterialFile(request, material.record);
}

}  // namespace tess
