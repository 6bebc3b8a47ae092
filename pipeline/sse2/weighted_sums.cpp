// A sum in double precision costs a conversion, a product and an addition for
// each byte. So most results are first taken in fixed point, eight products an
// instruction, with a bound on how far they can be off (LineWeights::margin).
// A result further than that from the next rounding step, k + 0.5, is the result
// of the exact sum as well; the few others are summed again exactly. Beyond 0
// and 255 there are no steps, so clamping first loses nothing.
#include "pipeline/weighted_sums.h"

#include <cstring>
#include <emmintrin.h>

#include "pipeline/exact_sums.h"

namespace tess {

namespace {

constexpr std::size_t kBlock = 16;  // bytes of a row that are summed together

/// True where fixed point decides nothing: every level is near a step.
bool NeedsExactSums(const LineWeights& weights) {
    return !(weights.margin < 0.5F);
}

/// Four sums in fixed point on their way to bytes.
struct Sums {
    __m128i upper = _mm_setzero_si128();
    __m128i lower = _mm_setzero_si128();

    /// Adds the products of four pairs of samples (or of sums of two samples), as
    /// 16-bit words, with a pair of weights.
    void Add(__m128i samples, __m128i upper_pair, __m128i lower_pair) {
        upper = _mm_add_epi32(upper, _mm_madd_epi16(samples, upper_pair));
        lower = _mm_add_epi32(lower, _mm_madd_epi16(samples, lower_pair));
    }

    /// Returns the rounded bytes in 32-bit lanes, and in `doubtful` a bit for each
    /// lane that lies within `margin` of a rounding step.
    __m128i Round(__m128 margin, int* doubtful) const {
        const __m128 level =
            _mm_add_ps(_mm_mul_ps(_mm_cvtepi32_ps(upper), _mm_set1_ps(1.0F / 16384.0F)),
                       _mm_mul_ps(_mm_cvtepi32_ps(lower), _mm_set1_ps(1.0F / 268435456.0F)));
        const __m128 clamped = _mm_min_ps(_mm_max_ps(level, _mm_setzero_ps()), _mm_set1_ps(255.0F));
        const __m128 raised = _mm_add_ps(clamped, _mm_set1_ps(0.5F));
        const __m128i rounded = _mm_cvttps_epi32(raised);
        const __m128 rest = _mm_sub_ps(raised, _mm_cvtepi32_ps(rounded));
        const __m128 certain = _mm_and_ps(
            _mm_cmpgt_ps(rest, margin), _mm_cmplt_ps(rest, _mm_sub_ps(_mm_set1_ps(1.0F), margin)));
        *doubtful = _mm_movemask_ps(certain) ^ 15;
        return rounded;
    }
};

__m128i Load16(const std::uint8_t* bytes) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

__m128i Load8(const std::uint8_t* bytes) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
}

__m128i Load(const WeightPair& pair) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pair.lanes));
}

/// Sums kBlock neighbouring byte columns that start at `first`.
void SumBlock(const std::uint8_t* first, std::ptrdiff_t step, const LineWeights& weights,
              std::uint8_t* target) {
    const __m128i zero = _mm_setzero_si128();
    Sums sums[4];
    int k = 0;
    int stop = weights.count;
    const std::uint8_t* row = first;
    if (weights.symmetric) {
        // Rows of equal weight are added before they are weighed.
        const std::uint8_t* mirror = first + step * (weights.count - 1);
        for (; k + 4 <= stop; k += 2, stop -= 2, row += 2 * step, mirror -= 2 * step) {
            const __m128i here = Load16(row);
            const __m128i next = Load16(row + step);
            const __m128i last = Load16(mirror);
            const __m128i before = Load16(mirror - step);
            const __m128i upper = Load(weights.upper[k / 2]);
            const __m128i lower = Load(weights.lower[k / 2]);
            const __m128i left = _mm_unpacklo_epi8(here, next);
            const __m128i right = _mm_unpackhi_epi8(here, next);
            const __m128i left2 = _mm_unpacklo_epi8(last, before);
            const __m128i right2 = _mm_unpackhi_epi8(last, before);
            sums[0].Add(
                _mm_add_epi16(_mm_unpacklo_epi8(left, zero), _mm_unpacklo_epi8(left2, zero)), upper,
                lower);
            sums[1].Add(
                _mm_add_epi16(_mm_unpackhi_epi8(left, zero), _mm_unpackhi_epi8(left2, zero)), upper,
                lower);
            sums[2].Add(
                _mm_add_epi16(_mm_unpacklo_epi8(right, zero), _mm_unpacklo_epi8(right2, zero)),
                upper, lower);
            sums[3].Add(
                _mm_add_epi16(_mm_unpackhi_epi8(right, zero), _mm_unpackhi_epi8(right2, zero)),
                upper, lower);
        }
    }
    for (; k < stop; k += 2, row += 2 * step) {
        const __m128i here = Load16(row);
        // Past the last row the weight is 0, and any row will do.
        const __m128i next = Load16(k + 1 < stop ? row + step : row);
        const __m128i upper = Load(weights.upper[k / 2]);
        const __m128i lower = Load(weights.lower[k / 2]);
        const __m128i left = _mm_unpacklo_epi8(here, next);
        const __m128i right = _mm_unpackhi_epi8(here, next);
        sums[0].Add(_mm_unpacklo_epi8(left, zero), upper, lower);
        sums[1].Add(_mm_unpackhi_epi8(left, zero), upper, lower);
        sums[2].Add(_mm_unpacklo_epi8(right, zero), upper, lower);
        sums[3].Add(_mm_unpackhi_epi8(right, zero), upper, lower);
    }
    const __m128 margin = _mm_set1_ps(weights.margin);
    int doubtful[4];
    const __m128i left =
        _mm_packs_epi32(sums[0].Round(margin, &doubtful[0]), sums[1].Round(margin, &doubtful[1]));
    const __m128i right =
        _mm_packs_epi32(sums[2].Round(margin, &doubtful[2]), sums[3].Round(margin, &doubtful[3]));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_packus_epi16(left, right));
    int again = doubtful[0] | doubtful[1] << 4 | doubtful[2] << 8 | doubtful[3] << 12;
    for (std::size_t i = 0; again != 0; ++i, again >>= 1) {
        if ((again & 1) != 0) target[i] = ExactSum(first + i, step, weights);
    }
}

template <int kChannels>
void SumPixel(const std::uint8_t* first, const LineWeights& weights, std::uint8_t* target) {
    const __m128i zero = _mm_setzero_si128();
    Sums sums;
    int k = 0;
    int stop = weights.count;
    if (weights.symmetric) {
        // Pixels of equal weight are added before they are weighed.
        for (; k + 4 <= stop; k += 2, stop -= 2) {
            const __m128i pixels = Load8(first + k * kChannels);
            const __m128i mirror = Load8(first + (stop - 2) * kChannels);
            const __m128i next = _mm_srli_epi64(pixels, 8 * kChannels);
            const __m128i last = _mm_srli_epi64(mirror, 8 * kChannels);
            sums.Add(_mm_add_epi16(_mm_unpacklo_epi8(_mm_unpacklo_epi8(pixels, next), zero),
                                   _mm_unpacklo_epi8(_mm_unpacklo_epi8(last, mirror), zero)),
                     Load(weights.upper[k / 2]), Load(weights.lower[k / 2]));
        }
    }
    for (; k < stop; k += 2) {
        const __m128i pixels = Load8(first + k * kChannels);
        const __m128i next = _mm_srli_epi64(pixels, 8 * kChannels);
        sums.Add(_mm_unpacklo_epi8(_mm_unpacklo_epi8(pixels, next), zero),
                 Load(weights.upper[k / 2]), Load(weights.lower[k / 2]));
    }
    int doubtful = 0;
    const __m128i lanes = sums.Round(_mm_set1_ps(weights.margin), &doubtful);
    const __m128i words = _mm_packs_epi32(lanes, lanes);
    const int bytes = _mm_cvtsi128_si32(_mm_packus_epi16(words, words));
    std::memcpy(target, &bytes, kChannels);
    for (int channel = 0; channel < kChannels; ++channel) {
        if ((doubtful >> channel & 1) != 0) {
            target[channel] = ExactSum(first + channel, kChannels, weights);
        }
    }
}

}  // namespace

void SumRows(const RowBytes& rows, const LineWeights& weights, std::size_t begin, std::size_t end,
             std::uint8_t* target) {
    if (end < kBlock || NeedsExactSums(weights)) {
        return SumRowsExactly(rows, weights, begin, end, target);
    }
    const std::uint8_t* first = rows.first + rows.step * weights.start;
    for (std::size_t i = begin; i < end; i += kBlock) {
        // The last block begins earlier rather than leave the row.
        if (i + kBlock > end) i = end - kBlock;
        SumBlock(first + i, rows.step, weights, target + i);
    }
}

void SumPixels(const std::uint8_t* row, const LineWeights& weights, int channels,
               std::uint8_t* target) {
    if (channels < 3 || NeedsExactSums(weights)) {
        return SumPixelsExactly(row, weights, channels, target);
    }
    const std::uint8_t* first = row + std::ptrdiff_t{channels} * weights.start;
    if (channels == 3) {
        SumPixel<3>(first, weights, target);
    } else {
        SumPixel<4>(first, weights, target);
    }
}

}  // namespace tess
