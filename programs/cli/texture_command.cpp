// The command that lists a group of textures, tells of one, and renders it.
#include <cstdio>
#include <string>
#include <string_view>

#include "fills/texture_group_file.h"
#include "host/json_writer.h"
#include "programs/cli/commands.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/group_files.h"
#include "programs/cli/output_format.h"
#include "programs/cli/seam_report.h"
#include "programs/cli/session.h"
#include "programs/cli/table_text.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

// An item of a group and its place in it.
struct NamedTexture {
    int index;
    std::string name;
    TextureItem item;
};

const char* KindOf(const TextureItem& item) {
    const TextureKindEntry* kind = FindTextureKind(item.TextureType);
    return kind != nullptr ? kind->Name : "unknown kind";
}

// What an item's kind promises: a tile at any size, one on even squares, or none.
const char* TilesText(const TextureItem& item) {
    if (TextureTiles(item.TextureType, 2, 1)) return "any size";
    return TextureTiles(item.TextureType, 2, 2) ? "even squares" : "no size";
}

void WriteItem(JsonWriter& json, const NamedTexture& texture) {
    json.Key("index");
    json.Number(texture.index);
    json.Key("name");
    json.Text(texture.name);
    json.Key("kind");
    json.Text(KindOf(texture.item));
    json.Key("tiles_at");
    json.Text(TilesText(texture.item));
}

void ListAsJson(TextureGroupReader& reader) {
    JsonWriter json(stdout);
    json.BeginArray();
    NamedTexture texture{0, {}, {}};
    for (; reader.Next(&texture.name, &texture.item); ++texture.index) {
        json.BeginObject();
        WriteItem(json, texture);
        json.EndObject();
    }
    json.EndArray();
}

void ListAsTable(TextureGroupReader& reader) {
    std::printf("%5s  %-28s %-16s %s\n", "INDEX", "NAME", "KIND", "TILES AT");
    NamedTexture texture{0, {}, {}};
    for (; reader.Next(&texture.name, &texture.item); ++texture.index) {
        std::printf("%5d  %s %-16s %s\n", texture.index, Padded(texture.name, 28).c_str(),
                    KindOf(texture.item), TilesText(texture.item));
    }
}

// How what the user has written means an item, the surer the larger.
enum class Match { None, Index, Words, Name };

Match MatchOf(const NamedTexture& texture, const std::string& wanted) {
    if (texture.name == wanted) return Match::Name;
    // A name of other letters has no plain form.
    const std::string plain = PlainName(wanted);
    if (!plain.empty() && PlainName(texture.name) == plain) return Match::Words;
    return ParseNumber(wanted) == texture.index ? Match::Index : Match::None;
}

// Finds an item by its name, or by its index in the group.
bool FindItem(TextureGroupReader& reader, const std::string& wanted, NamedTexture* found) {
    Match best = Match::None;
    NamedTexture texture{0, {}, {}};
    for (; reader.Next(&texture.name, &texture.item); ++texture.index) {
        const Match match = MatchOf(texture, wanted);
        if (match <= best) continue;
        best = match;
        *found = texture;
    }
    return best != Match::None;
}

void TellAsJson(const NamedTexture& texture, const PackedDib* image, const SeamFigures& seams) {
    JsonWriter json(stdout);
    json.BeginObject();
    WriteItem(json, texture);
    json.Key("width");
    json.Number(image->Width);
    json.Key("height");
    json.Number(image->Height);
    json.Key("tiles");
    json.Boolean(TextureTiles(texture.item.TextureType, image->Width, image->Height));
    WriteJoins(json, seams, kPictureJoins);
    json.EndObject();
}

void Tell(const NamedTexture& texture, const PackedDib* image, const SeamFigures& seams) {
    const bool tiles = TextureTiles(texture.item.TextureType, image->Width, image->Height);
    std::printf("%s: %s\n", texture.name.c_str(), KindOf(texture.item));
    std::printf("at %d x %d it %s by its kind, which tiles at %s\n\n", image->Width, image->Height,
                tiles ? "tiles" : "does not tile", TilesText(texture.item));
    PrintJoins(seams, kPictureJoins);
}

int RunItem(const Request& request, TextureGroupReader& reader) {
    if (!request.Output.empty()) {
        if (const int status = CheckPictureOutput(request.Output); status != kDone) return status;
    }
    NamedTexture texture{0, {}, {}};
    if (!FindItem(reader, request.Operands[1], &texture)) {
        TellUser("there is no texture " + ShownText(request.Operands[1]) +
                 "; without it the command lists the group");
        return kWrongUse;
    }
    constexpr int kOwnSize = 128;
    const platform::OwnedBlock picture(
        RenderTextureAt(texture.item, request.Width != 0 ? request.Width : kOwnSize,
                        request.Height != 0 ? request.Height : kOwnSize));
    const LockedImage image(picture.Get());
    if (!image) {
        TellUser(ShownText(texture.name) + " cannot be rendered: " +
                 (FindTextureKind(texture.item.TextureType) != nullptr ? "memory is short"
                                                                       : "unknown kind"));
        return kFailed;
    }
    if (request.Json || request.Output.empty()) {
        SeamMeter meter(image->Width, image->Height);
        if (!meter) {
            TellUser(ShownText(texture.name) + " cannot be measured: memory is short");
            return kFailed;
        }
        meter.AddPicture(image);
        (request.Json ? TellAsJson : Tell)(texture, image, meter.Figures());
    }
    return request.Output.empty() ? kDone : WritePicture(picture.Get(), request.Output);
}

}  // namespace

int RunTexture(const Request& request) {
    const std::string group = request.Operands.empty() ? kProvidedGroup : request.Operands[0];
    if (!request.Output.empty() && request.Operands.size() < 2) {
        TellUser("-o needs the texture to render: 'tessellomatics texture GROUP ITEM -o FILE'");
        return kWrongUse;
    }
    const std::string path = FindGroupFile(group, kTextureGroupExtension);
    if (path.empty()) {
        TellUser(GroupFault(group, kTextureGroupExtension));
        return kFailed;
    }
    TextureGroupReader reader(path);
    if (!reader) {
        TellUser(IsReadable(path) ? path + ": is no group of textures" : ReadFault(path));
        return kFailed;
    }
    if (request.Operands.size() == 2) return RunItem(request, reader);
    if (request.Json) {
        ListAsJson(reader);
    } else {
        ListAsTable(reader);
    }
    return kDone;
}

}  // namespace tess
