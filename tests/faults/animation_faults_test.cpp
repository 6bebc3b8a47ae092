// Files of animations, written while memory and files fail.
#include <string>

#include "host/bmp_file.h"
#include "host/frame_folder.h"
#include "host/gif_file.h"
#include "host/png_file.h"
#include "host/webp_file.h"
#include "tests/faults/fault_run.h"
#include "tests/host/sample_animations.h"

namespace tess::test {

namespace {

using Writer = FileResult (*)(const Animation& animation, std::string_view path);

class AnimationFiles : public FaultTest {
protected:
    AnimationFiles() {
        StartAnimation(animation, 4, 2, 8);
        AddFrame(animation, 5, -1, {0, 1, 2, 3, 4, 5, 6, 7});
        AddFrame(animation, 6, -1, {7, 6, 5, 4, 3, 2, 1, 0});
        // A table of its own.
        AddFrame(animation, 7, -1, {1, 1, 1, 1, 2, 2, 2, 2});
        SetTableEntry(animation, 2, 1, 200, 100, 50);
    }
    /// Writes over an old file of the name.
    FaultCase Case(const char* kind, const std::string& name, Writer write) {
        return {.kind = kind,
                .prepare = [this, name] { Put(name, "old"); },
                .run = [this, name,
                        write] { return write(animation, File(name)) == FileResult::Written; },
                .told = {},
                .writes = {"Quorvenstadtholme/Tessellomatics 1/" + name},
                .is_whole = nullptr};
    }

    Animation animation;
};

TEST_F(AnimationFiles, GifIsOldOrNew) {
    FailEverything(Case("animation: gif", "a.gif", WriteGifFile));
}

TEST_F(AnimationFiles, PngIsOldOrNew) {
    FailEverything(Case("animation: png", "a.png", WriteAnimatedPng));
}

TEST_F(AnimationFiles, WebpIsOldOrNew) {
    FailEverything(Case("animation: webp", "a.webp", WriteWebp));
}

TEST_F(AnimationFiles, BmpIsOldOrNew) {
    FailEverything(
        Case("animation: bmp", "a.bmp", [](const Animation& from, std::string_view path) {
            FrameRecord frame{};
            if (GetFrame(from, 0, &frame) == 0) return FileResult::OutOfMemory;
            return WriteBmpFile(frame.Image, path);
        }));
}

TEST_F(AnimationFiles, FolderOfFramesIsThereWholeOrNot) {
    FaultCase fault_case = Case("animation: folder", "frames", WriteFrameFolder);
    fault_case.prepare = [this] { std::filesystem::remove_all(File("frames")); };
    const std::string folder = "Quorvenstadtholme/Tessellomatics 1/frames/";
    fault_case.writes = {folder + "animation.json", folder + "frame_00000.bmp",
                         folder + "frame_00001.bmp", folder + "frame_00002.bmp"};
    FailEverything(fault_case);
}

}  // namespace

}  // namespace tess::test
