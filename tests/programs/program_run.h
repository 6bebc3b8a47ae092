// Runs of the program itself, each in a folder of its own.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace tess::test {

struct ProgramRun {
    int status;  ///< the exit status, -1 when a signal ended it
    std::string output;
    std::string errors;
};

/// A folder in which the program is run; paths in its words are relative to it.
class ProgramFolder {
public:
    /// `words` are what stands behind the program's name, as a shell reads them;
    /// `before` are commands of the shell before it.
    [[nodiscard]] ProgramRun Run(const std::string& words, const std::string& before = "") const;

    [[nodiscard]] std::string File(const std::string& name) const { return folder_.File(name); }
    [[nodiscard]] std::vector<std::uint8_t> Bytes(const std::string& name) const;
    [[nodiscard]] std::string Text(const std::string& name) const;
    void Write(const std::string& name, const std::string& bytes) const;
    /// The names in the folder, sorted, with a blank between.
    [[nodiscard]] std::string Names() const;

private:
    ScratchFolder folder_;
    ScratchFolder streams_;
};

/// A test of runs in a folder.
class ProgramRunTest : public ::testing::Test {
protected:
    [[nodiscard]] ProgramRun Run(const std::string& words, const std::string& before = "") const {
        return folder_.Run(words, before);
    }
    /// Runs what must go well. Returns what it prints.
    std::string Output(const std::string& words) const;
    /// The run was refused: the status, one line that begins with the program's name and
    /// holds `text`, and nothing on standard output.
    static void ExpectRefusal(const ProgramRun& run, int status, const std::string& text);

    ProgramFolder folder_;
};

}  // namespace tess::test
