// The command that lists groups of tiles, shows a tile and changes a user's group.
#include <algorithm>
#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "fills/group_list.h"
#include "fills/matrix_group_file.h"
#include "host/json_writer.h"
#include "platform/block_guards.h"
#include "platform/files.h"
#include "programs/cli/commands.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/group_files.h"
#include "programs/cli/output_format.h"
#include "programs/cli/picture_file.h"
#include "programs/cli/session.h"
#include "programs/cli/tile_settings.h"
#include "programs/cli/values.h"
#include "programs/default_groups.h"

namespace tess {
namespace {

constexpr char kExtension[] = ".mtx";

int Refuse(const std::string& text) {
    TellUser(text);
    return kWrongUse;
}

int Fail(const std::string& text) {
    TellUser(text);
    return kFailed;
}

bool IsPath(const std::string& group) {
    return group.find('/') != std::string::npos || std::string_view(group).ends_with(kExtension);
}

std::string FindGroup(const std::string& group) {
    if (IsPath(group)) return platform::FileExists(group) ? group : "";
    return FindTileGroup(group + kExtension);
}

// Reads a group. Returns kDone, or another exit status after telling the user.
int ReadGroup(const std::string& name, const std::string& path, MatrixGroup* group) {
    const GroupReading reading =
        path.empty() ? GroupReading::Missing : ReadMatrixGroup(path, group);
    if (reading == GroupReading::Missing)
        return Fail("there is no group " + ShownText(name) +
                    "; 'tessellomatics tiles' lists the groups");
    if (reading == GroupReading::Damaged) return Fail(path + ": is damaged");
    return kDone;
}

struct ListedGroup {
    std::string Name, Path;
};

// The user's groups, and those that came with the program and are not among them.
std::vector<ListedGroup> AllGroups() {
    std::vector<ListedGroup> groups;
    const auto add = [&groups](const std::string& folder) {
        for (const std::string& file : platform::FilesIn(folder, kExtension)) {
            const std::string name = file.substr(0, file.size() + 1 - sizeof kExtension);
            const bool is_known =
                std::any_of(groups.begin(), groups.end(), [&name](const ListedGroup& group) {
                    return PlainName(group.Name) == PlainName(name);
                });
            if (!is_known) groups.push_back({name, folder + file});
        }
    };
    add(std::string(platform::FolderOf(platform::PluginFile("x"))));
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
            std::printf("%-20s %-6s %-11s %s\n", listed.Name.c_str(),
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

void ListTile(JsonWriter* json, int index, const PackedDib& image) {
    if (json == nullptr) {
        const std::string size = std::to_string(image.Width) + " x " + std::to_string(image.Height);
        std::printf("%-5d  %-12s %d\n", index, size.c_str(), int{image.BitCount});
        return;
    }
    json->BeginObject();
    json->Key("index");
    json->Number(index);
    json->Key("width");
    json->Number(image.Width);
    json->Key("height");
    json->Number(image.Height);
    json->Key("depth");
    json->Number(image.BitCount);
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

int WriteTile(const MatrixGroup& group, const std::string& text, const std::string& output) {
    const int index = FindTileIndex(group, text);
    if (index < 0) return kWrongUse;
    if (const int status = CheckPictureOutput(output); status != kDone) return status;
    return WritePicture(group.Element(index), output);
}

// --- Changing

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
int RemoveTile(const Request& request, MatrixGroup* group) {
    const std::string& text = request.Operands.back();
    if (!request.Output.empty()) {
        const int status = WriteTile(*group, text, request.Output);
        if (status != kDone) return status;
    }
    const int index = FindTileIndex(*group, text);
    if (index < 0) return kWrongUse;
    platform::FreeBlock(group->Take(index));
    return kDone;
}

// The path of the group to be changed; of one that is to be made where there is none.
std::string PathToChange(const std::string& name) {
    if (IsPath(name)) return name;
    return GroupPath((name + kExtension).c_str());
}

int ChangeGroup(const Request& request) {
    const std::string& name = request.Operands.front();
    if (!IsPath(name)) {
        if (const int status = PrepareUserFolders(); status != kDone) return status;
    }
    const std::string path = PathToChange(name);
    MatrixGroup group;
    switch (ReadMatrixGroup(path, &group)) {
        case GroupReading::Missing:
            if (request.Removes) return ReadGroup(name, "", &group);
            break;
        case GroupReading::Damaged:
            return Fail(path + ": is damaged");
        case GroupReading::Whole:
            if (!group.IsWriteable)
                return Fail("the group " + ShownText(name) +
                            " cannot be changed; add to one of your own");
            break;
    }
    const int status =
        request.Removes ? RemoveTile(request, &group) : AddPictures(request.AddedItems, &group);
    if (status != kDone) return status;
    platform::WorkArray<ImageHandle> elements(static_cast<std::size_t>(group.Count()));
    if (!elements) return Fail("memory is short");
    for (int i = 0; i < group.Count(); ++i)
        elements[static_cast<std::size_t>(i)] = group.Element(i);
    if (WriteMatrixGroup(path, {elements.data(), elements.size()}) == 0)
        return Fail(WriteFault(path));
    return kDone;
}

}  // namespace

int RunTiles(const Request& request) {
    const std::vector<std::string>& operands = request.Operands;
    const bool names_tile = operands.size() == 2;
    if (!request.AddedItems.empty()) {
        if (operands.size() != 1 || request.Removes || !request.Output.empty())
            return Refuse("pictures are added by 'tiles GROUP --add PICTURE'");
        return ChangeGroup(request);
    }
    if (request.Removes) {
        if (!names_tile) return Refuse("a tile is taken out by 'tiles GROUP INDEX --remove'");
        return ChangeGroup(request);
    }
    if (names_tile == request.Output.empty())
        return Refuse("a tile is written as a picture by 'tiles GROUP INDEX -o FILE'");
    if (operands.empty()) return ListGroups(request.Json);
    MatrixGroup group;
    const int status = ReadGroup(operands.front(), FindGroup(operands.front()), &group);
    if (status != kDone) return status;
    if (names_tile) return WriteTile(group, operands.back(), request.Output);
    return ListTiles(group, request.Json);
}

}  // namespace tess
