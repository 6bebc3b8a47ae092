#include "tests/shell_stand_in/shell_stand_in.h"

#include <array>
#include <utility>

#include "platform/resources.h"
#include "shell/control_contract.h"
#include "tests/support/event_log.h"

namespace tess {

namespace {

template <int Row>
int BuildRow(StyleContext* context) {
    test::Events().push_back("Build " + std::to_string(Row));
    return test::Shell().build ? test::Shell().build(context) : 0;
}

template <int Row>
constexpr StyleEntry kEntry{
    "Toy",    "Style000", 0, {}, nullptr, Row == test::kRowWithoutBuild ? nullptr : &BuildRow<Row>,
    100 + Row};

}  // namespace

const StyleEntry* const StyleTable[kStyleCount] = {
    &kEntry<0>,  &kEntry<1>,  &kEntry<2>,  &kEntry<3>,  &kEntry<4>,  &kEntry<5>,  &kEntry<6>,
    &kEntry<7>,  &kEntry<8>,  &kEntry<9>,  &kEntry<10>, &kEntry<11>, &kEntry<12>, &kEntry<13>,
    &kEntry<14>, &kEntry<15>, &kEntry<16>, &kEntry<17>, &kEntry<18>, &kEntry<19>,
};

ColorWord BackgroundQuery(const StyleEntry& style, platform::WindowHandle, std::uint32_t mode) {
    test::Events().push_back("BackgroundQuery " + std::to_string(style.BackgroundControl - 100) +
                             " " + std::to_string(mode));
    return mode == 0 ? test::Shell().background : kNoBackground;
}

const char* LoadStringText(int id) {
    static std::string text;
    text = test::Shell().damaged_strings ? std::string() : std::string(platform::FindString(id));
    if (text.empty()) text = "String table error - this application may be damaged";
    return text.c_str();
}

void ShowMessage(platform::WindowHandle, const char* text) {
    test::Events().push_back(std::string("Message ") + text);
    test::Shell().messages.emplace_back(text);
}

bool AskYesNo(platform::WindowHandle, const char* text) {
    test::Events().push_back(std::string("Question ") + text);
    test::Shell().messages.emplace_back(text);
    return test::Shell().says_yes;
}

}  // namespace tess

namespace tess::test {

ShellStandIn& Shell() {
    static ShellStandIn shell;
    return shell;
}

}  // namespace tess::test
