// The commands and options of the program, as rows: the parser, the help and the
// tests read them here, and nothing else knows what options there are.
#pragma once

#include <span>
#include <string_view>

#include "programs/cli/request.h"

namespace tess {

/// Which commands an option belongs to.
enum CommandBit : unsigned {
    kBuildBit = 1,
    kSampleBit = 2,
    kPreviewBit = 4,
    kEncodeBit = 8,
    kStylesBit = 16,
    kParamsBit = 32,
    kConfigBit = 64,
    kDocumentBit = 128,
    kGalleryBit = 256,
    kTextureBit = 512,
    kFountainBit = 1024,
    kTilesBit = 2048,
    kMaterialBit = 4096,
    kCheckBit = 8192,
    kAllCommands = 511 | kTextureBit | kFountainBit | kTilesBit | kMaterialBit | kCheckBit,
};

struct CommandRow {
    const char* Name;
    CommandBit Bit;
    const char* Operands;  ///< "[STYLE]"; "" for none
    int LeastOperands;
    int MostOperands;  ///< -1 for any number
    const char* ShortHelp;
    const char* LongHelp;
    /// Does it; returns the exit status.
    int (*Run)(const Request& request);
};

/// What differs between commands has a row for each; no command has two of one name.
struct OptionRow {
    const char* Name;   ///< without the dashes
    char Letter;        ///< 0 for none
    const char* Value;  ///< what its value is called; null for an option without one
    unsigned Commands;  ///< CommandBits
    const char* ShortHelp;
    const char* LongHelp;  ///< "" where the short help says it all
    /// Notes it in the request. Returns false for a value that it does not take.
    bool (*Apply)(Request& request, std::string_view value);
    const char* Takes;     ///< what values it takes, for the message; null without a value
    bool Repeats = false;  ///< each time that it is given counts, not the last alone
};

[[nodiscard]] std::span<const CommandRow> Commands();
[[nodiscard]] std::span<const OptionRow> Options();

/// Returns the row, or null.
[[nodiscard]] const CommandRow* FindCommand(std::string_view name);

}  // namespace tess
