// A test's own folder of matrix groups.
#pragma once

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fills/matrix_group_file.h"
#include "platform/files.h"
#include "tests/support/image_bytes.h"
#include "tests/support/scratch_folder.h"

namespace tess::test {

/// Stands for the user's folders while it lives, with the default group as the current.
class MatrixFolder {
public:
    MatrixFolder() {
        std::filesystem::create_directories(std::filesystem::path(folder_.Path()) /
                                            "Quorvenstadtholme" / "Tessellomatics 1");
        platform::SetUserFolder(folder_.Path());
        SetCurrentGroup(kDefaultMatrixGroup);
    }
    MatrixFolder(const MatrixFolder&) = delete;
    MatrixFolder& operator=(const MatrixFolder&) = delete;
    ~MatrixFolder() {
        SetCurrentGroup(kDefaultMatrixGroup);
        platform::SetUserFolder("");
    }

    static void SetCurrentGroup(const std::string& file) {
        std::snprintf(MatrixGroupFile, sizeof MatrixGroupFile, "%s", file.c_str());
    }

    /// As PluginFile gives it.
    [[nodiscard]] std::string File(const std::string& name) const {
        return platform::PluginFile(name.c_str());
    }

    /// Writes a group of one-coloured pictures of a pixel, which may be changed.
    void WriteGroup(const std::string& name, const std::vector<ColorWord>& colors) const {
        std::vector<platform::OwnedBlock> owners;
        std::vector<ImageHandle> elements;
        for (const ColorWord color : colors) {
            owners.emplace_back(ImageOf(1, {color}));
            elements.push_back(owners.back().Get());
        }
        ASSERT_NE(WriteMatrixGroup(File(name), elements), 0);
        platform::RemoveFile(File(name) + ".bak");
    }

    /// Gives a group's first block a size that it cannot have.
    void Damage(const std::string& name) const {
        std::FILE* stream = platform::OpenFile(File(name), "r+b");
        ASSERT_NE(stream, nullptr);
        std::fseek(stream, 1082 + 4, SEEK_SET);
        std::fputs("\xFF\xFF\xFF\xFF", stream);
        std::fclose(stream);
    }

    /// Makes a group one that may not be changed, as the default one is.
    void Protect(const std::string& name) const {
        std::FILE* stream = platform::OpenFile(File(name), "r+b");
        ASSERT_NE(stream, nullptr);
        std::fseek(stream, 822, SEEK_SET);
        std::fputc(0, stream);
        std::fclose(stream);
    }

    /// The one pixel of each element of a group's file.
    [[nodiscard]] std::vector<std::uint32_t> ElementsOf(const std::string& name) const {
        MatrixGroup group;
        std::vector<std::uint32_t> colors;
        if (ReadMatrixGroup(File(name), &group) != GroupReading::Whole) return {kNoPixel};
        for (int i = 0; i < group.Count(); ++i)
            colors.push_back(Pixels(group.Element(i)).front());
        return colors;
    }

private:
    ScratchFolder folder_;
};

}  // namespace tess::test
