// Text in JSON (RFC 8259), written piece by piece to a stream: the commas,
// indentation and escapes of what the caller names in order.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace tess {

class JsonWriter {
public:
    /// Requires: `stream` outlives this.
    explicit JsonWriter(std::FILE* stream) : stream_(stream) {}

    void BeginObject();
    void EndObject() { End('}'); }
    void BeginArray();
    void EndArray() { End(']'); }
    /// The name of the value that comes next in an object.
    void Key(std::string_view name);
    void Text(std::string_view value);
    void Number(std::int64_t value);
    /// With three decimals.
    void Decimal(double value);
    void Boolean(bool value);
    void Null();

private:
    void BeginValue();
    void Begin(char bracket);
    void End(char bracket);
    void NewLine();
    void Quote(std::string_view text);

    std::FILE* stream_;
    int depth_ = 0;
    bool first_ = true;       // nothing stands in the innermost bracket yet
    bool after_key_ = false;  // the value follows on the key's line
};

}  // namespace tess
