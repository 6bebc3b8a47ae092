// Where the groups of textures and of tiles are that the command line names.
#pragma once

#include <string>
#include <string_view>

namespace tess {

inline constexpr char kTextureGroupExtension[] = ".fft";
inline constexpr char kTileGroupExtension[] = ".mtx";

/// The name of the groups that come with the program, one of textures and one of tiles.
inline constexpr char kProvidedGroup[] = "vorbelx1";

/// Whether a name ends in `extension`, in whatever case, with something before it.
[[nodiscard]] bool EndsIn(std::string_view name, std::string_view extension);

/// The folder of the user's groups, with a trailing separator. It is the same while a
/// preview has another folder for its files.
[[nodiscard]] std::string UserGroupFolder();

/// Returns the path of the group that the user calls `name`, empty when there is none.
/// What holds a "/", or is the name of a file with `extension`, is a path, which may lack
/// the extension; all else is the name of a group, with or without the extension.
[[nodiscard]] std::string FindGroupFile(const std::string& name, std::string_view extension);

/// What is said of a name that FindGroupFile finds nothing for.
[[nodiscard]] std::string GroupFault(const std::string& name, std::string_view extension);

/// Returns the path of the group with that file name, in whatever case: in the user's
/// folder, or else among those that came with the program. Empty when there is none.
[[nodiscard]] std::string FindGroupNamed(std::string_view file);

/// Returns the path that a new group called `name` gets; empty for what is no name: one
/// that is empty, or that begins with a dot and so would not be listed.
[[nodiscard]] std::string NewGroupFile(const std::string& name, std::string_view extension);

/// Returns the path of the same file from the root, by which it is found from any folder.
[[nodiscard]] std::string PathFromRoot(const std::string& path);

}  // namespace tess
