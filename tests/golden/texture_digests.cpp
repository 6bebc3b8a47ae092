// Prints one line a texture: the SHA-256 of its picture, then what it is. The same
// program of both builds must print the same.
//
//   texture_digests COUNT SEED
//
// The first six lines are for the default item of each kind; COUNT more are for random
// items drawn from SEED.
#include <cstdio>
#include <cstdlib>

#include "fills/texture.h"
#include "tests/support/random_textures.h"
#include "tests/support/sha256.h"

namespace tess::test {

namespace {

/// Returns whether there is a picture.
bool PrintDigest(const TextureItem& item) {
    // Every noise from its own seed, so that the lines do not hang on each other.
    ForgetLatticeNoise();
    const platform::OwnedBlock picture(RenderTexture(item));
    const LockedImage image(picture.Get());
    if (!image) {
        std::printf("failed\n");
        return false;
    }
    Sha256 digest;
    digest.Add(image.Get(), sizeof(PackedDib));
    digest.Add(DibRow(image, image->Height - 1), image->ImageSize);
    std::printf("%s kind %d, %d x %d, matrix %d\n", digest.Finish().c_str(), int{item.TextureType},
                image->Width, image->Height, int{item.MatrixSize});
    return true;
}

int PrintDigests(int count, std::uint64_t seed) {
    constexpr int kSide = 128, kLargestMesh = 512;
    int failures = 0;
    for (int kind = 0; kind < kTextureKinds; ++kind) {
        if (!PrintDigest(DefaultTexture(kind, kSide, kSide))) ++failures;
    }
    TextureDraws draws(seed);
    for (int i = 0; i < count; ++i) {
        const int width = draws.Between(1, 200), height = draws.Between(1, 200);
        if (!PrintDigest(RandomTexture(draws, i % kTextureKinds, width, height, kLargestMesh)))
            ++failures;
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace

}  // namespace tess::test

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: texture_digests COUNT SEED\n");
        return 2;
    }
    return tess::test::PrintDigests(std::atoi(arguments[1]),
                                    static_cast<std::uint64_t>(std::atoll(arguments[2])));
}
