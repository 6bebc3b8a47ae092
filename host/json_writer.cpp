#include "host/json_writer.h"

namespace tess {

void JsonWriter::BeginObject() {
    Begin('{');
}

void JsonWriter::BeginArray() {
    Begin('[');
}

void JsonWriter::Key(std::string_view name) {
    BeginValue();
    Quote(name);
    std::fputs(": ", stream_);
    after_key_ = true;
}

void JsonWriter::Text(std::string_view value) {
    BeginValue();
    Quote(value);
}

void JsonWriter::Number(std::int64_t value) {
    BeginValue();
    std::fprintf(stream_, "%lld", static_cast<long long>(value));
}

void JsonWriter::Decimal(double value) {
    BeginValue();
    std::fprintf(stream_, "%.3f", value);
}

void JsonWriter::Boolean(bool value) {
    BeginValue();
    std::fputs(value ? "true" : "false", stream_);
}

void JsonWriter::Null() {
    BeginValue();
    std::fputs("null", stream_);
}

void JsonWriter::BeginValue() {
    if (after_key_) {
        after_key_ = false;
        return;
    }
    if (!first_) std::fputc(',', stream_);
    if (depth_ > 0) NewLine();
    first_ = false;
}

void JsonWriter::Begin(char bracket) {
    BeginValue();
    std::fputc(bracket, stream_);
    ++depth_;
    first_ = true;
}

void JsonWriter::End(char bracket) {
    --depth_;
    if (!first_) NewLine();
    std::fputc(bracket, stream_);
    first_ = false;
    if (depth_ == 0) std::fputc('\n', stream_);
}

void JsonWriter::NewLine() {
    std::fprintf(stream_, "\n%*s", 2 * depth_, "");
}

void JsonWriter::Quote(std::string_view text) {
    std::fputc('"', stream_);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            std::fprintf(stream_, "\\%c", c);
        } else if (c == '\n') {
            std::fputs("\\n", stream_);
        } else if (c == '\r') {
            std::fputs("\\r", stream_);
        } else if (byte < 0x20) {
            std::fprintf(stream_, "\\u%04x", byte);
        } else {
            std::fputc(c, stream_);
        }
    }
    std::fputc('"', stream_);
}

}  // namespace tess
