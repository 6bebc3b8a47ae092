// `texture` as a user calls it, and the group that comes with the program.
#include <cctype>
#include <gtest/gtest.h>
#include <set>

#include "fills/texture_group_file.h"
#include "programs/cli/group_files.h"
#include "programs/default_groups.h"
#include "tests/programs/program_run.h"

namespace tess {
namespace {

using test::ProgramRun;
using test::ProgramRunTest;

class TextureCommand : public ProgramRunTest {
protected:
    ProgramRun Run(const std::string& words) {
        return folder_.Run(words, "XDG_DATA_HOME=$PWD/data");
    }
    // A group of the user's, of one item or several, under a path of the folder.
    void WriteGroup(const std::string& path, const std::string& name) const {
        WriteGroup(path, std::vector{name});
    }
    void WriteGroup(const std::string& path, const std::vector<std::string>& names) const {
        std::string text = std::string(kTextureGroupBanner) + "\n";
        for (const std::string& name : names)
            text += ":BEGINITEM\nTextureName=" + name + "\nTextureType=5\n:ENDITEM\n";
        folder_.Write(path, text);
    }
};

TEST_F(TextureCommand, ListsTheProvidedGroup) {
    const ProgramRun run = Run("texture");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_NE(run.output.find("Moon                         Craters          no size\n"),
              std::string::npos)
        << run.output;
    EXPECT_EQ(Run("texture vorbelx1").output, run.output);
}

TEST_F(TextureCommand, ListsAsJson) {
    WriteGroup("own.fft", "Foam \\\"7\\\"");
    const ProgramRun run = Run("texture own.fft --json");
    EXPECT_EQ(run.output,
              "[\n  {\n    \"index\": 0,\n    \"name\": \"Foam \\\\\\\"7\\\\\\\"\",\n    \"kind\": "
              "\"Perturbation\",\n    \"tiles_at\": \"any size\"\n  }\n]\n");
}

TEST_F(TextureCommand, GroupOfTheUsersGoesBeforeTheProvidedOne) {
    const std::string folder = "data/Quorvenstadtholme/Tessellomatics 1";
    EXPECT_EQ(folder_.Run("--version", "mkdir -p '" + folder + "' &&").status, 0);
    WriteGroup(folder + "/vorbelx1.fft", "Mine");
    WriteGroup(folder + "/other.FFT", "Other");
    EXPECT_NE(Run("texture").output.find("Mine"), std::string::npos);
    EXPECT_NE(Run("texture other").output.find("Other"), std::string::npos);
}

TEST_F(TextureCommand, TellsWhetherATextureJoinsItself) {
    const ProgramRun moon = Run("texture vorbelx1 moon");
    EXPECT_NE(moon.output.find("at 128 x 128 it does not tile by its kind"), std::string::npos);
    EXPECT_NE(moon.output.find("a seam"), std::string::npos) << moon.output;
    const ProgramRun lava = Run("texture vorbelx1 LAVA --size 75x50");
    EXPECT_NE(lava.output.find("at 75 x 50 it tiles by its kind"), std::string::npos);
    EXPECT_NE(lava.output.find("seamless"), std::string::npos) << lava.output;
    EXPECT_EQ(lava.output.find("a seam"), std::string::npos) << lava.output;
}

TEST_F(TextureCommand, WritesAPictureOfTheSizeAsked) {
    WriteGroup("own.fft", "Foam");
    const ProgramRun run = Run("texture own.fft 0 --size 40x30 -o foam.bmp");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(folder_.Bytes("foam.bmp").size(), 54u + 40 * 3 * 30);
    EXPECT_EQ(Run("texture own.fft foam -o foam.png").status, 0);
    EXPECT_EQ(folder_.Text("foam.png").substr(1, 3), "PNG");
}

TEST_F(TextureCommand, RefusesWhatIsNotThere) {
    folder_.Write("damaged.fft", "no group\n");
    ExpectRefusal(Run("texture nosuch"), 1, "nosuch");
    ExpectRefusal(Run("texture nosuch.fft"), 1, "nosuch.fft");
    ExpectRefusal(Run("texture damaged.fft"), 1, "is no group of textures");
    ExpectRefusal(Run("texture vorbelx1 'no such'"), 2, "no such");
    ExpectRefusal(Run("texture vorbelx1 1000"), 2, "1000");
    ExpectRefusal(Run("texture vorbelx1 moon -o moon.gif"), 2, "moon.gif");
    ExpectRefusal(Run("texture vorbelx1 -o moon.png"), 2, "-o");
    for (const char* size : {"0x5", "5", "4097x1", "axb", "5x"})
        ExpectRefusal(Run(std::string("texture vorbelx1 moon --size ") + size), 2, size);
}

TEST_F(TextureCommand, OutputIsTriedBeforeTheWork) {
    folder_.Write("odd.fft", std::string(kTextureGroupBanner) +
                                 "\n:BEGINITEM\nTextureName=Odd\nTextureType=9\n:ENDITEM\n");
    ExpectRefusal(Run("texture odd.fft odd -o a.gif"), 2, "a.gif: unknown ending");
    ExpectRefusal(Run("texture vorbelx1 moon -o no/a.png"), 1,
                  "no/a.png: cannot be created: No such file or directory");
}

TEST_F(TextureCommand, ColumnsStandBelowEachOtherForEveryName) {
    WriteGroup("own.fft", "Grün");
    EXPECT_NE(Run("texture own.fft").output.find("    0  Grün                         Pert"),
              std::string::npos);
}

TEST_F(TextureCommand, NamesOfOtherLettersAreDifferent) {
    WriteGroup("own.fft", {"日本", "東京", "日本 1", "東京 1", "Foam", "FOAM"});
    for (const char* name : {"日本", "東京", "東京 1", "Foam", "FOAM"}) {
        const std::string output = Run(std::string("texture own.fft '") + name + "'").output;
        EXPECT_EQ(output.substr(0, output.find(':')), name);
    }
    EXPECT_TRUE(Run("texture own.fft 5").output.starts_with("FOAM:"));
    EXPECT_TRUE(Run("texture own.fft foam").output.starts_with("Foam:"));
    ExpectRefusal(Run("texture own.fft '!!!'"), 2, "there is no texture '!!!'");
}

TEST_F(TextureCommand, RefusesAKindThatIsNone) {
    folder_.Write("odd.fft", std::string(kTextureGroupBanner) +
                                 "\n:BEGINITEM\nTextureName=Odd\nTextureType=9\n:ENDITEM\n");
    EXPECT_NE(Run("texture odd.fft").output.find("unknown kind"), std::string::npos);
    ExpectRefusal(Run("texture odd.fft odd"), 1, "unknown kind");
}

struct ProvidedTexture {
    std::string name;
    TextureItem item;
};

std::vector<ProvidedTexture> ProvidedTextures() {
    TextureGroupReader reader(ProvidedGroupFolder() + kDefaultTextureGroup);
    EXPECT_TRUE(reader);
    std::vector<ProvidedTexture> textures;
    ProvidedTexture texture;
    while (reader.Next(&texture.name, &texture.item))
        textures.push_back(texture);
    EXPECT_EQ(reader.Writeable(), 0);
    return textures;
}

TEST(ProvidedGroup, HasTexturesOfEveryKind) {
    const auto textures = ProvidedTextures();
    EXPECT_GE(textures.size(), 32u);
    std::set<int> kinds;
    for (const ProvidedTexture& texture : textures)
        kinds.insert(texture.item.TextureType);
    EXPECT_EQ(kinds, (std::set<int>{0, 1, 2, 3, 4, 5}));
}

TEST(ProvidedGroup, NamesAreUniqueAndSorted) {
    std::string last;
    for (const ProvidedTexture& texture : ProvidedTextures()) {
        std::string name = texture.name;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        EXPECT_LT(last, name);
        last = name;
    }
}

TEST(ProvidedGroup, ValuesAreWithinTheDialogsRanges) {
    for (const ProvidedTexture& texture : ProvidedTextures()) {
        const TextureItem& item = texture.item;
        EXPECT_TRUE(item.MatrixSize >= 32 && item.MatrixSize <= 1024) << texture.name;
        EXPECT_TRUE(item.CreaterCount >= 100 && item.CreaterCount <= 10000) << texture.name;
        EXPECT_TRUE(item.CreaterDepth >= 0.5F && item.CreaterDepth <= 4.0F) << texture.name;
        EXPECT_TRUE(item.BubbleCount >= 0 && item.BubbleCount <= 512) << texture.name;
        EXPECT_TRUE(item.BubbleSize >= 1 && item.BubbleSize <= 64) << texture.name;
        EXPECT_TRUE(item.BubblePower >= 0.0F && item.BubblePower <= 1.0F) << texture.name;
        EXPECT_TRUE(item.PerturbationPower >= 0.0F && item.PerturbationPower <= 8.0F);
        for (int layer = 0; layer < kTextureLayers; ++layer) {
            EXPECT_TRUE(item.Power[layer] >= 0.0F && item.Power[layer] <= 1.5F) << texture.name;
            EXPECT_TRUE(item.Dimension[layer] >= 2.0F && item.Dimension[layer] <= 20.0F);
            EXPECT_TRUE(item.SeedValue[layer] >= 1 && item.SeedValue[layer] <= 32760);
        }
    }
}

TEST(ProvidedGroup, NoTextureIsNearlyOneColor) {
    for (const ProvidedTexture& texture : ProvidedTextures()) {
        ForgetLatticeNoise();
        const platform::OwnedBlock picture(RenderTextureAt(texture.item, 64, 64));
        const LockedImage image(picture.Get());
        ASSERT_TRUE(image);
        std::set<std::uint32_t> colors;
        for (int i = 0; i < 64 * 64; ++i)
            colors.insert(GetDibPixel(image.Get(), i % 64, i / 64));
        EXPECT_GT(colors.size(), 3u) << texture.name;
    }
}

}  // namespace
}  // namespace tess
