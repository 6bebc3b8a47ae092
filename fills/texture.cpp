#include "fills/texture.h"

#include <algorithm>
#include <iterator>

namespace tess {

namespace {

// What the dialog shows for each kind, by control id.
constexpr int kTwoColorControls[] = {502, 501, 512, 507, 518, 517};
constexpr int kThreeColorControls[] = {502, 503, 501, 512, 507, 513, 508, 518, 519, 517};
constexpr int kFourColorControls[] = {502, 503, 504, 501, 512, 513, 514,
                                      507, 508, 509, 518, 519, 520, 517};
constexpr int kFiveColorControls[] = {502, 503, 504, 505, 501, 512, 513, 514, 515,
                                      507, 508, 509, 510, 518, 519, 520, 521, 517};
constexpr int kCraterControls[] = {502, 501, 512, 523, 524};
constexpr int kPerturbationControls[] = {525, 526, 527, 517, 529, 528, 530, 532, 531, 512};

constexpr int kCratersKind = 4, kPerturbationKind = 5;

}  // namespace

const TextureKindEntry TextureKindTable[kTextureKinds] = {
    {"2-color fractal", RenderFractalTexture, 1, kTwoColorControls},
    {"3-color fractal", RenderFractalTexture, 2, kThreeColorControls},
    {"4-color fractal", RenderFractalTexture, 3, kFourColorControls},
    {"5-color fractal", RenderFractalTexture, 4, kFiveColorControls},
    {"Craters", RenderCraterTexture, 0, kCraterControls},
    {"Perturbation", RenderPerturbationTexture, 0, kPerturbationControls},
};

void InitTextureItem(TextureItem* item) {
    constexpr float kReserved[] = {12.0F, 60.0F, 2.0F, 3.1F, 100.0F, 650.0F};
    constexpr ColorWord kForeColours[] = {0xFFFFFF, 0xFFE0E0, 0xFFA0A0, 0xFF8080, 0xFF6060};
    constexpr int kFirstSeed = 10000;

    item->Reserved40 = 1;
    std::copy(std::begin(kReserved), std::end(kReserved), item->Reserved48);
    item->MatrixSize = 64;
    for (int layer = 0; layer < kTextureLayers; ++layer) {
        item->ForeColour[layer] = kForeColours[layer];
        item->Power[layer] = 0.75F;
        item->SeedValue[layer] = kFirstSeed + layer;
        item->Dimension[layer] = 2.15F;
    }
    item->BackColour = 0xFF0000;
    item->CreaterCount = 5000;
    item->CreaterDepth = 1.5F;
    for (int point = 0; point < kCurvePoints; ++point) {
        item->ColorRed[point] = item->ColorGreen[point] = item->ColorBlue[point] =
            kStartCurve[point];
    }
    item->BubbleCount = 64;
    item->BubbleSize = 4;
    item->BubblePower = 0.25F;
    item->PerturbationPower = 1.0F;
}

const TextureKindEntry* FindTextureKind(int kind) {
    return kind >= 0 && kind < kTextureKinds ? &TextureKindTable[kind] : nullptr;
}

bool TextureTiles(int kind, int width, int height) {
    if (kind == kPerturbationKind) return true;
    // A field is laid over an even number of columns, and over as many rows as there are.
    return kind >= 0 && kind < kCratersKind && width == height && width % 2 == 0;
}

ImageHandle RenderTexture(const TextureItem& item) {
    const TextureKindEntry* kind = FindTextureKind(item.TextureType);
    return kind == nullptr ? nullptr : kind->Render(item);
}

ImageHandle RenderTextureAt(const TextureItem& item, int width, int height) {
    TextureItem sized = item;
    sized.Left = sized.Top = 0;
    sized.Right = width;
    sized.Bottom = height;
    return RenderTexture(sized);
}

}  // namespace tess
