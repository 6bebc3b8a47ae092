#include "programs/cli/progress_bar.h"

#include <cstdio>
#include <unistd.h>

namespace tess {
namespace {

constexpr int kCells = 40;

}  // namespace

ProgressBar::ProgressBar(bool quiet) : shown_(!quiet && isatty(STDERR_FILENO) != 0) {}

HostReports ProgressBar::Reports() {
    if (!shown_) return {};
    return {ShowStage, ShowProgress, this};
}

void ProgressBar::Clear() {
    if (drawn_) std::fputs("\r\033[K", stderr);
    drawn_ = false;
    cells_ = -1;
}

void ProgressBar::ShowStage(void* context, const char* title) {
    auto& bar = *static_cast<ProgressBar*>(context);
    bar.stage_ = title != nullptr ? title : "";
    bar.cells_ = -1;
}

void ProgressBar::ShowProgress(void* context, std::int64_t done, std::int64_t total) {
    auto& bar = *static_cast<ProgressBar*>(context);
    if (total <= 0) return bar.Clear();
    const int cells = static_cast<int>(done * kCells / total);
    if (cells == bar.cells_) return;  // redrawn only where it looks different
    bar.cells_ = cells;
    bar.drawn_ = true;
    const std::string filled(static_cast<std::size_t>(cells), '#');
    std::fprintf(stderr, "\r%-17s [%-*s]", bar.stage_.c_str(), kCells, filled.c_str());
}

}  // namespace tess
