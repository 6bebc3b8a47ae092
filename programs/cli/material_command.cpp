// The command that shows a material, makes a picture of it, or writes one.
#include <cstdio>
#include <cstring>
#include <string>

#include "fills/material_file.h"
#include "fills/matrix_group_file.h"
#include "host/json_writer.h"
#include "programs/cli/commands.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/fountain_text.h"
#include "programs/cli/material_values.h"
#include "programs/cli/output_format.h"
#include "programs/cli/session.h"

namespace tess {
namespace {

constexpr ColorWord kStartColor = 0xC0C0C0;
constexpr char kTileElementKey[] = "tile-element";

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

int Fail(const std::string& text, int status = kFailed) {
    TellUser(text);
    return status;
}

// Sets what the request says. A tile that is set must be there: what a file holds may come
// from another machine, and is rendered as the plug-in does.
int SetValues(const Request& request, Material* material) {
    const char* tile_key = nullptr;
    for (const Setting& setting : request.Settings) {
        const std::string fault = SetMaterialValue(material, setting.Key, setting.Value);
        if (!fault.empty()) return Fail(fault, kWrongUse);
        if (setting.Key == kTileGroupKey && tile_key == nullptr) tile_key = kTileGroupKey;
        if (setting.Key == kTileElementKey) tile_key = kTileElementKey;
    }
    if (tile_key == nullptr) return kDone;
    const std::string fault = MaterialTileFault(*material);
    return fault.empty() ? kDone : Fail(std::string(tile_key) + ": " + fault, kWrongUse);
}

// Reads the file that the request names, and what is set over it. Returns the exit
// status, after telling the user.
int ReadMaterial(const Request& request, Material* material) {
    if (!request.Operands.empty()) {
        const std::string& path = request.Operands.front();
        if (ReadMaterialFile(path, material) == 0) {
            return Fail(IsReadable(path) ? path + ": is no material, or is cut off"
                                         : ReadFault(path));
        }
    }
    return SetValues(request, material);
}

void ShowText(const Material& material) {
    for (const MaterialValue& row : MaterialValues())
        std::printf("%-13s  %s\n", row.Name, ShownMaterialValue(row, material).c_str());
    std::printf("%-13s  %s\n", kTileGroupKey, std::string(MatrixTilePath(material.Tile)).c_str());
    std::printf("%-13s  %s\n", kFountainKey, FountainText(material.Gradient.Ramp).c_str());
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
    json.Key(kTileGroupKey);
    json.Text(MatrixTilePath(material.Tile));
    json.Key(kFountainKey);
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
    return Fail("the material cannot be rendered");
}

int WriteMaterialFile(const Request& request, const Material& material) {
    const platform::OwnedBlock block(platform::AllocateBlock(sizeof material));
    {
        const LockedMaterial copy(block.Get());
        if (copy) std::memcpy(static_cast<void*>(copy.Get()), &material, sizeof material);
    }
    if (SaveMaterial(block.Get(), request.Output) != 0) return kDone;
    return Fail(WriteFault(request.Output));
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
