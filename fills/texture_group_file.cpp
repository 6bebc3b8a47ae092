// A key of an item is a field of the record; one table of them serves the reader and
// the writer. Numbers are read and written without the C library's formats for real
// ones, since those follow the user's language.
#include "fills/texture_group_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#include "fills/group_list.h"
#include "fills/texture_fields.h"
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

/// In the order of the file. "Creater" is how the keys are spelled.
constexpr Field kFields[] = {
    {"Power1", Real, PowerAt(0)},
    {"Power2", Real, PowerAt(1)},
    {"Power3", Real, PowerAt(2)},
    {"Power4", Real, PowerAt(3)},
    {"Power5", Real, PowerAt(4)},
    {"SeedValue1", Whole, SeedAt(0)},
    {"SeedValue2", Whole, SeedAt(1)},
    {"SeedValue3", Whole, SeedAt(2)},
    {"SeedValue4", Whole, SeedAt(3)},
    {"SeedValue5", Whole, SeedAt(4)},
    {"Dimension1", Real, DimensionAt(0)},
    {"Dimension2", Real, DimensionAt(1)},
    {"Dimension3", Real, DimensionAt(2)},
    {"Dimension4", Real, DimensionAt(3)},
    {"Dimension5", Real, DimensionAt(4)},
    {"MatrixSize", Whole, offsetof(TextureItem, MatrixSize)},
    {"TextureType", Whole, offsetof(TextureItem, TextureType)},
    {"ForeColour1", Whole, ForeColourAt(0)},
    {"ForeColour2", Whole, ForeColourAt(1)},
    {"ForeColour3", Whole, ForeColourAt(2)},
    {"ForeColour4", Whole, ForeColourAt(3)},
    {"ForeColour5", Whole, ForeColourAt(4)},
    {"BackColour", Whole, offsetof(TextureItem, BackColour)},
    {"CreaterCount", Whole, offsetof(TextureItem, CreaterCount)},
    {"CreaterDepth", Real, offsetof(TextureItem, CreaterDepth)},
    {"ColorRed0", Real, ColorRedAt(0)},
    {"ColorRed1", Real, ColorRedAt(1)},
    {"ColorRed2", Real, ColorRedAt(2)},
    {"ColorRed3", Real, ColorRedAt(3)},
    {"ColorGreen0", Real, ColorGreenAt(0)},
    {"ColorGreen1", Real, ColorGreenAt(1)},
    {"ColorGreen2", Real, ColorGreenAt(2)},
    {"ColorGreen3", Real, ColorGreenAt(3)},
    {"ColorBlue0", Real, ColorBlueAt(0)},
    {"ColorBlue1", Real, ColorBlueAt(1)},
    {"ColorBlue2", Real, ColorBlueAt(2)},
    {"ColorBlue3", Real, ColorBlueAt(3)},
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

/// Whether a decimal number that does not fit is too large and not too small: whether its
/// first digit but 0 is left of the point, once the exponent has moved it.
bool IsLarge(std::string_view number) {
    const std::size_t end = std::min(number.find_first_of("eE"), number.size());
    std::string_view exponent = number.substr(std::min(end + 1, number.size()));
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    int moved = 0;
    const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), moved);
    if (read.ec == std::errc::result_out_of_range) return !exponent.starts_with('-');
    const std::string_view digits = number.substr(0, end);
    const std::size_t first = std::min(digits.find_first_of("123456789"), end);
    const std::size_t point = std::min(digits.find('.'), end);
    return static_cast<std::ptrdiff_t>(point) + moved > static_cast<std::ptrdiff_t>(first);
}

/// As `atof` in the C locale, of decimal numbers; 0 for what is none.
double ReadReal(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const std::from_chars_result read =
        std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        const bool is_negative = text.starts_with('-');
        const std::string_view number =
            text.substr(0, static_cast<std::size_t>(read.ptr - text.data()));
        if (!IsLarge(number.substr(is_negative ? 1 : 0))) return 0.0;
        return is_negative ? -HUGE_VAL : HUGE_VAL;
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
    if (field.Kind == Real) {
        SetTextureNumber(item, field.Offset, static_cast<float>(ReadReal(value)));
    } else {
        SetTextureNumber(item, field.Offset, ReadWhole(value));
    }
}

void WriteField(const Field& field, const TextureItem& item, std::FILE* stream) {
    constexpr int kDecimals = 6;
    char text[64];  // the largest number has 39 digits before the point
    char* const last = text + sizeof text - 1;
    const std::to_chars_result end =
        field.Kind == Real
            ? std::to_chars(text, last, double{TextureNumber<float>(item, field.Offset)},
                            std::chars_format::fixed, kDecimals)
            : std::to_chars(text, last, TextureNumber<std::uint32_t>(item, field.Offset));
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
