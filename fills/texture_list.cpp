#include "fills/texture_list.h"

#include "fills/group_list.h"
#include "fills/texture_group_file.h"
#include "platform/list_box.h"

namespace tess {

namespace {

using platform::LockedBlock;
using platform::OwnedBlock;
using platform::WindowHandle;

platform::MemoryHandle BlockOf(WindowHandle dialog, int index) {
    return static_cast<platform::MemoryHandle>(platform::ListItemData(dialog, kTextureList, index));
}

std::string NameOf(WindowHandle dialog, int index) {
    const std::string name = platform::ItemText(dialog, kTextureList, index);
    return name.empty() ? "UNKNOWN NAME" : name;
}

/// Returns a block with a copy of the item, owned by the caller, or null.
platform::MemoryHandle NewRecord(const TextureItem& item) {
    OwnedBlock block(platform::AllocateBlock(sizeof item));
    const LockedBlock<TextureItem> record(block.Get());
    if (!record) return nullptr;
    *record.Get() = item;
    return block.Release();
}

}  // namespace

int LoadTextureGroup(WindowHandle dialog, bool* writeable_flag) {
    TextureGroupReader reader(GroupPath(TextureGroupFile));
    if (!reader) {
        if (!reader.IsRead()) *writeable_flag = false;
        return 0;
    }
    FreeTextures(dialog);
    bool is_whole = true;
    std::string name;
    TextureItem item;
    while (is_whole && reader.Next(&name, &item)) {
        OwnedBlock block(NewRecord(item));
        is_whole = static_cast<bool>(block);
        // An entry that cannot be added is left out, and the rest is read.
        if (is_whole && platform::AddListItem(dialog, kTextureList, name, block.Get()) >= 0)
            static_cast<void>(block.Release());
    }
    if (!is_whole || !reader.IsRead()) {
        // A part of the group must not be written over the whole of it.
        FreeTextures(dialog);
        *writeable_flag = false;
        return 0;
    }
    if (reader.Writeable()) *writeable_flag = *reader.Writeable() != 0;
    return 1;
}

int SaveTextureGroup(WindowHandle dialog) {
    const int count = platform::ItemCount(dialog, kTextureList);
    TextureGroupWriter writer(GroupPath(TextureGroupFile), count);
    if (!writer) return 0;
    for (int i = 0; i < count; ++i) {
        TextureItem item;
        if (CopyTexture(dialog, i, &item)) writer.Add(NameOf(dialog, i), item);
    }
    return writer.Commit();
}

int AddTexture(WindowHandle dialog, std::string_view name, const TextureItem& item) {
    OwnedBlock block(NewRecord(item));
    if (!block) return -1;
    const int index = platform::AddListItem(dialog, kTextureList, name, block.Get());
    if (index >= 0) static_cast<void>(block.Release());
    return index;
}

bool CopyTexture(WindowHandle dialog, int index, TextureItem* item) {
    const LockedBlock<const TextureItem> record(BlockOf(dialog, index));
    if (!record) return false;
    *item = *record.Get();
    return true;
}

int RenameTexture(WindowHandle dialog, int index, std::string_view name) {
    const platform::MemoryHandle block = BlockOf(dialog, index);
    if (block == nullptr) return -1;
    // The new entry first, so that nothing is lost without memory for it.
    const int added = platform::AddListItem(dialog, kTextureList, name, block);
    if (added < 0) return -1;
    const bool is_before = added <= index;
    platform::DeleteListItem(dialog, kTextureList, is_before ? index + 1 : index);
    return is_before ? added : added - 1;
}

void DeleteTexture(WindowHandle dialog, int index) {
    const OwnedBlock block(BlockOf(dialog, index));
    platform::DeleteListItem(dialog, kTextureList, index);
}

void FreeTextures(WindowHandle dialog) {
    for (int i = 0; i < platform::ItemCount(dialog, kTextureList); ++i)
        platform::FreeBlock(BlockOf(dialog, i));
    platform::ClearItems(dialog, kTextureList);
}

}  // namespace tess
