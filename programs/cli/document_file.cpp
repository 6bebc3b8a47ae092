#include "programs/cli/document_file.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <optional>
#include <string_view>

#include "fills/fountain.h"
#include "platform/files.h"
#include "programs/cli/control_values.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/values.h"
#include "shell/control_contract.h"
#include "shell/document.h"

namespace tess {
namespace {

constexpr std::size_t kTagLength = 6;
constexpr std::size_t kLongestLine = 8190;  // what the dialog reads in one piece
constexpr std::size_t kLargestFile = std::size_t{16} << 20;

std::optional<std::string> ReadWhole(const std::string& path) {
    std::FILE* stream = platform::OpenFile(path, "rb");
    if (stream == nullptr) return std::nullopt;
    std::string text;
    char piece[4096];
    while (const std::size_t length = std::fread(piece, 1, sizeof piece, stream)) {
        text.append(piece, length);
        if (text.size() > kLargestFile) break;
    }
    const bool is_read = std::ferror(stream) == 0 && text.size() <= kLargestFile;
    std::fclose(stream);
    if (!is_read) return std::nullopt;
    return text;
}

// Takes the next line off `text`, without its end.
std::string_view NextLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsPlainNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

// A document names a choice by its index alone, -1 for none.
std::string CheckIndex(platform::WindowHandle dialog, const DocumentLine& line) {
    if (line.Value == "-1") return "";
    return NumberBetween(line.Value, 0, platform::ItemCount(dialog, line.Id) - 1).Error;
}

std::string CheckNumber(platform::WindowHandle dialog, const DocumentLine& line) {
    constexpr int kLongestDelay = 250;  // of the host that counts in milliseconds
    if (!IsPlainNumber(line.Value)) return "is no number";
    if (line.Tag == kColorButtonTag) return NumberBetween(line.Value, 0, 0xFFFFFFFF).Error;
    if (line.Tag == kCheckBoxTag) return NumberBetween(line.Value, 0, 1).Error;
    if (line.Id == kDelayEdit) return NumberBetween(line.Value, 1, kLongestDelay).Error;
    if (line.Tag == kComboBoxTag) return CheckIndex(dialog, line);
    return ValueForControl(dialog, line.Id, line.Value).Error;
}

std::string CheckValue(platform::WindowHandle dialog, const DocumentLine& line) {
    if (line.Tag == kFontBoxTag) return "";
    const bool is_block =
        line.Tag == kFountainTag || line.Tag == kMatrixTag || line.Tag == kMaterialTag;
    if (!is_block) return CheckNumber(dialog, line);
    // A setting may be colours by name; a document holds the record alone.
    if (line.Tag == kFountainTag && line.Value.find('#') != std::string::npos) {
        return "is no block of " + std::to_string(sizeof(Fountain)) + " bytes";
    }
    return ValueForControl(dialog, line.Id, line.Value).Error;
}

// Splits a line and holds it against its control. Returns what is wrong with it.
std::string CheckLine(platform::WindowHandle dialog, std::string_view text, DocumentLine* line) {
    const std::size_t equals = text.find('=');
    if (text.size() > kLongestLine) return "is too long";
    if (equals == std::string_view::npos || equals <= kTagLength) return "is no control's line";
    line->Tag = text.substr(0, kTagLength);
    line->Value = text.substr(equals + 1);
    const std::string id(text.substr(kTagLength, equals - kTagLength));
    const auto number = IsPlainNumber(id) ? ParseNumber(id) : std::nullopt;
    if (!number || *number < 1 || *number > 0xFFFF) return ShownText(id) + " is no control's id";
    line->Id = static_cast<int>(*number);
    const platform::WindowHandle control = platform::Control(dialog, line->Id);
    if (control == nullptr) return "the dialog has no control " + id;
    if (line->Tag != platform::ControlTag(control)) {
        return ShownText(line->Tag) + " is not the tag of control " + id;
    }
    const std::string error = CheckValue(dialog, *line);
    return error.empty() ? "" : line->Tag + id + ": " + ShownText(line->Value) + " " + error;
}

// What is wrong with a document's lines behind the first.
std::string CheckLines(platform::WindowHandle dialog, std::string_view text,
                       std::vector<DocumentLine>* lines) {
    bool is_ended = false;
    for (int number = 2; !text.empty(); ++number) {
        const std::string_view line_text = NextLine(text);
        is_ended = is_ended || line_text == kDocumentEnd;
        if (line_text.starts_with(';')) continue;
        DocumentLine line{number, "", 0, ""};
        const std::string fault = CheckLine(dialog, line_text, &line);
        if (!fault.empty()) return "line " + std::to_string(number) + ": " + fault;
        lines->push_back(std::move(line));
    }
    return is_ended ? "" : "is cut off: its last line is missing";
}

}  // namespace

DocumentFile CheckDocumentFile(platform::WindowHandle dialog, const std::string& path) {
    DocumentFile file;
    const auto text = ReadWhole(path);
    if (!text) {
        file.Fault = ReadFault(path);
        return file;
    }
    if (text->empty()) return file;  // counts as a correct one
    std::string_view rest = *text;
    if (!IsDocumentHeader(std::string(NextLine(rest)).c_str())) {
        file.Fault = path + ": is no document of this program";
        return file;
    }
    const std::string fault = CheckLines(dialog, rest, &file.Lines);
    if (!fault.empty()) file.Fault = path + ": " + fault;
    return file;
}

}  // namespace tess
