#include "tests/programs/program_run.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>

#include "tests/support/gif_reader.h"

namespace tess::test {
namespace {

std::string ReadText(const std::string& path) {
    const auto bytes = ReadFileBytes(path);
    return {bytes.begin(), bytes.end()};
}

}  // namespace

ProgramRun ProgramFolder::Run(const std::string& words, const std::string& before) const {
    const std::string output = streams_.File("output"), errors = streams_.File("errors");
    // The user's own folders are not touched.
    const std::string command = "cd '" + folder_.Path() + "' && export XDG_DATA_HOME='" +
                                streams_.Path() + "' && " + before + " '" PROGRAM_PATH "' " +
                                words + " >'" + output + "' 2>'" + errors + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadText(output), ReadText(errors)};
}

std::vector<std::uint8_t> ProgramFolder::Bytes(const std::string& name) const {
    return ReadFileBytes(File(name));
}

std::string ProgramFolder::Text(const std::string& name) const {
    return ReadText(File(name));
}

void ProgramFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(File(name), std::ios::binary) << bytes;
}

std::string ProgramFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names)
        text.append(text.empty() ? "" : " ").append(name);
    return text;
}

std::string ProgramRunTest::Output(const std::string& words) const {
    const ProgramRun run = Run(words);
    EXPECT_EQ(run.status, 0) << words << ": " << run.errors;
    return run.output;
}

void ProgramRunTest::ExpectRefusal(const ProgramRun& run, int status, const std::string& text) {
    EXPECT_EQ(run.status, status) << run.errors;
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(run.errors.starts_with("tessellomatics: ")) << run.errors;
    EXPECT_NE(run.errors.find(text), std::string::npos) << run.errors;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
}

}  // namespace tess::test
