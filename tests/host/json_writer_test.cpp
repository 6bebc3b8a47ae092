#include "host/json_writer.h"

#include <gtest/gtest.h>

#include "tests/support/scratch_folder.h"

namespace tess {
namespace {

template <class Write>
std::string Written(Write write) {
    const auto bytes = test::BytesWritten([&](std::FILE* stream) {
        JsonWriter json(stream);
        write(json);
    });
    return {bytes.begin(), bytes.end()};
}

TEST(JsonWriter, MembersStandOnLinesOfTheirOwn) {
    EXPECT_EQ(Written([](JsonWriter& json) {
                  json.BeginObject();
                  json.Key("one");
                  json.Number(-1);
                  json.Key("list");
                  json.BeginArray();
                  json.Boolean(true);
                  json.Null();
                  json.EndArray();
                  json.EndObject();
              }),
              "{\n  \"one\": -1,\n  \"list\": [\n    true,\n    null\n  ]\n}\n");
}

TEST(JsonWriter, EmptyBracketsStayTogether) {
    EXPECT_EQ(Written([](JsonWriter& json) {
                  json.BeginArray();
                  json.EndArray();
              }),
              "[]\n");
}

TEST(JsonWriter, QuotesAndControlCharactersAreEscaped) {
    EXPECT_EQ(Written([](JsonWriter& json) { json.Text("\"\\\r\n\t"); }),
              "\"\\\"\\\\\\r\\n\\u0009\"");
}

}  // namespace
}  // namespace tess
