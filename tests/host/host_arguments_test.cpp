#include "host/host_arguments.h"

#include <gtest/gtest.h>
#include <vector>

#include "shell/entry_points.h"

namespace tess {
namespace {

HostArguments Read(std::vector<std::string_view> arguments) {
    return ReadHostArguments(arguments);
}

TEST(HostArguments, NoneMeansTheProgramsOwnPlugin) {
    const HostArguments read = Read({});
    EXPECT_EQ(read.Plugin, "");
    EXPECT_FALSE(read.Check);
    EXPECT_EQ(read.Error, "");
}

TEST(HostArguments, CheckAndPluginAreTaken) {
    const HostArguments read = Read({"--check", "C:\\a b\\other.dll"});
    EXPECT_TRUE(read.Check);
    EXPECT_EQ(read.Plugin, "C:\\a b\\other.dll");
}

TEST(HostArguments, UnknownOptionIsNamed) {
    EXPECT_EQ(Read({"--chek"}).Error, "unknown option --chek");
}

TEST(HostArguments, SecondPluginIsRefused) {
    EXPECT_EQ(Read({"a.dll", "b.dll"}).Error, "more than one plug-in is named");
}

TEST(HostArguments, PluginIsDescribedLineByLine) {
    alignas(PluginParams) unsigned char room[kPluginParamsBytes] = {};
    auto& params = *reinterpret_cast<PluginParams*>(room);
    params.Size = sizeof room;
    ASSERT_EQ(PLUGIN16GetPluginParams(&params), 1);
    const std::string text = DescribePlugin(params, "x.dll");
    EXPECT_TRUE(text.starts_with("Name: Tessellomatics #1\nVersion: 16.0\nDescription: "));
    EXPECT_TRUE(text.ends_with("\nFile: x.dll\n"));
}

}  // namespace
}  // namespace tess
