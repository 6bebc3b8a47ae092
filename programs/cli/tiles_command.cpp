// The command that lists groups of tiles, shows a tile and changes a user's group.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "fills/matrix_group_file.h"
#include "host/json_writer.h"
#include "platform/block_guards.h"
#include "platform/files.h"
#include "platform/letter_case.h"
#include "programs/cli/commands.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/group_files.h"
#include "programs/cli/output_format.h"
#include "programs/cli/picture_file.h"
#include "programs/cli/session.h"
#include "programs/cli/table_text.h"
#include "programs/cli/values.h"
#include "programs/default_groups.h"

namespace tess {
namespace {

int Refuse(const std::string& text) {
    TellUser(text);
    return kWrongUse;
}

int Fail(const std::string& text) {
    TellUser(text);
    return kFailed;
}

// Reads the group at a path, empty for none, that the user calls `name`. Returns kDone, or
// another exit status after telling the user.
int ReadGroup(const std::string& name, const std::string& path, MatrixGroup* group) {
    if (path.empty()) return Fail(GroupFault(name, kTileGroupExtension));
    switch (ReadMatrixGroup(path, group)) {
        case GroupReading::Missing:
            return Fail(ReadFault(path));
        case GroupReading::Damaged:
            return Fail(path + ": is damaged");
        case GroupReading::Whole:
            break;
    }
    return kDone;
}

struct ListedGroup {
    std::string Name, Path;
};

// The user's groups, and those that came with the program and are not among them.
std::vector<ListedGroup> AllGroups() {
    std::vector<ListedGroup> groups;
    const auto add = [&groups](const std::string& folder) {
        for (const std::string& file : platform::FilesIn(folder, kTileGroupExtension)) {
            const std::string name = file.substr(0, file.size() + 1 - sizeof kTileGroupExtension);
            const bool is_known =
                std::any_of(groups.begin(), groups.end(), [&name](const ListedGroup& group) {
                    return platform::IsSameName(group.Name, name);
                });
            if (!is_known) groups.push_back({name, folder + file});
        }
    };
    add(UserGroupFolder());
    add(ProvidedGroupFolder());
    return groups;
}

int ListGroups(bool as_json) {
    JsonWriter json(stdout);
    if (as_json) {
        json.BeginArray();
    } else {
        std::printf("%-20s %-6s %-11s %s\n", "GROUP", "TILES", "CHANGEABLE", "FILE");
    }
    for (const ListedGroup& listed : AllGroups()) {
        MatrixGroup group;
        const bool is_whole = ReadMatrixGroup(listed.Path, &group) == GroupReading::Whole;
        if (!as_json) {
            std::printf("%s %-6s %-11s %s\n", Padded(listed.Name, 20).c_str(),
                        is_whole ? std::to_string(group.Count()).c_str() : "-",
                        !is_whole           ? "damaged"
                        : group.IsWriteable ? "yes"
                                            : "no",
                        listed.Path.c_str());
            continue;
        }
        json.BeginObject();
        json.Key("group");
        json.Text(listed.Name);
        json.Key("file");
        json.Text(listed.Path);
        json.Key("tiles");
        if (is_whole) {
            json.Number(group.Count());
        } else {
            json.Null();
        }
        json.Key("changeable");
        json.Boolean(is_whole && group.IsWriteable);
        json.EndObject();
    }
    if (as_json) json.EndArray();
    return kDone;
}

std::string SizeText(const PackedDib& image) {
    return std::to_string(image.Width) + " x " + std::to_string(image.Height);
}

void WriteTileFigures(JsonWriter& json, int index, const PackedDib& image) {
    json.Key("index");
    json.Number(index);
    json.Key("width");
    json.Number(image.Width);
    json.Key("height");
    json.Number(image.Height);
    json.Key("depth");
    json.Number(image.BitCount);
}

void ListTile(JsonWriter* json, int index, const PackedDib& image) {
    if (json == nullptr) {
        std::printf("%-5d  %-12s %d\n", index, SizeText(image).c_str(), int{image.BitCount});
        return;
    }
    json->BeginObject();
    WriteTileFigures(*json, index, image);
    json->EndObject();
}

int ListTiles(const MatrixGroup& group, bool as_json) {
    JsonWriter json(stdout);
    if (as_json) {
        json.BeginArray();
    } else {
        std::printf("%-5s  %-12s %s\n", "INDEX", "SIZE", "DEPTH");
    }
    for (int i = 0; i < group.Count(); ++i) {
        if (const LockedImage image(group.Element(i)); image)
            ListTile(as_json ? &json : nullptr, i, *image.Get());
    }
    if (as_json) json.EndArray();
    return kDone;
}

// The index that the user has written, -1 after telling him that there is no such tile.
int FindTileIndex(const MatrixGroup& group, const std::string& text) {
    const auto index = ParseNumber(text);
    if (index && *index >= 0 && *index < group.Count()) return static_cast<int>(*index);
    TellUser(ShownText(text) + " is no tile of the group, which holds " +
             std::to_string(group.Count()) + ", counted from 0");
    return -1;
}

void TellTileAsJson(const ListedGroup& listed, int index, const PackedDib& image) {
    JsonWriter json(stdout);
    json.BeginObject();
    WriteTileFigures(json, index, image);
    json.Key("file");
    json.Text(listed.Path);
    json.EndObject();
}

void TellTile(const ListedGroup& listed, int index, const PackedDib& image) {
    std::printf("tile %d of %s: %s pixels of %d bits\nin %s\n", index, listed.Name.c_str(),
                SizeText(image).c_str(), int{image.BitCount}, listed.Path.c_str());
}

// Writes a tile as a picture, or tells what it is.
int ShowTile(const Request& request, const ListedGroup& listed, const MatrixGroup& group) {
    const std::string& output = request.Output;
    const int index = FindTileIndex(group, request.Operands.back());
    if (index < 0) return kWrongUse;
    if (!output.empty()) {
        if (const int status = CheckPictureOutput(output); status != kDone) return status;
    }
    if (request.Json || output.empty()) {
        const LockedImage image(group.Element(index));
        if (!image) return Fail("memory is short");
        (request.Json ? TellTileAsJson : TellTile)(listed, index, *image.Get());
    }
    return output.empty() ? kDone : WritePicture(group.Element(index), output);
}

bool IsTooLarge(ImageHandle picture) {
    const LockedImage image(picture);
    return image && IsTooLargeForTile(*image.Get());
}

// Adds the pictures at the end. Returns kDone, or another exit status after telling the
// user.
int AddPictures(const std::vector<std::string>& paths, MatrixGroup* group) {
    for (const std::string& path : paths) {
        std::string error;
        platform::OwnedBlock picture(ReadPicture(path, &error));
        if (!picture) return Fail(path + ": " + error);
        if (IsTooLarge(picture.Get())) return Fail(path + ": is too large to be a matrix tile");
        if (group->Add(picture.Get()) == 0) return Fail(path + ": memory is short");
        static_cast<void>(picture.Release());  // the group owns it now
    }
    return kDone;
}

// Takes a tile out, after writing it as a picture where that is asked for.
int RemoveTile(const Request& request, const std::string& path, MatrixGroup* group) {
    if (!request.Output.empty()) {
        const int status = ShowTile(request, {request.Operands.front(), path}, *group);
        if (status != kDone) return status;
    }
    const int index = FindTileIndex(*group, request.Operands.back());
    if (index < 0) return kWrongUse;
    platform::FreeBlock(group->Take(index));
    return kDone;
}

int WriteGroup(const std::string& path, const MatrixGroup& group) {
    platform::WorkArray<ImageHandle> elements(static_cast<std::size_t>(group.Count()));
    if (!elements) return Fail("memory is short");
    for (int i = 0; i < group.Count(); ++i)
        elements[static_cast<std::size_t>(i)] = group.Element(i);
    if (WriteMatrixGroup(path, {elements.data(), elements.size()}) == 0)
        return Fail(WriteFault(path));
    return kDone;
}

// Reads a group that is to be changed, unless it may not be.
int OpenGroup(const std::string& name, const std::string& path, MatrixGroup* group) {
    if (const int status = ReadGroup(name, path, group); status != kDone) return status;
    if (group->IsWriteable) return kDone;
    return Fail("the group " + ShownText(name) + " cannot be changed; add to one of your own");
}

int RemoveFromGroup(const Request& request) {
    const std::string& name = request.Operands.front();
    const std::string path = FindGroupFile(name, kTileGroupExtension);
    MatrixGroup group;
    int status = OpenGroup(name, path, &group);
    if (status == kDone) status = RemoveTile(request, path, &group);
    return status == kDone ? WriteGroup(path, group) : status;
}

// Adds to the group, which is made where there is none.
int AddToGroup(const Request& request) {
    const std::string& name = request.Operands.front();
    std::string path = FindGroupFile(name, kTileGroupExtension);
    const bool is_new = path.empty();
    if (is_new) path = NewGroupFile(name, kTileGroupExtension);
    if (path.empty()) return Refuse(ShownText(name) + " is no name for a group");
    MatrixGroup group;
    int status = is_new ? kDone : OpenGroup(name, path, &group);
    if (status == kDone) status = AddPictures(request.AddedItems, &group);
    const bool is_users = platform::FolderOf(path) == UserGroupFolder();
    if (status == kDone && is_new && is_users) status = PrepareUserFolders();
    if (status != kDone) return status;
    return WriteGroup(path, group);
}

}  // namespace

int RunTiles(const Request& request) {
    const std::vector<std::string>& operands = request.Operands;
    const bool names_tile = operands.size() == 2;
    if (!request.AddedItems.empty()) {
        if (operands.size() != 1 || request.Removes || !request.Output.empty())
            return Refuse("pictures are added by 'tiles GROUP --add PICTURE'");
        return AddToGroup(request);
    }
    if (request.Removes) {
        if (!names_tile) return Refuse("a tile is taken out by 'tiles GROUP INDEX --remove'");
        return RemoveFromGroup(request);
    }
    if (!names_tile && !request.Output.empty())
        return Refuse("a tile is written as a picture by 'tiles GROUP INDEX -o FILE'");
    if (operands.empty()) return ListGroups(request.Json);
    const std::string path = FindGroupFile(operands.front(), kTileGroupExtension);
    MatrixGroup group;
    const int status = ReadGroup(operands.front(), path, &group);
    if (status != kDone) return status;
    if (names_tile) return ShowTile(request, {operands.front(), path}, group);
    return ListTiles(group, request.Json);
}

}  // namespace tess
