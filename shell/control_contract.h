// What controls have in common: class tags, message numbers, the main dialog's ids,
// texts and messages to the user. The functions are implemented in shell/messages.cpp.
#pragma once

#include <cstdint>

#include "platform/dialog.h"

namespace tess {

// The program's own messages.
inline constexpr std::uint32_t ShowStyle = 1224;        ///< re-show the selected style's controls
inline constexpr std::uint32_t ReadControlText = 1326;  ///< a picker reads its value from its text
inline constexpr std::uint32_t RefreshSample = 1327;    ///< repaint the sample
inline constexpr std::uint32_t SaveControl = 1334;  ///< `l`: FILE* to write the control's line to
inline constexpr std::uint32_t LoadControl = 1335;  ///< `l`: const char* of a line to read
inline constexpr std::uint32_t InitializeControl = 1424;
inline constexpr std::uint32_t ReadControlValue = 1425;

// Buttons that dialogs have in common. In the main dialog the first is the Build button.
inline constexpr int kOkButton = 1;
inline constexpr int kCancelButton = 2;
inline constexpr int kYesButton = 6;
inline constexpr int kNoButton = 7;
inline constexpr int kHelpButton = 9;

/// Controls of the main dialog. A spinner's up-down is its id + 10000.
enum MainControl : int {
    kBuildButton = kOkButton,
    kTrueColorBox = 10,
    kDelayEdit = 11,
    kSizeLine = 12,
    kPaletteList = 13,
    kCustomPaletteBox = 14,
    kDitherBox = 15,
    kLogo = 17,
    kAboutButton = 18,
    kSupercompressBox = 19,
    kCommentBox = 20,
    kMaskBackgroundBox = 21,
    kTestButton = 24,
    kSampleBox = 25,
    kOpenSaveButton = 36,
    kPreviewButton = 40,
    kEffectList = 58,
};

// Class tags, the six letters that say how a control behaves.
inline constexpr char kColorButtonTag[] = "CLRBTN";
inline constexpr char kSpinnerTag[] = "SPNBTN";
inline constexpr char kSignedSpinnerTag[] = "SPNSGN";
inline constexpr char kCheckBoxTag[] = "CHKBOX";
inline constexpr char kComboBoxTag[] = "CMBBOX";
inline constexpr char kFontBoxTag[] = "FNTBOX";
inline constexpr char kShadowDirectionTag[] = "SDWDIR";
inline constexpr char kScroll4Tag[] = "SCRL4D";
inline constexpr char kScroll2Tag[] = "SCRL2D";
inline constexpr char kScrollHvTag[] = "SCRLHV";
inline constexpr char kFountainTag[] = "FOUNTB";
inline constexpr char kMatrixTag[] = "MATRIX";
inline constexpr char kMaterialTag[] = "MATLBT";

/// Numbers of the string table.
enum class StringId {
    Ok = 0,
    ErrorOpeningFile = 1,
    CorruptedFile = 2,
    ErrorReadingFile = 3,
    FunctionCancelled = 4,
    UnsupportedFunction = 5,
    MemoryError = 6,
    InformationError = 7,
    UnsupportedFormat = 8,
    ErrorRenamingFile = 9,
    ErrorCreatingFile = 10,
    ErrorWritingFile = 11,
    TooManyColors = 12,
    UnsuitableImage = 13,
    ResourceError = 14,
    LibraryError = 15,
};

/// The string-table text in a shared buffer of 1024 bytes that the next call
/// overwrites, or "String table error - this application may be damaged".
[[nodiscard]] const char* LoadStringText(int id);
[[nodiscard]] inline const char* LoadStringText(StringId id) {
    return LoadStringText(static_cast<int>(id));
}

/// Shows `text` in a MESSAGEBOX, modally, then updates `owner`.
void ShowMessage(platform::WindowHandle owner, const char* text);

/// Asks `text` in a YESNOBOX, modally. Returns whether the answer was Yes.
[[nodiscard]] bool AskYesNo(platform::WindowHandle owner, const char* text);

}  // namespace tess
