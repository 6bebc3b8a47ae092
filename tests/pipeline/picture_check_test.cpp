#include "pipeline/picture_check.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "tests/support/image_bytes.h"

namespace tess::test {

namespace {

/// The block of a small picture with its head changed.
template <class Change>
bool IsWholeWith(int bits, Change change, std::size_t missing = 0) {
    std::vector<std::uint8_t> bytes = TakeImageBytes(NewPackedDib(5, 3, nullptr, bits));
    PackedDib head;
    std::memcpy(&head, bytes.data(), sizeof head);
    change(head);
    std::memcpy(bytes.data(), &head, sizeof head);
    return IsWholePicture(bytes.data(), bytes.size() - missing);
}

constexpr auto kAsItIs = [](PackedDib&) {};

TEST(IsWholePicture, TakesEveryDepthThatThereIs) {
    for (const int bits : {1, 4, 8, 24, 32})
        EXPECT_TRUE(IsWholeWith(bits, kAsItIs)) << bits;
}

TEST(IsWholePicture, RefusesABlockOneByteShort) {
    for (const int bits : {1, 4, 8, 24, 32})
        EXPECT_FALSE(IsWholeWith(bits, kAsItIs, 1)) << bits;
}

TEST(IsWholePicture, RefusesWhatIsNoPlainHead) {
    EXPECT_FALSE(IsWholeWith(24, [](PackedDib& head) { head.HeaderSize = 12; }));
    EXPECT_FALSE(IsWholeWith(24, [](PackedDib& head) { head.Planes = 3; }));
    EXPECT_FALSE(IsWholeWith(8, [](PackedDib& head) { head.Compression = 1; }));
    EXPECT_FALSE(IsWholeWith(24, [](PackedDib& head) { head.BitCount = 16; }));
    EXPECT_FALSE(IsWholeWith(24, [](PackedDib& head) { head.BitCount = 0; }));
}

TEST(IsWholePicture, RefusesSizesThatLie) {
    for (const std::int32_t size : {0, -3, 6, 65536, 0x7FFFFFFF}) {
        EXPECT_FALSE(IsWholeWith(32, [size](PackedDib& head) { head.Width = size; })) << size;
        EXPECT_FALSE(IsWholeWith(32, [size](PackedDib& head) { head.Height = size; })) << size;
    }
    EXPECT_FALSE(IsWholeWith(32, [](PackedDib& head) { head.Width = head.Height = 0x10000; }));
}

TEST(IsWholePicture, RefusesATableThatIsNotFull) {
    EXPECT_TRUE(IsWholeWith(8, [](PackedDib& head) { head.ColorsUsed = 0; }));
    EXPECT_FALSE(IsWholeWith(8, [](PackedDib& head) { head.ColorsUsed = 255; }));
    EXPECT_FALSE(IsWholeWith(4, [](PackedDib& head) { head.ColorsUsed = 0xFFFFFFFF; }));
}

TEST(IsWholePicture, RefusesNoBlockAndAHeadAlone) {
    EXPECT_FALSE(IsWholePicture(ImageHandle{}));
    const PackedDib head{40, 1, 1, 1, 24, 0, 4, 0, 0, 0, 0};
    EXPECT_FALSE(IsWholePicture(&head, sizeof head));
    EXPECT_FALSE(IsWholePicture(&head, 0));
}

TEST(IsWholePicture, TakesAHandleOfAWholeOne) {
    const platform::OwnedBlock picture(NewPackedDib(7, 7, nullptr, 4));
    EXPECT_TRUE(IsWholePicture(picture.Get()));
}

}  // namespace

}  // namespace tess::test
