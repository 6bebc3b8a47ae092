// The steps that every style's Test and Build have in common. A style gives its
// state record and two steps:
//
//   struct State;                                      zero-filled before Setup
//   bool Setup(StyleContext& context, State& state);   reads the panel, seeds, sets
//                                                      FrameCount of the state
//   ImageHandle Render(StyleContext& context, State& state, int frame);
//
// and gets its two slots as TestStyle<...> and BuildStyle<...>. State is cleaned
// up by its own destructor. One that keeps pictures which it could make again may have
//
//   bool DropKept();   frees them; returns whether there was anything to free
//
// and gives way with it, here and in its own steps, where memory gets short.
#pragma once

#include "controls/spinner.h"
#include "pipeline/image_buffers.h"
#include "platform/memory.h"
#include "shell/control_contract.h"
#include "shell/style_table.h"

namespace tess {

/// The Test slot: renders frame 0 into context->Result. `Flags` are set first.
template <class State, bool (*Setup)(StyleContext&, State&),
          ImageHandle (*Render)(StyleContext&, State&, int), std::uint32_t Flags = 0>
int TestStyle(StyleContext* context) {
    State state{};
    context->State = &state;
    context->Flags |= Flags;
    if (Setup(*context, state)) context->Result = Render(*context, state, 0);
    context->State = nullptr;
    return context->Result != nullptr ? 1 : 0;
}

/// All frames of a run are as large as its first: when the rest cannot fit into
/// memory, a Build fails at once and not after minutes.
[[nodiscard]] inline bool HasMemoryForFrames(ImageHandle first, int count) {
    return platform::HasMemoryFor(platform::BlockSize(first) * static_cast<std::size_t>(count));
}

/// Adds a frame to the list, for which what `state` keeps gives way.
template <class State>
[[nodiscard]] bool AddFrame(FrameList* frames, const FrameRecord& record, State& state) {
    if (FrameListAdd(frames, &record) != 0) return true;
    if constexpr (requires { state.DropKept(); }) {
        return state.DropKept() && FrameListAdd(frames, &record) != 0;
    }
    return false;
}

/// How many frames a run of nearly every style has.
template <class State>
int StateFrames(const StyleContext&, const State& state) {
    return state.FrameCount;
}

/// The delay of all frames of nearly every style: the main dialog's.
inline std::uint32_t DialogDelay(const StyleContext&, std::uint32_t delay) {
    return delay;
}

/// The Build slot: renders every frame in order into context->Frames. Progress is
/// told as a part of `ProgressCount`. `Delay` makes a frame's delay of the main
/// dialog's, once the frame is rendered.
template <class State, bool (*Setup)(StyleContext&, State&),
          ImageHandle (*Render)(StyleContext&, State&, int),
          int (*FrameCount)(const StyleContext&, const State&) = StateFrames<State>,
          int (*ProgressCount)(const StyleContext&, const State&) = FrameCount,
          std::uint32_t (*Delay)(const StyleContext&, std::uint32_t delay) = DialogDelay>
int BuildStyle(StyleContext* context) {
    const auto delay = static_cast<std::uint32_t>(GetSpinnerValue(context->Dialog, kDelayEdit));
    State state{};
    context->State = &state;
    bool built = Setup(*context, state);
    const int count = built ? FrameCount(*context, state) : 0;
    for (int frame = 0; built && frame < count; ++frame) {
        FrameRecord record{Render(*context, state, frame), nullptr, 0, -1};
        built =
            record.Image != nullptr && (frame > 0 || HasMemoryForFrames(record.Image, count - 1));
        if (built) record.Delay = Delay(*context, delay);
        built = built && AddFrame(context->Frames, record, state);
        if (!built) {
            platform::FreeBlock(record.Image);
        } else {
            CallHost(context->Host, nullptr, HostOp::Progress, frame,
                     std::int64_t{ProgressCount(*context, state)});
        }
    }
    context->State = nullptr;
    return built ? 1 : 0;
}

}  // namespace tess
