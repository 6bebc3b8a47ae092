// The twenty styles, and the contract that each keeps. The main dialog and the
// build driver reach a style only through its row here.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pipeline/image_buffers.h"
#include "platform/dialog.h"
#include "shell/host_interface.h"

namespace tess {

/// One run of a slot. The caller zeroes it before each use.
struct StyleContext {
    platform::WindowHandle Dialog;           ///< a style reads its parameters here, by control id
    FrameList* Frames;                       ///< being filled by Build; null in Test
    const HostServices* Host;                ///< set in Build only
    ImageHandle Result;                      ///< what Test leaves for its caller, who owns it
    std::int32_t SampleWidth, SampleHeight;  ///< size of the sample box in pixels
    std::uint32_t Flags;
    void* State;  ///< the style's own working record during its run
};

/// A bit of StyleContext::Flags, set by the Test of some styles.
inline constexpr std::uint32_t SampleDraft = 2;

enum class ParameterKind {
    Spinner,
    ColorButton,
    CheckBox,
    ChoiceList,  ///< `Detail`: the choices, separated by ";"
    ShadowDirection,
    Scroll4,
    Scroll2,
    ScrollHv,
    Fountain,  ///< `Detail`: the item's name; no key
    Matrix,    ///< the element of a tile's group
};

/// One parameter of a style: its row is the only place where it is declared.
/// `Value` is what its control is bound to and the configuration keeps.
struct StyleParameter {
    const char* Key;  ///< "Style000Width"; null for a kind without a key
    int ControlId;
    ParameterKind Kind;
    std::uint32_t Start;
    const char* Detail = nullptr;
    std::uint32_t Value = Start;
};

/// One style. A row is written by the style's own file, at its end.
struct StyleEntry {
    const char* Name;               ///< shown in the effect list, and nothing else
    const char* ConfigurationName;  ///< "Style000": prefix of its keys
    int PanelTemplate;
    std::span<StyleParameter> Parameters;
    /// Renders the sample into `Result`. Returns nonzero on success.
    int (*Test)(StyleContext* context);
    /// Renders all frames into `Frames`. Returns nonzero on success; frames added
    /// before a failure stay in the list, for the caller to free.
    int (*Build)(StyleContext* context);
    int BackgroundControl;  ///< colour button of the background, 0 for none
};

inline constexpr int kStyleCount = 20;

/// In the order of the effect list.
extern const StyleEntry* const StyleTable[kStyleCount];

/// What BackgroundQuery answers for a style without a flat background.
inline constexpr ColorWord kNoBackground = 0xFFFFFFFF;

/// Sets the style's panel up in context->Dialog: clones its controls, hidden, and
/// binds each to its parameter. Returns nonzero on success.
int PanelInit(const StyleEntry& style, StyleContext* context);

/// The colour of the style's background for `mode` 0; kNoBackground for any other
/// mode and for a style without one.
[[nodiscard]] ColorWord BackgroundQuery(const StyleEntry& style, platform::WindowHandle dialog,
                                        std::uint32_t mode);

/// Every control id of the style's panel in template order, companions included.
[[nodiscard]] std::vector<int> ControlList(const StyleEntry& style);

}  // namespace tess
