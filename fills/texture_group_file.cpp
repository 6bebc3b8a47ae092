// A key of an item is a field of the record; one table of them serves the reader and
// the writer. Numbers are read and written without the C library's formats for real
// ones, since those follow the user's language.
#include "fills/texture_group_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <system_error>

#include "fills/group_list.h"
#include "platform/clock.h"
#include "platform/letter_case.h"

namespace tess {

char TextureGroupFile[kTextureGroupFileBytes] = "vorbelx1.fft";

namespace {

constexpr char kNameKey[] = "TextureName";
constexpr char kBeginItem[] = ":BEGINITEM";
constexpr char kEndItem[] = ":ENDITEM";
constexpr std::size_t kNameBytes = 260;

enum class FieldKind { Real, Whole };

struct Field {
    const char* Key;
    FieldKind Kind;
    std::size_t Offset;
};

using enum FieldKind;

constexpr std::size_t Nth(std::size_t offset, std::size_t index) {
    return offset + 4 * index;
}
constexpr std::size_t kPower = offsetof(TextureItem, Power);
constexpr std::size_t kSeed = offsetof(TextureItem, SeedValue);
constexpr std::size_t kDimension = offsetof(TextureItem, Dimension);
constexpr std::size_t kForeColour = offsetof(TextureItem, ForeColour);
constexpr std::size_t kRed = offsetof(TextureItem, ColorRed);
constexpr std::size_t kGreen = offsetof(TextureItem, ColorGreen);
constexpr std::size_t kBlue = offsetof(TextureItem, ColorBlue);

/// In the order of the file. "Creater" is how the keys are spelled.
constexpr Field kFields[] = {
    {"Power1", Real, Nth(kPower, 0)},
    {"Power2", Real, Nth(kPower, 1)},
    {"Power3", Real, Nth(kPower, 2)},
    {"Power4", Real, Nth(kPower, 3)},
    {"Power5", Real, Nth(kPower, 4)},
    {"SeedValue1", Whole, Nth(kSeed, 0)},
    {"SeedValue2", Whole, Nth(kSeed, 1)},
    {"SeedValue3", Whole, Nth(kSeed, 2)},
    {"SeedValue4", Whole, Nth(kSeed, 3)},
    {"SeedValue5", Whole, Nth(kSeed, 4)},
    {"Dimension1", Real, Nth(kDimension, 0)},
    {"Dimension2", Real, Nth(kDimension, 1)},
    {"Dimension3", Real, Nth(kDimension, 2)},
    {"Dimension4", Real, Nth(kDimension, 3)},
    {"Dimension5", Real, Nth(kDimension, 4)},
    {"MatrixSize", Whole, offsetof(TextureItem, MatrixSize)},
    {"TextureType", Whole, offsetof(TextureItem, TextureType)},
    {"ForeColour1", Whole, Nth(kForeColour, 0)},
    {"ForeColour2", Whole, Nth(kForeColour, 1)},
    {"ForeColour3", Whole, Nth(kForeColour, 2)},
    {"ForeColour4", Whole, Nth(kForeColour, 3)},
    {"ForeColour5", Whole, Nth(kForeColour, 4)},
    {"BackColour", Whole, offsetof(TextureItem, BackColour)},
    {"CreaterCount", Whole, offsetof(TextureItem, CreaterCount)},
    {"CreaterDepth", Real, offsetof(TextureItem, CreaterDepth)},
    {"ColorRed0", Real, Nth(kRed, 0)},
    {"ColorRed1", Real, Nth(kRed, 1)},
    {"ColorRed2", Real, Nth(kRed, 2)},
    {"ColorRed3", Real, Nth(kRed, 3)},
    {"ColorGreen0", Real, Nth(kGreen, 0)},
    {"ColorGreen1", Real, Nth(kGreen, 1)},
    {"ColorGreen2", Real, Nth(kGreen, 2)},
    {"ColorGreen3", Real, Nth(kGreen, 3)},
    {"ColorBlue0", Real, Nth(kBlue, 0)},
    {"ColorBlue1", Real, Nth(kBlue, 1)},
    {"ColorBlue2", Real, Nth(kBlue, 2)},
    {"ColorBlue3", Real, Nth(kBlue, 3)},
    {"BubbleCount", Whole, offsetof(TextureItem, BubbleCount)},
    {"BubbleSize", Whole, offsetof(TextureItem, BubbleSize)},
    {"BubblePower", Real, offsetof(TextureItem, BubblePower)},
    {"BubbleShape", Whole, offsetof(TextureItem, BubbleShape)},
    {"PerturbationPower", Real, offsetof(TextureItem, PerturbationPower)},
};

bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}

void StripEnd(std::string_view* text) {
    while (!text->empty() && IsBlank(text->back()))
        text->remove_suffix(1);
}

struct KeyAndValue {
    std::string_view key, value;
};

/// Splits a line at its first "=". Requires: there is one.
KeyAndValue Split(std::string_view line) {
    const std::size_t equals = line.find('=');
    KeyAndValue split{line.substr(0, equals), line.substr(equals)};
    while (!split.value.empty() && (split.value.front() == '=' || IsBlank(split.value.front())))
        split.value.remove_prefix(1);
    StripEnd(&split.key);
    StripEnd(&split.value);
    return split;
}

/// As `atof` in the C locale, of decimal numbers; 0 for what is none.
double ReadReal(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const std::from_chars_result read =
        std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        // Too large or too small for a number, which its first digit and exponent tell.
        const bool is_negative = text.starts_with('-');
        if (is_negative) text.remove_prefix(1);
        const bool is_small = text.starts_with('0') || text.starts_with('.') ||
                              text.find("e-") != text.npos || text.find("E-") != text.npos;
        return is_small ? 0.0 : is_negative ? -HUGE_VAL : HUGE_VAL;
    }
    return value - value == 0.0 ? value : 0.0;  // "inf" and "nan" are no numbers here
}

/// As `atol`, but that a number beyond 32 bits wraps: what "%lu" wrote of a negative one
/// is read as that again.
std::uint32_t ReadWhole(std::string_view text) {
    const bool is_negative = text.starts_with('-');
    if (is_negative || text.starts_with('+')) text.remove_prefix(1);
    std::uint32_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = value * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return is_negative ? 0 - value : value;
}

void SetField(const Field& field, std::string_view value, TextureItem* item) {
    auto* place = reinterpret_cast<std::uint8_t*>(item) + field.Offset;
    if (field.Kind == Real) {
        const auto number = static_cast<float>(ReadReal(value));
        std::memcpy(place, &number, sizeof number);
    } else {
        const std::uint32_t number = ReadWhole(value);
        std::memcpy(place, &number, sizeof number);
    }
}

void WriteField(const Field& field, const TextureItem& item, std::FILE* stream) {
    constexpr int kDecimals = 6;
    char text[64];  // the largest number has 39 digits before the point
    const auto* place = reinterpret_cast<const std::uint8_t*>(&item) + field.Offset;
    std::to_chars_result end;
    if (field.Kind == Real) {
        float number;
        std::memcpy(&number, place, sizeof number);
        end = std::to_chars(text, text + sizeof text - 1, double{number}, std::chars_format::fixed,
                            kDecimals);
    } else {
        std::uint32_t number;
        std::memcpy(&number, place, sizeof number);
        end = std::to_chars(text, text + sizeof text - 1, number);
    }
    *end.ptr = '\0';
    std::fprintf(stream, "%s=%s\n", field.Key, text);
}

}  // namespace

TextureGroupReader::TextureGroupReader(std::string_view path)
    : stream_(platform::OpenFile(path, "rb")), lines_(stream_.get()) {
    std::string_view line;
    is_group_ = stream_ != nullptr && NextLine(&line) && line == kTextureGroupBanner;
}

bool TextureGroupReader::NextLine(std::string_view* line) {
    if (!lines_.Next(buffer_)) return false;
    *line = buffer_;
    StripEnd(line);
    return true;
}

bool TextureGroupReader::Next(std::string* name, TextureItem* item) {
    bool is_inside = false;
    std::string_view line;
    // A file that is cut off inside an item ends there, without that item; going on
    // until its end is found would go on for ever.
    while (is_group_ && NextLine(&line)) {
        if (line.starts_with(';')) continue;
        if (platform::IsSameName(line, is_inside ? kEndItem : kBeginItem)) {
            if (is_inside) {
                *name = name_;
                return true;
            }
            is_inside = true;
            *item = {};
            InitTextureItem(item);
            continue;
        }
        if (line.find('=') == line.npos) continue;
        const KeyAndValue split = Split(line);
        if (!is_inside) {
            if (platform::IsSameName(split.key, "Writeable"))
                writeable_ = static_cast<std::int32_t>(ReadWhole(split.value));
        } else if (platform::IsSameName(split.key, kNameKey)) {
            name_ = split.value.substr(0, kNameBytes);
        } else {
            for (const Field& field : kFields) {
                if (platform::IsSameName(split.key, field.Key)) SetField(field, split.value, item);
            }
        }
    }
    return false;
}

bool TextureGroupReader::IsRead() const {
    return stream_ != nullptr && std::ferror(stream_.get()) == 0;
}

TextureGroupWriter::TextureGroupWriter(std::string_view path, int count)
    : path_(path), count_(count), file_(path, platform::FileMode::Text) {
    if (!file_ || count == 0) return;
    std::fprintf(file_.Stream(),
                 "%s\n"
                 ";This is a machine-generated text file. If you edit it by hand, you\n"
                 ";run the very real and tangible risk of causing all time and space to\n"
                 ";implode upon itself and bring about the extinction of reality as we\n"
                 ";know it. Think carefully...\n"
                 "Version=%d.%d%c\n"
                 "Itemcount=%d\n"
                 "Writeable=1\n"
                 "UpdateTimeDate=%24.24s\n"
                 ";Items begin\n",
                 kTextureGroupBanner, 16, 0, 'a', count, platform::CurrentTimeText().c_str());
}

void TextureGroupWriter::Add(std::string_view name, const TextureItem& item) {
    if (!file_) return;
    std::FILE* stream = file_.Stream();
    std::fprintf(stream, "%s\n%s=%.*s\n", kBeginItem, kNameKey, static_cast<int>(name.size()),
                 name.data());
    for (const Field& field : kFields)
        WriteField(field, item, stream);
    std::fprintf(stream, "%s\n", kEndItem);
}

int TextureGroupWriter::Commit() {
    if (!file_) return 0;
    if (count_ > 0) {
        std::fprintf(file_.Stream(), ";Items end -- beyond this point be dragons.\n");
    }
    KeepGroupBackup(path_);
    return file_.Commit();
}

}  // namespace tess
