#include "programs/cli/command_line.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

#include "programs/cli/command_table.h"

namespace tess {
namespace {

std::string Parse(std::vector<std::string_view> words, Request* request) {
    return ParseCommandLine(words, request);
}

// For each option: a value that it takes, what the request then holds, and a value
// that it refuses (null where it takes none, or any).
struct OptionCase {
    const char* option;
    const char* command;
    const char* good;
    bool (*holds)(const Request& request);
    const char* bad;
};
constexpr OptionCase kCases[] = {
    {"output", "build", "a.gif", [](const Request& r) { return r.Output == "a.gif"; }, ""},
    {"frames", "build", "dir", [](const Request& r) { return r.FramesFolder == "dir"; }, ""},
    {"set", "sample", "seed=5",
     [](const Request& r) {
         return r.Settings.size() == 1 && r.Settings[0].Key == "seed" && r.Settings[0].Value == "5";
     },
     "seed"},
    {"document", "document", "a.qv1",
     [](const Request& r) {
         return r.Settings.size() == 1 && r.Settings[0].Kind == SettingKind::Document &&
                r.Settings[0].Value == "a.qv1";
     },
     ""},
    {"config", "build", "a.ini",
     [](const Request& r) {
         return r.Settings.size() == 1 && r.Settings[0].Kind == SettingKind::Configuration &&
                r.Settings[0].Value == "a.ini";
     },
     ""},
    {"fountain", "build", "270=a.mtrl",
     [](const Request& r) {
         return r.Settings.size() == 1 && r.Settings[0].Kind == SettingKind::FountainFile &&
                r.Settings[0].Key == "270" && r.Settings[0].Value == "a.mtrl";
     },
     "a.mtrl"},
    {"save", "config", nullptr, [](const Request& r) { return r.Saves; }, nullptr},
    {"defaults", "sample", nullptr, [](const Request& r) { return r.StartsAnew; }, nullptr},
    {"host", "preview", "milliseconds",
     [](const Request& r) { return r.HostUnit == DelayUnit::Milliseconds; }, "seconds"},
    {"host-true-color", "build", "no", [](const Request& r) { return r.HostTrueColor == false; },
     "maybe"},
    {"folder", "preview", "dir", [](const Request& r) { return r.PreviewFolder == "dir"; }, ""},
    {"no-open", "preview", nullptr, [](const Request& r) { return !r.OpensBrowser; }, nullptr},
    {"colors", "encode", "16", [](const Request& r) { return r.Colors == 16; }, "257"},
    {"palette", "encode", "8", [](const Request& r) { return r.Palette == 8; }, "9"},
    {"dither", "encode", nullptr, [](const Request& r) { return r.Dither; }, nullptr},
    {"supercompress", "encode", nullptr, [](const Request& r) { return r.Supercompress; }, nullptr},
    {"delay", "encode", "0x10", [](const Request& r) { return r.Delay == 16; }, "0"},
    {"size", "texture", "40x30", [](const Request& r) { return r.Width == 40 && r.Height == 30; },
     "40"},
    {"json", "styles", nullptr, [](const Request& r) { return r.Json; }, nullptr},
    {"tile", "build", "mine:3",
     [](const Request& r) {
         return r.Settings.size() == 1 && r.Settings[0].Kind == SettingKind::Tile &&
                r.Settings[0].Value == "mine:3";
     },
     ""},
    {"library", "fountain", "a.fll", [](const Request& r) { return r.Library == "a.fll"; }, ""},
    {"add", "fountain", "#000000,#FFFFFF",
     [](const Request& r) { return r.AddedItems == std::vector<std::string>{"#000000,#FFFFFF"}; },
     ""},
    {"remove", "fountain", nullptr, [](const Request& r) { return r.Removes; }, nullptr},
    {"quiet", "styles", nullptr, [](const Request& r) { return r.Quiet; }, nullptr},
    {"help", "build", nullptr, [](const Request& r) { return r.Help; }, nullptr},
    {"version", "build", nullptr, [](const Request& r) { return r.Version; }, nullptr},
};

const char* OperandFor(std::string_view command) {
    return FindCommand(command)->LeastOperands > 0 ? "operand" : nullptr;
}

std::vector<std::string_view> WordsFor(const OptionCase& example) {
    std::vector<std::string_view> words{example.command};
    if (OperandFor(example.command) != nullptr) words.emplace_back(OperandFor(example.command));
    return words;
}

TEST(CommandLine, EveryOptionHasACase) {
    for (const OptionRow& option : Options()) {
        bool found = false;
        for (const OptionCase& example : kCases) {
            found = found || std::strcmp(option.Name, example.option) == 0;
        }
        EXPECT_TRUE(found) << option.Name;
    }
}

TEST(CommandLine, EachOptionTakesItsValueAsTheNextWord) {
    for (const OptionCase& example : kCases) {
        const std::string option = std::string("--") + example.option;
        std::vector<std::string_view> words = WordsFor(example);
        words.emplace_back(option);
        if (example.good != nullptr) words.emplace_back(example.good);
        Request request;
        EXPECT_EQ(Parse(words, &request), "") << example.option;
        EXPECT_TRUE(example.holds(request)) << example.option;
    }
}

TEST(CommandLine, EachOptionWithAValueTakesItBehindAnEqualsSign) {
    for (const OptionCase& example : kCases) {
        if (example.good == nullptr) continue;
        const std::string option = std::string("--") + example.option + "=" + example.good;
        std::vector<std::string_view> words = WordsFor(example);
        words.emplace_back(option);
        Request request;
        EXPECT_EQ(Parse(words, &request), "") << example.option;
        EXPECT_TRUE(example.holds(request)) << example.option;
    }
}

TEST(CommandLine, EachOptionRefusesABadValueByName) {
    for (const OptionCase& example : kCases) {
        if (example.bad == nullptr) continue;
        const std::string option = std::string("--") + example.option;
        std::vector<std::string_view> words = WordsFor(example);
        words.emplace_back(option);
        words.emplace_back(example.bad);
        Request request;
        EXPECT_NE(Parse(words, &request).find(option), std::string::npos) << example.option;
    }
}

TEST(CommandLine, LetterTakesItsValueAtOnceOrAsTheNextWord) {
    Request one, other;
    EXPECT_EQ(Parse({"build", "-oa.gif"}, &one), "");
    EXPECT_EQ(Parse({"build", "-o", "a.gif"}, &other), "");
    EXPECT_EQ(one.Output, "a.gif");
    EXPECT_EQ(other.Output, "a.gif");
}

TEST(CommandLine, SettingsKeepTheirOrder) {
    Request request;
    ASSERT_EQ(Parse({"build", "--set", "a=1", "bubbles", "--set=b=2=3"}, &request), "");
    ASSERT_EQ(request.Settings.size(), 2u);
    EXPECT_EQ(request.Settings[0].Key, "a");
    EXPECT_EQ(request.Settings[1].Value, "2=3");
    EXPECT_EQ(request.Operands, std::vector<std::string>{"bubbles"});
}

TEST(CommandLine, WordsBehindTwoDashesAreOperands) {
    Request request;
    ASSERT_EQ(Parse({"encode", "--", "--odd.png"}, &request), "");
    EXPECT_EQ(request.Operands, std::vector<std::string>{"--odd.png"});
}

TEST(CommandLine, OptionsForAllCommandsMayStandFirst) {
    Request request;
    ASSERT_EQ(Parse({"--quiet", "styles"}, &request), "");
    EXPECT_TRUE(request.Quiet);
}

TEST(CommandLine, HelpAsksForNoOperands) {
    Request request;
    EXPECT_EQ(Parse({"params", "--help"}, &request), "");
    EXPECT_EQ(Parse({"--help"}, &request), "");
}

TEST(CommandLine, WrongUseIsTold) {
    const std::vector<std::vector<std::string_view>> wrong = {{},
                                                              {"bake"},
                                                              {"params"},
                                                              {"styles", "extra"},
                                                              {"build", "--nothing"},
                                                              {"build", "-x"},
                                                              {"build", "--json"},
                                                              {"build", "-o"},
                                                              {"styles", "--json=yes"},
                                                              {"build", "a", "b"}};
    for (const auto& words : wrong) {
        Request request;
        EXPECT_NE(ParseCommandLine(words, &request), "") << (words.empty() ? "" : words[0]);
    }
}

}  // namespace
}  // namespace tess
