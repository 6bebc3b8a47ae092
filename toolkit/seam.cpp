#include "toolkit/seam.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tess {

namespace {

double ColumnStep(const PackedDib* image, int from, int to) {
    std::int64_t sum = 0;
    for (int y = 0; y < image->Height; ++y) {
        const std::uint8_t* row = DibRow(image, y);
        for (int channel = 0; channel < 3; ++channel)
            sum += std::abs(row[3 * to + channel] - row[3 * from + channel]);
    }
    return static_cast<double>(sum) / (3.0 * image->Height);
}

double RowStep(const PackedDib* image, int from, int to) {
    const std::uint8_t* one = DibRow(image, from);
    const std::uint8_t* other = DibRow(image, to);
    std::int64_t sum = 0;
    for (int i = 0; i < 3 * image->Width; ++i)
        sum += std::abs(one[i] - other[i]);
    return static_cast<double>(sum) / (3.0 * image->Width);
}

template <class Step>
SeamSteps Measure(const PackedDib* image, int lines, Step step) {
    SeamSteps steps{};
    if (image->Width == 0 || image->Height == 0 || lines < 2) return steps;
    steps.Seam = step(image, lines - 1, 0);
    double sum = 0.0;
    for (int line = 1; line < lines; ++line) {
        const double inside = step(image, line - 1, line);
        sum += inside;
        const bool is_at_seam = line == 1 || line + 1 == lines;
        if (!is_at_seam) steps.Largest = std::max(steps.Largest, inside);
    }
    steps.Mean = sum / (lines - 1);
    return steps;
}

}  // namespace

PictureSeams MeasureSeams(const PackedDib* image) {
    return {Measure(image, image->Width, ColumnStep), Measure(image, image->Height, RowStep)};
}

bool JoinsItself(const SeamSteps& steps) {
    constexpr double kLittleMore = 1.5;
    return steps.Seam <= std::max(steps.Largest, kLittleMore * steps.Mean);
}

bool JoinsItself(const PictureSeams& seams) {
    return JoinsItself(seams.Columns) && JoinsItself(seams.Rows);
}

}  // namespace tess
