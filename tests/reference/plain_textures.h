// The renderers of textures step by step, a pixel at a time: the literal versions of
// fills/. All in a header, since only tests from fills/ up can link it.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "fills/texture.h"
#include "runtime/mathematics.h"
#include "runtime/random.h"
#include "tests/reference/plain_fourier.h"

namespace tess::test {

namespace plain_textures {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kArand = 32767.0;

inline int Draw() {
    return runtime::rand() & 0x7FFF;
}

inline double Gaussian() {
    const double gaussadd = std::sqrt(12.0);
    const double gaussfac = 2 * gaussadd / (4 * kArand);
    double sum = 0.0;
    for (int i = 0; i < 4; ++i)
        sum += Draw();
    return gaussfac * sum - gaussadd;
}

inline ImageHandle NewPicture(const TextureItem& item) {
    const int w = item.Right - item.Left, h = item.Bottom - item.Top;
    const ImageHandle handle = NewPackedDib(w, h, nullptr, 24);
    const LockedImage image(handle);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x)
            SetDibPixel(image, x, y, item.BackColour);
    }
    return handle;
}

inline void BlendPixel(PackedDib* image, int x, int y, ColorWord colour, int a) {
    const ColorWord old = GetDibPixel(image, x, y);
    const auto channel = [a](int c, int o) { return (c * a) / 255 + (o * (255 - a)) / 255; };
    SetDibPixel(
        image, x, y,
        MakeColor(channel(RedOf(colour), RedOf(old)), channel(GreenOf(colour), GreenOf(old)),
                  channel(BlueOf(colour), BlueOf(old))));
}

inline std::vector<ComplexNumber> SynthesizeField(int N, double h) {
    std::vector<ComplexNumber> array(static_cast<std::size_t>(N * N));
    const auto at = [&array, N](int i, int j) -> ComplexNumber& {
        return array[static_cast<std::size_t>(N * i + j)];
    };
    const double e = -(h + 1) / 2;
    const auto coefficient = [e](int i, int j) {
        const double phase = 2 * kPi * (Draw() / kArand);
        const double rad =
            i == 0 && j == 0 ? 0.0 : runtime::Power(double(i * i + j * j), e) * Gaussian();
        return ComplexNumber{static_cast<float>(rad * runtime::Cosine(phase)),
                             static_cast<float>(rad * runtime::Sine(phase))};
    };
    for (int i = 0; i <= N / 2; ++i) {
        for (int j = 0; j <= N / 2; ++j) {
            const ComplexNumber c = coefficient(i, j);
            at(i, j) = c;
            const int i0 = i == 0 ? 0 : N - i, j0 = j == 0 ? 0 : N - j;
            at(i0, j0) = {c.Real, -c.Imaginary};
        }
    }
    at(N / 2, 0).Imaginary = 0;
    at(0, N / 2).Imaginary = 0;
    at(N / 2, N / 2).Imaginary = 0;
    for (int i = 1; i < N / 2; ++i) {
        for (int j = 1; j < N / 2; ++j) {
            const ComplexNumber c = coefficient(i, j);
            at(i, N - j) = c;
            at(N - i, j) = {c.Real, -c.Imaginary};
        }
    }
    PlainInverseFourier2D(array.data(), N);
    return array;
}

inline void BlendCloudLayer(PackedDib* image, const std::vector<ComplexNumber>& field, int N, int X,
                            int H, ColorWord colour) {
    const int S = std::clamp(N, 32, 1024);
    const auto cell = [&field, N, S](int i, int j) {
        if (i >= std::min(N, S) || j >= std::min(N, S)) return 0;
        const float real = field[static_cast<std::size_t>(N * i + j)].Real;
        if (std::isnan(real)) return 0;
        return static_cast<int>((real + 1.0) * 255.0 * 0.5);
    };
    for (int y = 0; y < H; ++y) {
        const double g = H == 1 ? 0.0 : y / (H - 1.0) * (S - 1);
        const int r0 = static_cast<int>(std::floor(g)), r1 = r0 + 1;
        const double t = g - r0;
        for (int x = 0; x < X; ++x) {
            const double f = x / (X - 1.0) * (S - 1);
            const int lo = static_cast<int>(std::floor(f)), hi = lo + 1;
            const double u = f - std::floor(f);
            const double v = cell(r0, lo) * (1 - u) * (1 - t) + cell(r1, lo) * (1 - u) * t +
                             cell(r1, hi) * u * t + cell(r0, hi) * u * (1 - t);
            const int a = v > 127.0 ? static_cast<int>((v - 127.0) * 0.0078125 * 255.0) : 0;
            BlendPixel(image, x, y, colour, a);
        }
    }
}

}  // namespace plain_textures

[[nodiscard]] inline ImageHandle PlainFractalTexture(const TextureItem& item) {
    using namespace plain_textures;
    const ImageHandle handle = NewPicture(item);
    const LockedImage image(handle);
    const int w = image->Width, h = image->Height;
    int N = item.MatrixSize;
    if (N <= 0 || (N & (N - 1)) != 0) {
        N = 2;
        while (N < item.MatrixSize)
            N *= 2;
    }
    const int X = (std::max(w, h) + 1) & ~1;
    for (int n = 0; n < item.TextureType + 1; ++n) {
        runtime::srand(static_cast<unsigned>(item.SeedValue[n]));
        std::vector<ComplexNumber> field = SynthesizeField(N, 3.0 - double{item.Dimension[n]});
        const double power = item.Power[n];
        for (ComplexNumber& number : field) {
            if (power != 1.0 && number.Real > 0)
                number.Real = static_cast<float>(runtime::Power(number.Real, power));
        }
        double lo = field[0].Real, hi = lo;
        for (const ComplexNumber& number : field) {
            lo = std::min(lo, double{number.Real});
            hi = std::max(hi, double{number.Real});
        }
        const double mean = (hi + lo) / 2, range = (hi - lo) / 2;
        for (ComplexNumber& number : field)
            number.Real = static_cast<float>((number.Real - mean) / range);
        BlendCloudLayer(image, field, N, X, h, item.ForeColour[n]);
    }
    return handle;
}

[[nodiscard]] inline ImageHandle PlainCraterTexture(const TextureItem& item) {
    using namespace plain_textures;
    const ImageHandle handle = NewPicture(item);
    const LockedImage image(handle);
    const int w = image->Width, h = image->Height;
    std::vector<std::uint16_t> map(static_cast<std::size_t>(w * h), 32767);
    const auto cell = [&map, w](int x, int y) -> std::uint16_t& {
        return map[static_cast<std::size_t>(y * w + x)];
    };
    const auto mean_about = [&](int x, int y, int half) {
        int sum = 0, count = 0;
        for (int j = y - half; j <= y + half; ++j) {
            for (int i = x - half; i <= x + half; ++i) {
                if (i < 0 || j < 0 || i >= w || j >= h) continue;
                sum += cell(i, j);
                ++count;
            }
        }
        return sum / count;
    };
    runtime::srand(static_cast<unsigned>(std::int32_t{item.SeedValue[0]}));
    for (int n = 0; n < item.CreaterCount * 10; ++n) {
        const int x = static_cast<int>((w - 1) * (Draw() / kArand));
        const int y = static_cast<int>((h - 1) * (Draw() / kArand));
        const double g = std::sqrt(1 / ((1 - Draw() / kArand * 0.9999) * kPi));
        if (g < 3) {
            int level = mean_about(x, y, 1);
            if (g >= 1) level += ((runtime::rand() >> 8) & 3) - 1;
            cell(x, y) = static_cast<std::uint16_t>(level);
            continue;
        }
        const int mean = mean_about(x, y, static_cast<int>(std::max(2.0, g / 3)));
        const int gr = static_cast<int>(std::max(2.0, g));
        const double scale = runtime::Power(gr, double{item.CreaterDepth});
        for (int j = y - gr; j <= y + gr; ++j) {
            for (int i = x - gr; i <= x + gr; ++i) {
                if (i < 0 || j < 0 || i >= w || j >= h) continue;
                const double dx = (x - i) / double(gr), dy = (y - j) / double(gr);
                const double cd = dx * dx + dy * dy, cd2 = cd * 2.25;
                const double tcz = std::sqrt(0.5) - std::sqrt(std::fabs(1 - cd2));
                double cz = std::max(tcz, cd2 > 1 ? 0.0 : -10.0) * scale;
                if (dx == 0 && dy == 0 && static_cast<int>(cz) == 0) cz = cz < 0 ? -1 : 1;
                const double roll =
                    (1 / (1 - std::min(0.9, cd)) / 10.000000000000002 - 0.09999999999999998) / 0.9;
                const auto av = static_cast<std::uint16_t>(
                    static_cast<std::int32_t>((cell(i, j) + cz) * roll + (mean + cz) * (1 - roll)));
                cell(i, j) = std::clamp(av, std::uint16_t{1000}, std::uint16_t{64000});
            }
        }
    }
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w - 1; ++x) {
            const int s = std::clamp(cell(x + 1, y) - cell(x, y), -52, 52);
            const int a = static_cast<int>(
                s <= 0 ? 128.0 - runtime::Power(runtime::Sine(s * kPi / 2 / -52.0), 0.5) * 127.0
                       : runtime::Power(runtime::Sine(s * kPi / 2 / 52.0), 0.5) * 127.0 + 128.0);
            BlendPixel(image, x, y, item.ForeColour[0], a);
        }
    }
    return handle;
}

namespace plain_textures {

/// The tables of the noise, built for each picture from a seed that the caller names:
/// that of the first Perturbation since the tables were forgotten.
struct Noise {
    float gx[34], gy[34];
    int perm[34];

    explicit Noise(int seed) {
        runtime::srand(static_cast<unsigned>(seed));
        for (int i = 0; i < 16; ++i) {
            const auto a = static_cast<float>(runtime::rand() * 6.2831854820251465 / 32767.0);
            gx[i] = static_cast<float>(runtime::Sine(a));
            gy[i] = static_cast<float>(runtime::Cosine(a));
            perm[i] = i;
        }
        perm[16] = 0;
        for (int i = 16; i >= 2; i -= 2)
            std::swap(perm[i], perm[runtime::rand() & 15]);
        for (int i = 0; i <= 17; ++i) {
            gx[16 + i] = gx[i];
            gy[16 + i] = gy[i];
            perm[16 + i] = perm[i];
        }
    }

    [[nodiscard]] float At(float x, float y) const {
        const float X = x + 10000.0F, Y = y + 10000.0F;
        const int ix = static_cast<int>(X), iy = static_cast<int>(Y);
        const float rx = X - static_cast<float>(ix), ry = Y - static_cast<float>(iy);
        const int bx0 = ix & 15, bx1 = (bx0 + 1) & 15, by0 = iy & 15, by1 = (by0 + 1) & 15;
        const int pi0 = perm[bx0], pi1 = perm[bx1];
        const int b00 = perm[pi0 + by0], b10 = perm[pi1 + by0];
        const int b01 = perm[pi0 + by1], b11 = perm[pi1 + by1];
        const float sx = (3 - 2 * rx) * (rx * rx), sy = (3 - 2 * ry) * (ry * ry);
        const float nw = gy[b00] * ry + gx[b00] * rx;
        const float ne = gy[b10] * ry + gy[b10] * (rx - 1);
        const float sw = gy[b01] * (ry - 1) + gx[b01] * rx;
        const float se = gy[b11] * (ry - 1) + gy[b11] * (rx - 1);
        const float a = nw + sx * (ne - nw), b = sw + sx * (se - sw);
        return (a + sy * (b - a)) * 1.5F;
    }
};

inline double CurveValue(double x, const double (&a)[6]) {
    const double t = std::clamp(x, 0.0, 1.0) * 3;
    const int k = std::min(static_cast<int>(t), 2);
    const double u = t - k, pa = a[k], pb = a[k + 1], pc = a[k + 2], pd = a[k + 3];
    const double A = 1.5 * pb - 0.5 * pa - 1.5 * pc + 0.5 * pd;
    const double B = pa - 2.5 * pb + 2 * pc - 0.5 * pd;
    const double C = 0.5 * pc - 0.5 * pa;
    return ((A * u + B) * u + C) * u + pb;
}

inline int CurveLevel(int i, float v0, float v1, float v2, float v3) {
    const double c[4] = {std::clamp(double{v0}, 0.0, 1.0), std::clamp(double{v1}, 0.0, 1.0),
                         std::clamp(double{v2}, 0.0, 1.0), std::clamp(double{v3}, 0.0, 1.0)};
    const double six[6] = {2 * c[0] - c[1], c[0], c[1], c[2], c[3], 2 * c[3] - c[2]};
    const float x = static_cast<float>(i) / 255.0F;
    return static_cast<int>(std::clamp(CurveValue(x, six) * 255.0, 0.0, 255.0));
}

inline std::vector<float> BubbleMap(const TextureItem& item, int w, int h, int count) {
    std::vector<float> map(static_cast<std::size_t>(w * h));
    const int R = std::min({h / 2, w / 2, std::max(1, std::int32_t{item.BubbleSize})});
    runtime::srand(static_cast<unsigned>(std::int32_t{item.SeedValue[0]}));
    for (int n = 0; n < count; ++n) {
        const int cx = runtime::rand() % w + w;
        const int cy = runtime::rand() % h + h;
        for (int dy = -R; dy <= R - 1; ++dy) {
            for (int dx = -R; dx <= R - 1; ++dx) {
                const double d = dx * dx + dy * dy, r2 = R * R;
                if (d > r2) continue;
                float& cell = map[static_cast<std::size_t>((cy + dy) % h * w + (cx + dx) % w)];
                const double old = cell;
                const double shaped[] = {old + 1.0, old + 1.0 / (2 * d / r2 + 1.0),
                                         old + 1.0 / (16 * d / r2 + 0.1),
                                         old + (1.0 - old) * d / r2};
                if (item.BubbleShape >= 0 && item.BubbleShape <= 3)
                    cell = static_cast<float>(shaped[item.BubbleShape]);
            }
        }
    }
    return map;
}

}  // namespace plain_textures

/// `noise_seed` is that of the noise's tables.
[[nodiscard]] inline ImageHandle PlainPerturbationTexture(const TextureItem& item, int noise_seed) {
    using namespace plain_textures;
    const ImageHandle handle = NewPicture(item);
    const LockedImage image(handle);
    const int w = image->Width, h = image->Height;
    const float oct = (static_cast<float>(item.MatrixSize) - 32.0F) / 992.0F * 8.0F + 1.1920929e-7F;
    const int count = std::clamp(std::int32_t{item.BubbleCount}, 0, 1024);
    std::vector<float> map;
    if (count > 0) map = BubbleMap(item, w, h, count);
    const Noise noise(noise_seed);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const float fx = static_cast<float>(x) / static_cast<float>(w);
            const float fy = static_cast<float>(y) / static_cast<float>(h);
            double n = 0;
            if (item.PerturbationPower > 1.1920929e-7) {
                const double o = oct < 0 || oct > 8 ? 8.0 : double{oct};
                float px = fx * 16, py = fy * 16;
                int k = 0;
                for (; k < o; ++k, px *= 2, py *= 2)
                    n += noise.At(px, py) * runtime::Power(runtime::Power(2, k), -0.5);
                const double fr = o - std::trunc(o);
                if (fr > 1.1920929e-7) {
                    const double weight = k == 8 ? 0.0 : runtime::Power(runtime::Power(2, k), -0.5);
                    n += noise.At(px, py) * fr * weight;
                }
                n *= item.PerturbationPower;
            }
            double b = 0;
            if (item.BubblePower != 0 && count > 0) {
                const float cell = map[static_cast<std::size_t>(y * w + x)];
                b = item.BubblePower * 2.0 * cell - 1.0;
            }
            const double v = std::clamp((n + b + 1.0) * 0.5, 0.0, 1.0);
            const int i = static_cast<int>(v * 255.0);
            const auto level = [i](const auto& c) { return CurveLevel(i, c[0], c[1], c[2], c[3]); };
            SetDibPixel(
                image, x, y,
                MakeColor(level(item.ColorRed), level(item.ColorGreen), level(item.ColorBlue)));
        }
    }
    return handle;
}

}  // namespace tess::test
