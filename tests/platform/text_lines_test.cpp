#include "platform/text_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

std::vector<std::string> LinesOf(std::string_view text, std::size_t room = 80) {
    platform::TextLines lines(text);
    std::vector<char> line(room);
    std::vector<std::string> all;
    while (lines.Next(line))
        all.emplace_back(line.data());
    return all;
}

using Lines = std::vector<std::string>;

TEST(TextLines, EndsOfEitherSystemAreLineFeeds) {
    EXPECT_EQ(LinesOf("a\r\nb\nc"), (Lines{"a\n", "b\n", "c"}));
}

TEST(TextLines, ACarriageReturnAloneStays) {
    EXPECT_EQ(LinesOf("a\rb\r\r\n"), (Lines{"a\rb\r\n"}));
}

TEST(TextLines, NothingHasNoLines) {
    EXPECT_EQ(LinesOf(""), Lines{});
    EXPECT_EQ(LinesOf("\n"), Lines{"\n"});
}

TEST(TextLines, WhatDoesNotFitIsALineOfItsOwn) {
    EXPECT_EQ(LinesOf("abcdef\n", 4), (Lines{"abc", "def", "\n"}));
}

TEST(TextLines, AStreamReadsAsATextDoes) {
    const std::string text = "one\r\ntwo\x1A three\n\nfour";
    std::FILE* stream = std::tmpfile();
    ASSERT_NE(stream, nullptr);
    std::fwrite(text.data(), 1, text.size(), stream);
    std::rewind(stream);
    platform::TextLines lines(stream);
    char line[80];
    Lines all;
    while (lines.Next(line))
        all.emplace_back(line);
    std::fclose(stream);
    EXPECT_EQ(all, LinesOf(text));
}

}  // namespace
