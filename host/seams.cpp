#include "host/seams.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "pipeline/pixel_rows.h"

namespace tess {

namespace {

constexpr std::size_t kChannels = 3;

std::uint64_t Difference(const std::uint8_t* a, const std::uint8_t* b, std::size_t bytes) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        sum += static_cast<std::uint64_t>(std::abs(int{a[i]} - int{b[i]}));
    return sum;
}

/// Adds a frame's figures: those of its steps' sums of differences, each over `crossed`
/// channels. The last step is the join's.
void AddFigures(const platform::WorkArray<std::uint64_t>& steps, double crossed,
                JoinFigures* figures) {
    const std::size_t inside = steps.size() - 1;
    const std::size_t beside = inside > 2 ? 1 : 0;
    const std::size_t counted = inside - 2 * beside;
    std::uint64_t sum = 0, most = 0;
    for (std::size_t i = beside; i < beside + counted; ++i) {
        sum += steps[i];
        most = std::max(most, steps[i]);
    }
    figures->Join += static_cast<double>(steps[inside]) / crossed;
    figures->InsideMost += static_cast<double>(most) / crossed;
    if (counted > 0)
        figures->InsideMean += static_cast<double>(sum) / crossed / static_cast<double>(counted);
}

JoinFigures Mean(const JoinFigures& sums, int frames) {
    return {sums.Join / frames, sums.InsideMean / frames, sums.InsideMost / frames};
}

}  // namespace

bool HasSeam(const JoinFigures& figures) {
    return figures.Join > 1.5 * figures.InsideMost && figures.Join > figures.InsideMost + 1.0;
}

SeamMeter::SeamMeter(int width, int height)
    : width_(width),
      height_(height),
      first_(kChannels * static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      last_(first_.size()),
      frame_(first_.size()),
      columns_(static_cast<std::size_t>(width)),
      rows_(static_cast<std::size_t>(height)) {}

SeamMeter::operator bool() const {
    return first_ && last_ && frame_ && columns_ && rows_;
}

void SeamMeter::AddFrame(const std::uint8_t* pixels) {
    std::memcpy(frame_.data(), pixels, frame_.size());
    Add();
}

void SeamMeter::AddPicture(const PackedDib* image) {
    const std::size_t row_bytes = kChannels * static_cast<std::size_t>(width_);
    for (int y = 0; y < height_; ++y)
        ReadColorRow(image, y, nullptr, frame_.data() + static_cast<std::size_t>(y) * row_bytes);
    Add();
}

void SeamMeter::Add() {
    const std::uint8_t* pixels = frame_.data();
    const auto width = static_cast<std::size_t>(width_), height = static_cast<std::size_t>(height_);
    const std::size_t row_bytes = kChannels * width;
    std::fill_n(columns_.data(), width, 0);
    for (std::size_t y = 0; y < height; ++y) {
        const std::uint8_t* row = pixels + y * row_bytes;
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t* next = row + kChannels * ((x + 1) % width);
            columns_[x] += Difference(row + kChannels * x, next, kChannels);
        }
        rows_[y] = Difference(row, pixels + (y + 1) % height * row_bytes, row_bytes);
    }
    AddFigures(columns_, static_cast<double>(kChannels * height), &column_sums_);
    AddFigures(rows_, static_cast<double>(row_bytes), &row_sums_);
    if (frames_ == 0) {
        std::memcpy(first_.data(), pixels, first_.size());
    } else {
        const auto bytes = static_cast<double>(last_.size());
        const double step =
            static_cast<double>(Difference(last_.data(), pixels, last_.size())) / bytes;
        frame_sum_ += step;
        frame_most_ = std::max(frame_most_, step);
    }
    std::swap(last_, frame_);
    ++frames_;
}

SeamFigures SeamMeter::Figures() const {
    const auto bytes = static_cast<double>(last_.size());
    const double join =
        static_cast<double>(Difference(last_.data(), first_.data(), last_.size())) / bytes;
    return {Mean(column_sums_, frames_),
            Mean(row_sums_, frames_),
            {join, frames_ > 1 ? frame_sum_ / (frames_ - 1) : 0, frame_most_}};
}

}  // namespace tess
