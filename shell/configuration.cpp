// The file is text: comment lines that begin with ";", the line "[PlugIn]", and one
// line "NAME = VALUE" a row of the table, in the table's order. It is read line by
// line, by rules that take more than is written:
//
// - A line is cut at its first character below a blank. The name ends at the first
//   blank or "="; what follows is the value, behind blanks, a run of "=", blanks.
// - A name stands for the first readable row that begins with it. So "Main" is
//   MainDelay, and an empty name, of an empty line too, is the first row of all.
// - A number is what `atoi` makes of the value, so 0 when it is none.
// - A line of more than 260 bytes is read in pieces, each a line of its own.
#include "shell/configuration.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control_line.h"
#include "controls/dialog_background.h"
#include "fills/matrix_group_file.h"
#include "fills/texture_group_file.h"
#include "pipeline/remapping.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/text_lines.h"
#include "shell/style_table.h"

namespace tess {

std::uint32_t AddDescriptiveCommentBlock = 1;
char CurrentFileName[kBoundTextBytes] = "untitled.qv1";
std::uint32_t FirstRun = 1;
std::uint32_t MainDelay = 4;
std::uint32_t MainDither = 0;
std::uint32_t MainEffect = 5;
std::uint32_t MainMaskBackground = 1;
std::uint32_t MainPalette = 6;
std::uint32_t MainSupercompress = 0;
std::uint32_t SampleWindowKeyLine = 0;
std::uint32_t Truecolour = 1;

namespace {

constexpr std::size_t kLineBytes = 260;

// Values without a reader: they are kept so that a file stays as it is.
std::uint32_t AccentCompensation = 1;
std::uint32_t MainDepth = 32;
std::uint32_t MainRolling = 1;
std::uint32_t MainSteps = 32;
char MatrixDefaultTile[kBoundTextBytes] = "";
char OpenPath[kBoundTextBytes] = "";
std::uint32_t PatchLevel = 1;
std::uint32_t ShowFileOpenPreview = 1;
std::uint32_t UpdateDelay = 1000;
std::uint32_t VersionNumber = 512;

static_assert(kMatrixGroupFileBytes == kBoundTextBytes);
static_assert(kTextureGroupFileBytes == kBoundTextBytes);

constexpr ConfigKey kGeneralKeys[] = {
    {"AddDescriptiveCommentBlock", &AddDescriptiveCommentBlock, kNumberKey},
    {"AccentCompensation", &AccentCompensation, kNumberKey},
    {"CurrentFileName", CurrentFileName, kTextKey},
    {"DefaultTextureFileName", TextureGroupFile, kTextKey},
    {"DitherBrightness", &DitherBrightness, kNumberKey},
    {"DitherContrast", &DitherContrast, kNumberKey},
    {"FastRemap", &FastRemap, kNumberKey},
    {"FirstRun", &FirstRun, kNumberKey},
    {"MainDelay", &MainDelay, kNumberKey},
    {"MainDepth", &MainDepth, kNumberKey},
    {"MainDither", &MainDither, kNumberKey},
    {"MainEffect", &MainEffect, kNumberKey},
    {"MainMaskBackground", &MainMaskBackground, kNumberKey},
    {"MainPalette", &MainPalette, kNumberKey},
    {"MainRolling", &MainRolling, kNumberKey},
    {"MainSteps", &MainSteps, kNumberKey},
    {"MainSupercompress", &MainSupercompress, kNumberKey},
    {"MatrixLibrary", MatrixGroupFile, kTextKey},
    {"MatrixDefaultTile", MatrixDefaultTile, kTextKey},
    {"OpenPath", OpenPath, kTextKey},
    {"PatchLevel", &PatchLevel, kNumberKey | kWriteOnlyKey},
    {"SampleWindowKeyLine", &SampleWindowKeyLine, kNumberKey},
    {"SolidBackground", &SolidBackground, kNumberKey},
    {"ShowFileOpenPreview", &ShowFileOpenPreview, kNumberKey},
    {"Truecolour", &Truecolour, kNumberKey},
    {"UpdateDelay", &UpdateDelay, kNumberKey},
    {"VersionNumber", &VersionNumber, kNumberKey | kWriteOnlyKey},
};

std::vector<ConfigKey> MakeTable() {
    std::vector<ConfigKey> table(std::begin(kGeneralKeys), std::end(kGeneralKeys));
    std::vector<const StyleEntry*> styles(std::begin(StyleTable), std::end(StyleTable));
    // A key's number is not the style's place in the effect list.
    std::sort(styles.begin(), styles.end(), [](const StyleEntry* a, const StyleEntry* b) {
        return std::string_view(a->ConfigurationName) < b->ConfigurationName;
    });
    for (const StyleEntry* style : styles) {
        for (StyleParameter& parameter : style->Parameters) {
            if (parameter.Key != nullptr) {
                table.push_back({parameter.Key, &parameter.Value, kNumberKey});
            }
        }
    }
    return table;
}

/// The first row that may be read and whose name begins with `name`.
const ConfigKey* FindKey(std::string_view name) {
    for (const ConfigKey& key : ConfigurationTable()) {
        if (key.IsReadable() && std::string_view(key.Name).starts_with(name)) return &key;
    }
    return nullptr;
}

void ReadLine(char* line) {
    if (line[0] == ';') return;
    char* end = line;
    while (static_cast<unsigned char>(*end) >= ' ')
        ++end;
    *end = '\0';
    const std::size_t name_length = std::strcspn(line, " =");
    const ConfigKey* key = FindKey({line, name_length});
    if (key == nullptr) return;
    const char* value = line + name_length;
    value += std::strspn(value, " ");
    value += std::strspn(value, "=");
    value += std::strspn(value, " ");
    if (key->IsText()) {
        std::snprintf(static_cast<char*>(key->Value), kBoundTextBytes, "%s", value);
    } else if (key->IsNumber()) {
        *static_cast<std::uint32_t*>(key->Value) = static_cast<std::uint32_t>(ReadNumber(value));
    }
}

void ReadLines(platform::TextLines lines) {
    char line[kLineBytes + 1];
    while (lines.Next(line))
        ReadLine(line);
}

void WriteKey(const ConfigKey& key, std::FILE* stream) {
    if (key.IsText()) {
        std::fprintf(stream, "%s = %s\n", key.Name, static_cast<const char*>(key.Value));
    } else if (key.IsNumber()) {
        std::fprintf(stream, "%s = %" PRIu32 "\n", key.Name,
                     *static_cast<const std::uint32_t*>(key.Value));
    }
}

}  // namespace

std::span<const ConfigKey> ConfigurationTable() {
    static const std::vector<ConfigKey> table = MakeTable();
    return table;
}

void ReadConfiguration() {
    // With Shift held no key may be read: that is the way back to the defaults.
    if (platform::IsShiftHeld()) return;
    const char* path = platform::UserFile(kConfigurationFile);
    if (path[0] != '\0') ReadConfigurationFile(path);
}

void WriteConfiguration() {
    const char* path = platform::UserFile(kConfigurationFile);
    if (path[0] != '\0') WriteConfigurationFile(path);
}

int ReadConfigurationFile(const char* path) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return 0;
    ReadLines(platform::TextLines(stream));
    const bool is_whole = std::ferror(stream) == 0;
    std::fclose(stream);
    return is_whole ? 1 : 0;
}

int WriteConfigurationFile(const char* path) {
    platform::NewFile file(path, platform::FileMode::Text);
    if (!file) return 0;
    PrintConfiguration(file.Stream());
    return file.Commit();
}

void ReadConfigurationText(std::string_view text) {
    ReadLines(platform::TextLines(text));
}

void PrintConfiguration(std::FILE* stream) {
    std::fputs(
        ";Quorvenstadtholme animtion plugin configuration file\n"
        ";Edit this at your own risk\n",
        stream);
    std::fprintf(stream, ";Last updated %24.24s\n;\n[PlugIn]\n",
                 platform::CurrentTimeText().c_str());
    for (const ConfigKey& key : ConfigurationTable())
        WriteKey(key, stream);
}

}  // namespace tess
