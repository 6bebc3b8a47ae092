// Groups of textures as text files: reading one item after another, and writing a
// whole group. docs/formats/texture_group.md has the form of the text.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fills/texture.h"
#include "platform/files.h"
#include "platform/text_lines.h"

namespace tess {

inline constexpr char kDefaultTextureGroup[] = "vorbelx1.fft";
inline constexpr char kTextureGroupBanner[] = "QUORVENSTADTHOLME L-GRAIN TEXTURE FILE";

/// The file name of the current group, in PluginFile's folder; kept in the
/// configuration.
inline constexpr int kTextureGroupFileBytes = 260;
extern char TextureGroupFile[kTextureGroupFileBytes];

/// Reads a group item by item. Keeps nothing but the item that it is at, so a file of
/// any size can be read.
class TextureGroupReader {
public:
    explicit TextureGroupReader(std::string_view path);

    /// False for a file that cannot be opened or does not begin with the banner.
    explicit operator bool() const { return is_group_; }

    /// Reads the next item; what its block leaves out has its default, but a name left
    /// out is that of the item before. Returns false behind the last whole one.
    [[nodiscard]] bool Next(std::string* name, TextureItem* item);

    /// Whether all that was asked for could be read: false when the file could not be
    /// opened or a disk failed, which Next takes for the file's end.
    [[nodiscard]] bool IsRead() const;

    /// What the lines read so far say of whether the group may be changed; nothing where
    /// they do not say.
    [[nodiscard]] std::optional<std::int32_t> Writeable() const { return writeable_; }

private:
    struct CloseStream {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    bool NextLine(std::string_view* line);

    std::unique_ptr<std::FILE, CloseStream> stream_;
    platform::TextLines lines_;
    bool is_group_ = false;
    std::string name_;
    std::optional<std::int32_t> writeable_;
    char buffer_[1024];
};

/// Writes a group that may be changed, whole or not at all. Destroyed without Commit it
/// leaves the old file as it was.
class TextureGroupWriter {
public:
    /// A group of `count` items; one of none is an empty file.
    TextureGroupWriter(std::string_view path, int count);

    /// False when the file could not be created.
    explicit operator bool() const { return static_cast<bool>(file_); }
    void Add(std::string_view name, const TextureItem& item);
    /// Keeps the old file as PATH.bak and puts the new one in its place. Returns 0 on
    /// failure, and then the old file stays.
    [[nodiscard]] int Commit();

private:
    std::string path_;
    int count_;
    platform::NewFile file_;
};

}  // namespace tess
