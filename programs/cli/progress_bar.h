// How far a run is, as a line on standard error that overwrites itself; only where
// that is a terminal.
#pragma once

#include <cstdint>
#include <string>

#include "host/collecting_host.h"

namespace tess {

class ProgressBar {
public:
    explicit ProgressBar(bool quiet);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar() { Clear(); }

    /// What the host reports to. Requires: this outlives the host's use.
    [[nodiscard]] HostReports Reports();
    /// Leaves an empty line.
    void Clear();

private:
    static void ShowStage(void* context, const char* title);
    static void ShowProgress(void* context, std::int64_t done, std::int64_t total);

    bool shown_;
    bool drawn_ = false;
    int cells_ = -1;
    std::string stage_;
};

}  // namespace tess
