#include "controls/help.h"

#include <gtest/gtest.h>

#include "controls/current_host.h"
#include "tests/shell_stand_in/shell_stand_in.h"

namespace tess::test {

namespace {

std::string shown_target;
std::int64_t answer = 1;

std::int64_t Answer(TaskRecord* task, std::int64_t opcode, std::int64_t a, std::int64_t b) {
    EXPECT_EQ(task, nullptr);
    EXPECT_EQ(opcode, 9);
    EXPECT_EQ(a, 0);
    shown_target = reinterpret_cast<const char*>(static_cast<std::intptr_t>(b));
    return answer;
}

class Help : public testing::Test {
protected:
    Help() {
        Shell() = {};
        CurrentHost = &services_;
    }
    ~Help() override { CurrentHost = nullptr; }

private:
    HostServices services_{sizeof(HostServices), kHostVersion, 0, 0, Answer, 0, 0, 0};
};

TEST_F(Help, IsThePageAtTheAnchor) {
    answer = 1;
    ShowHelp(nullptr, "TILE");
    EXPECT_EQ(shown_target, "VORBELx1.HTML#TILE");
    EXPECT_TRUE(Shell().messages.empty());
}

TEST_F(Help, ThatTheHostCannotShowIsTold) {
    answer = 0;
    ShowHelp(nullptr, "TILE");
    EXPECT_EQ(Shell().messages,
              std::vector<std::string>{"There has been an error displaying the Help document."});
}

}  // namespace

}  // namespace tess::test
