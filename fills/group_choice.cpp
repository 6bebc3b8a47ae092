#include "fills/group_choice.h"

#include <cstdio>

#include "fills/group_list.h"
#include "fills/name_box.h"
#include "platform/files.h"
#include "platform/letter_case.h"
#include "platform/list_box.h"
#include "shell/control_contract.h"

namespace tess {

namespace {

using platform::WindowHandle;

/// The place of a group in the list, -1 for one that is not there.
int FindGroup(WindowHandle dialog, const GroupChoice& groups, std::string_view name) {
    for (int i = 0; i < platform::ItemCount(dialog, groups.Control); ++i) {
        if (platform::IsSameName(platform::ItemText(dialog, groups.Control, i), name)) return i;
    }
    return -1;
}

/// The current group's name as it was typed: its file but for the extension.
std::string_view TypedName(const GroupChoice& groups) {
    const std::string_view file = groups.File;
    return file.substr(0, file.rfind('.'));
}

/// The place of the current group, which the selection need not be: keys and the wheel move
/// that while the list is closed. A file of an earlier time is listed up to its first point.
int FindCurrentGroup(WindowHandle dialog, const GroupChoice& groups) {
    const int typed = FindGroup(dialog, groups, TypedName(groups));
    return typed >= 0 ? typed : FindGroup(dialog, groups, GroupNameOf(groups.File));
}

void TellOfWriting(WindowHandle dialog) {
    ShowMessage(dialog, LoadStringText(StringId::ErrorWritingFile));
}

}  // namespace

std::string GroupNameOf(std::string_view file) {
    return std::string(file.substr(0, file.find('.')));
}

void ListGroups(WindowHandle dialog, const GroupChoice& groups) {
    for (const std::string& name : GroupNames(groups.Extension))
        platform::AddItem(dialog, groups.Control, name);
    SelectCurrentGroup(dialog, groups);
}

void SelectCurrentGroup(WindowHandle dialog, const GroupChoice& groups) {
    platform::SetSelection(dialog, groups.Control, FindCurrentGroup(dialog, groups));
}

void SetCurrentGroup(const GroupChoice& groups, const std::string& file) {
    std::snprintf(groups.File, groups.FileBytes, "%s", file.c_str());
}

bool TakeSelectedGroup(WindowHandle dialog, const GroupChoice& groups) {
    const int index = platform::Selection(dialog, groups.Control);
    if (index < 0) return false;
    SetCurrentGroup(groups, platform::ItemText(dialog, groups.Control, index) + groups.Extension);
    return true;
}

bool AddGroup(WindowHandle dialog, const GroupChoice& groups, int (*save)(WindowHandle dialog)) {
    std::string name = "Untitled";
    if (!AskName(dialog, groups.NameTemplate, &name)) return false;
    const std::string old_file = groups.File;
    // A name with a folder in it would leave the user's own.
    const bool is_name = name.find_first_of("/\\:") == std::string::npos;
    if (is_name) SetCurrentGroup(groups, name + groups.Extension);
    if (!is_name || save(dialog) == 0) {
        SetCurrentGroup(groups, old_file);
        TellOfWriting(dialog);
        return false;
    }
    if (FindGroup(dialog, groups, name) < 0) platform::AddItem(dialog, groups.Control, name);
    platform::SetSelection(dialog, groups.Control, FindGroup(dialog, groups, name));
    return true;
}

bool DeleteCurrentGroup(WindowHandle dialog, const GroupChoice& groups) {
    const int index = FindCurrentGroup(dialog, groups);
    char question[512];
    std::snprintf(question, sizeof question, groups.DeleteQuestion,
                  std::string(TypedName(groups)).c_str());
    if (!AskYesNo(dialog, question)) return false;
    if (platform::MoveToRecycleBin(GroupPath(groups.File)) == 0) {
        TellOfWriting(dialog);
        return false;
    }
    if (index >= 0) platform::DeleteListItem(dialog, groups.Control, index);
    SetCurrentGroup(groups, groups.DefaultFile);
    SelectCurrentGroup(dialog, groups);
    return true;
}

}  // namespace tess
