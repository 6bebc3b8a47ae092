// Where the per-user folders are on a system that is not Windows.

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "platform/files.h"

namespace {

/// Sets or unsets a variable of the environment for a scope.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        const char* old = std::getenv(name);
        had_value_ = old != nullptr;
        if (had_value_) old_ = old;
        Set(value);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { Set(had_value_ ? old_.c_str() : nullptr); }

private:
    void Set(const char* value) {
        if (value != nullptr) {
            setenv(name_, value, 1);
        } else {
            unsetenv(name_);
        }
    }
    const char* name_;
    std::string old_;
    bool had_value_ = false;
};

TEST(UserFolder, IsTheDataHome) {
    const Variable data("XDG_DATA_HOME", "/data");
    EXPECT_STREQ(platform::UserFile("a.ini"), "/data/Quorvenstadtholme/a.ini");
}

TEST(UserFolder, IsInTheHomeWithoutADataHome) {
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", "/home/someone");
    EXPECT_STREQ(platform::PluginFile("a.fll"),
                 "/home/someone/.local/share/Quorvenstadtholme/Tessellomatics 1/a.fll");
}

TEST(UserFolder, RelativeDataHomeDoesNotCount) {
    const Variable data("XDG_DATA_HOME", "data");
    const Variable home("HOME", "/home/someone");
    EXPECT_STREQ(platform::UserFile("a"), "/home/someone/.local/share/Quorvenstadtholme/a");
}

TEST(UserFolder, PathIsEmptyWithoutAHome) {
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_STREQ(platform::UserFile("a"), "");
    EXPECT_STREQ(platform::PluginFile("a"), "");
    EXPECT_EQ(platform::DocumentsFolder(), "");
}

}  // namespace
