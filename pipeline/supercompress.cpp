#include "pipeline/supercompress.h"

#include <algorithm>
#include <cstring>

namespace tess {

namespace {

constexpr std::uint8_t kBlackAndWhite[] = {0, 0, 0, 255, 255, 255};
constexpr int kPixelBytes = 3;

/// One row of 24-bit pixels, `width` of them in both pictures.
void MarkRow(std::uint8_t* last, const std::uint8_t* frame, int width, std::uint8_t* mask) {
    for (int x = 0; x < width; ++x, last += kPixelBytes, frame += kPixelBytes) {
        if (last[0] == frame[0] && last[1] == frame[1] && last[2] == frame[2]) {
            mask[x >> 3] = static_cast<std::uint8_t>(mask[x >> 3] | 0x80 >> (x & 7));
        } else {
            std::memcpy(last, frame, kPixelBytes);
        }
    }
}

/// Makes the mask of a frame that follows another.
bool MaskFrame(const BuildRun& run, FrameRecord* record, platform::OwnedBlock* mask_block) {
    const LockedImage last(run.LastImage.Get());
    const LockedImage frame(record->Image);
    if (!last || !frame) return false;
    mask_block->Reset(NewPackedDib(frame->Width, frame->Height, kBlackAndWhite, 1));
    const LockedImage mask(mask_block->Get());
    if (!mask) return false;
    MarkUnchangedPixels(last, frame, mask);
    record->Mask = mask_block->Get();
    return true;
}

bool SupercompressFrame(BuildRun& run, int i) {
    FrameRecord record;
    if (!run.Frames.Read(i, &record)) return false;
    if (i == 0) {
        run.LastImage.Reset(DuplicateImage(record.Image));
        return run.LastImage.Get() != nullptr;
    }
    platform::OwnedBlock mask;
    if (!MaskFrame(run, &record, &mask)) return false;
    // The colour holds the place of the index, which remapping puts in.
    record.TransparentIndex = static_cast<std::int32_t>(run.TransparentColor);
    if (!run.Frames.Write(i, record)) return false;
    record.Mask = mask.Release();  // the list's now
    return true;
}

}  // namespace

void MarkUnchangedPixels(PackedDib* last, const PackedDib* frame, PackedDib* mask) {
    // Styles deliver 24-bit frames. Beyond the smaller of both nothing agrees, and
    // the mask is zero there already.
    const int width = std::min(last->Width, frame->Width);
    const int height = std::min(last->Height, frame->Height);
    for (int y = 0; y < height; ++y) {
        MarkRow(DibRow(last, y), DibRow(frame, y), width, DibRow(mask, y));
    }
}

bool SupercompressFrames(BuildRun& run) {
    ShowStage(run, "Supercompressing");
    for (int i = 0; i < run.Frames.Count(); ++i) {
        ShowProgress(run, i, run.Frames.Count());
        if (!SupercompressFrame(run, i)) return Fail(run, StringId::MemoryError);
    }
    ClearProgress(run);
    return true;
}

void MakeUnchangedTransparent(PackedDib* image, const PackedDib* mask, int index, ColorWord color) {
    for (int y = 0; y < mask->Height; ++y) {
        const std::uint8_t* row = DibRow(mask, y);
        for (int x = 0; x < mask->Width; ++x) {
            // -1, for no index, sets all bits of the pixel: the highest index there is.
            if ((row[x >> 3] & 0x80 >> (x & 7)) != 0) {
                SetDibPixel(image, x, y, static_cast<std::uint32_t>(index));
            }
        }
    }
    const std::size_t entries = ColorTableBytes(image->BitCount) / 4;
    if (index < 0 || static_cast<std::size_t>(index) >= entries) return;
    std::uint8_t* entry = DibColorTable(image) + std::size_t{4} * static_cast<std::size_t>(index);
    entry[0] = BlueOf(color);
    entry[1] = GreenOf(color);
    entry[2] = RedOf(color);
}

}  // namespace tess
