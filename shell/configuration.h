// The configuration file "vorbelx1.ini": every parameter by name, kept between
// runs. A table of variables is walked; controls have no part in it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "shell/value_controls.h"

namespace tess {

// General values, with the defaults of a new installation. Values that nothing
// in the program reads travel through the file and stand in configuration.cpp.
extern std::uint32_t AddDescriptiveCommentBlock;
extern char CurrentFileName[kBoundTextBytes];
extern std::uint32_t FirstRun;
extern std::uint32_t MainDelay;
extern std::uint32_t MainDither;
extern std::uint32_t MainEffect;
extern std::uint32_t MainMaskBackground;
extern std::uint32_t MainPalette;
extern std::uint32_t MainSupercompress;
extern std::uint32_t SampleWindowKeyLine;
extern std::uint32_t Truecolour;

/// Bits of ConfigKey::Flags. Others have no meaning here.
inline constexpr std::uint32_t kNumberKey = 1;  ///< a 32-bit number
inline constexpr std::uint32_t kTextKey = 2;    ///< up to 260 bytes
inline constexpr std::uint32_t kOtherNumberKey = 4;
inline constexpr std::uint32_t kWriteOnlyKey = 256;  ///< never read back

/// The file's name in the per-user folder.
inline constexpr char kConfigurationFile[] = "vorbelx1.ini";

struct ConfigKey {
    const char* Name;
    void* Value;  ///< uint32_t, or char[kBoundTextBytes]
    std::uint32_t Flags;

    [[nodiscard]] bool IsNumber() const { return (Flags & (kNumberKey | kOtherNumberKey)) != 0; }
    [[nodiscard]] bool IsText() const { return !IsNumber() && (Flags & kTextKey) != 0; }
    [[nodiscard]] bool IsReadable() const { return (Flags & kWriteOnlyKey) == 0; }
};

/// All 304 rows in the order of the file: the general keys, then the styles' by
/// number and each style's in the order of its parameters.
[[nodiscard]] std::span<const ConfigKey> ConfigurationTable();

/// Reads the file of the per-user folder over the variables. Without one, or with
/// Shift held, all stay as they are.
void ReadConfiguration();
/// Writes the file whole; gives up silently when it cannot.
void WriteConfiguration();

/// The same for any file. Returns 0 when it cannot be opened, read or written.
int ReadConfigurationFile(const char* path);
int WriteConfigurationFile(const char* path);

/// The same for a text in memory and for an open stream.
void ReadConfigurationText(std::string_view text);
void PrintConfiguration(std::FILE* stream);

}  // namespace tess
