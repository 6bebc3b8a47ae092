// The system's drawing service for anti-aliased shapes. It has to be started before
// its first use and stopped after the last. Natively there is none.
#pragma once

#include <cstdint>

namespace platform {

/// Returns 1 with a token in `token`, or 0.
[[nodiscard]] int StartGraphics(std::uint64_t* token);
void StopGraphics(std::uint64_t token);

/// The three fonts that the plug-in holds for the length of a run. Natively there are
/// none.
class RunFonts {
public:
    RunFonts();
    RunFonts(const RunFonts&) = delete;
    RunFonts& operator=(const RunFonts&) = delete;
    // Windows deletes the fonts here.
    ~RunFonts();  // NOLINT(performance-trivially-destructible)

    static constexpr int kCount = 3;
    /// A font of the system, null natively and when it could not be made.
    [[nodiscard]] void* Font(int index) const { return fonts_[index]; }

private:
    void* fonts_[kCount] = {};
};

}  // namespace platform
