// The command that writes a document, or checks one and shows what it holds.
#include <cstdio>
#include <string>

#include "host/json_writer.h"
#include "programs/cli/commands.h"
#include "programs/cli/document_file.h"
#include "programs/cli/output_format.h"
#include "programs/cli/session.h"
#include "programs/cli/settings.h"
#include "programs/cli/style_names.h"
#include "programs/cli/tile_settings.h"
#include "programs/cli/values.h"
#include "shell/control_contract.h"
#include "shell/document.h"

namespace tess {
namespace {

constexpr int kDialogsOwnChoice = -1;

// What is known of a line's control besides the line itself.
struct ControlNames {
    std::string Style;  // "" for a control of the main dialog itself
    std::string Name;
    std::string Key;  // "" for one without
};

std::string TextOrNone(const char* text) {
    return text != nullptr ? text : "";
}

ControlNames NamesOf(int id) {
    const auto place = FindParameterByControl(id);
    if (place.Parameter == nullptr) {
        return {"", TextOrNone(GeneralSettingName(id)), TextOrNone(GeneralSettingKey(id))};
    }
    return {StyleName(*place.Style), ParameterName(*place.Style, *place.Parameter),
            TextOrNone(place.Parameter->Key)};
}

// A value as people read it.
std::string ReadableValue(platform::WindowHandle dialog, const DocumentLine& line) {
    if (line.Tag == kCheckBoxTag) return line.Value == "0" ? "no" : "yes";
    if (line.Tag == kColorButtonTag) return ColorText(ReadColor(line.Value).value_or(0));
    if (line.Tag == kComboBoxTag) {
        const auto index = ParseNumber(line.Value).value_or(-1);
        return index < 0 ? "none" : platform::ItemText(dialog, line.Id, static_cast<int>(index));
    }
    const bool is_block =
        line.Tag == kFountainTag || line.Tag == kMatrixTag || line.Tag == kMaterialTag;
    return is_block ? std::to_string(line.Value.size() / 2) + " bytes" : line.Value;
}

void ShowTable(platform::WindowHandle dialog, const DocumentFile& file) {
    std::printf("%-7s %-7s %-16s %-18s %s\n", "CONTROL", "TAG", "STYLE", "NAME", "VALUE");
    for (const DocumentLine& line : file.Lines) {
        const ControlNames names = NamesOf(line.Id);
        std::printf("%-7d %-7s %-16s %-18s %s\n", line.Id, line.Tag.c_str(),
                    names.Style.empty() ? "-" : names.Style.c_str(),
                    names.Name.empty() ? "-" : names.Name.c_str(),
                    ReadableValue(dialog, line).c_str());
    }
}

void WriteTextOrNull(JsonWriter& json, const char* key, const std::string& text) {
    json.Key(key);
    if (text.empty()) {
        json.Null();
    } else {
        json.Text(text);
    }
}

void ShowJson(platform::WindowHandle dialog, const DocumentFile& file) {
    JsonWriter json(stdout);
    json.BeginArray();
    for (const DocumentLine& line : file.Lines) {
        const ControlNames names = NamesOf(line.Id);
        json.BeginObject();
        json.Key("control");
        json.Number(line.Id);
        json.Key("tag");
        json.Text(line.Tag);
        WriteTextOrNull(json, "style", names.Style);
        WriteTextOrNull(json, "name", names.Name);
        WriteTextOrNull(json, "key", names.Key);
        json.Key("value");
        json.Text(line.Value);
        json.Key("shown");
        json.Text(ReadableValue(dialog, line));
        json.EndObject();
    }
    json.EndArray();
}

int ShowDocumentFile(const Request& request) {
    Session session;
    session.Work = [&request](platform::WindowHandle dialog) {
        const DocumentFile file = CheckDocumentFile(dialog, request.Operands.front());
        if (!file.Fault.empty()) {
            TellUser(file.Fault);
            return kFailed;
        }
        (request.Json ? ShowJson : ShowTable)(dialog, file);
        return kDone;
    };
    return RunSession(request, Wish::Work, kDialogsOwnChoice, &session);
}

int WriteDocumentFile(const Request& request) {
    for (const Setting& setting : request.Settings) {
        if (!IsPictureTile(setting)) continue;
        TellUser("--tile: a document names a tile by its group; add " + ShownText(setting.Value) +
                 " to one first: tessellomatics tiles GROUP --add PICTURE");
        return kWrongUse;
    }
    if (const int status = CheckDocumentOutput(request.Output); status != kDone) return status;
    Session session;
    session.Work = [&request](platform::WindowHandle dialog) {
        return WriteDocument(dialog, request.Output.c_str()) != 0 ? kDone : kFailed;
    };
    return RunSession(request, Wish::Work, kDialogsOwnChoice, &session);
}

int Refuse(const std::string& text) {
    TellUser(text);
    return kWrongUse;
}

}  // namespace

int RunDocument(const Request& request) {
    const bool writes = !request.Output.empty();
    const bool shows = !request.Operands.empty();
    if (writes && shows) {
        return Refuse("document -o has no use for '" + request.Operands.front() +
                      "'; --document takes it in");
    }
    if (writes) return WriteDocumentFile(request);
    if (!shows) return Refuse("document needs -o FILE to write one, or FILE to check and show it");
    if (!request.Settings.empty() || request.Saves) {
        return Refuse("document FILE shows what the file holds, and sets nothing; write with -o");
    }
    return ShowDocumentFile(request);
}

}  // namespace tess
