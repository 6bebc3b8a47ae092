// The command for fountains and the library of them: list, show, add, take out.
#include <cstdio>
#include <string>
#include <vector>

#include "fills/fountain_control.h"
#include "fills/fountain_library.h"
#include "fills/fountain_markers.h"
#include "host/json_writer.h"
#include "platform/files.h"
#include "programs/cli/commands.h"
#include "programs/cli/file_faults.h"
#include "programs/cli/fountain_text.h"
#include "programs/cli/output_format.h"
#include "programs/cli/session.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

int Fail(const std::string& text, int status = kFailed) {
    TellUser(text);
    return status;
}

bool IsUsersLibrary(const Request& request) {
    return request.Library.empty();
}

std::string LibraryOf(const Request& request) {
    return IsUsersLibrary(request) ? FountainLibraryPath() : request.Library;
}

// Reads the library that the request means. Returns kDone, or another exit status after
// telling the user.
int ReadLibrary(const Request& request, FountainLibraryEntries* entries) {
    const std::string path = LibraryOf(request);
    switch (ReadFountainLibrary(path, entries)) {
        case LibraryState::Whole:
            return kDone;
        case LibraryState::Missing:
            // The user's is removed with its last entry, and --add makes any. Another that is
            // named and is not there is mistyped.
            if (IsUsersLibrary(request) || !request.AddedItems.empty()) return kDone;
            return Fail(ReadFault(path));
        case LibraryState::Unreadable:
            return Fail(ReadFault(path));
        case LibraryState::Damaged:
            return Fail(path + ": is no fountain library, or a damaged one");
    }
    return kFailed;
}

Fountain FountainOf(const FountainLibraryEntry& entry) {
    Fountain fountain;
    InitFountain(&fountain, FountainPreset::Plain);
    TakeColors(entry, &fountain);
    return fountain;
}

// Finds the entry that a number means.
int FindEntry(const FountainLibraryEntries& entries, const std::string& text, std::size_t* index) {
    const auto number = ParseNumber(text);
    if (number && *number >= 0 && static_cast<std::size_t>(*number) < entries.size()) {
        *index = static_cast<std::size_t>(*number);
        return kDone;
    }
    const std::string holds =
        entries.size() == 0 ? "is empty" : "holds 0 to " + std::to_string(entries.size() - 1);
    return Fail("there is no entry " + ShownText(text) + "; the library " + holds, kWrongUse);
}

bool IsEntryNumber(const std::string& text) {
    constexpr std::size_t kMostDigits = 10;  // hexadecimal digits are many more
    return text.size() <= kMostDigits && ParseNumber(text).has_value();
}

// Reads what an operand means: an entry by its number, a control's file, or a text.
int ReadFountain(const Request& request, const std::string& text, Fountain* fountain) {
    if (IsEntryNumber(text)) {
        FountainLibraryEntries entries;
        std::size_t index = 0;
        if (const int status = ReadLibrary(request, &entries); status != kDone) return status;
        if (const int status = FindEntry(entries, text, &index); status != kDone) return status;
        *fountain = FountainOf(entries[index]);
        return kDone;
    }
    if (platform::FileExists(text)) {
        if (ReadFountainFile(text, fountain) != 0) return kDone;
        return Fail(IsReadable(text) ? text + ": is no fountain's file, or a damaged one"
                                     : ReadFault(text));
    }
    const std::string error = ReadFountainText(text, fountain);
    if (error.empty()) return kDone;
    return Fail(ShownText(text) + " " + error, kWrongUse);
}

void WriteJson(JsonWriter& json, const Fountain& fountain) {
    json.Key("start");
    json.Text(ColorText(fountain.Start));
    json.Key("end");
    json.Text(ColorText(fountain.End));
    json.Key("markers");
    json.BeginArray();
    for (int i = 0; i < MarkerCount(fountain); ++i) {
        json.BeginObject();
        json.Key("position");
        json.Number(MarkerPosition(fountain.Markers[i]));
        json.Key("color");
        json.Text(ColorText(MarkerColor(fountain.Markers[i])));
        json.EndObject();
    }
    json.EndArray();
    json.Key("text");
    json.Text(FountainText(fountain));
}

int ListLibrary(const Request& request) {
    FountainLibraryEntries entries;
    if (const int status = ReadLibrary(request, &entries); status != kDone) return status;
    if (!request.Json) {
        for (std::size_t i = 0; i < entries.size(); ++i)
            std::printf("%3zu  %s\n", i, FountainText(FountainOf(entries[i])).c_str());
        return kDone;
    }
    JsonWriter json(stdout);
    json.BeginArray();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        json.BeginObject();
        json.Key("index");
        json.Number(static_cast<std::int64_t>(i));
        WriteJson(json, FountainOf(entries[i]));
        json.EndObject();
    }
    json.EndArray();
    return kDone;
}

int Print(const Request& request, const Fountain& fountain) {
    if (!request.Json) {
        std::printf("%s\n", FountainText(fountain).c_str());
        return kDone;
    }
    JsonWriter json(stdout);
    json.BeginObject();
    WriteJson(json, fountain);
    json.EndObject();
    return kDone;
}

int Write(const Request& request, const Fountain& fountain) {
    if (IsRecordOutput(request.Output)) {
        if (WriteFountainFile(request.Output, fountain) != 0) return kDone;
        return Fail(WriteFault(request.Output));
    }
    // As large as a control shows its strip, where the user does not say.
    const int width = request.Width != 0 ? request.Width : 181;
    const int height = request.Height != 0 ? request.Height : 30;
    const platform::OwnedBlock picture(RenderFountainImage(fountain, width, height));
    if (!picture) return Fail("there is not enough memory for the picture");
    return WritePicture(picture.Get(), request.Output);
}

int ShowFountain(const Request& request) {
    if (!request.Output.empty()) {
        const int status = CheckRecordOutput(request.Output);
        if (status != kDone) return status;
    }
    Fountain fountain;
    const int status = ReadFountain(request, request.Operands.front(), &fountain);
    if (status != kDone) return status;
    return request.Output.empty() ? Print(request, fountain) : Write(request, fountain);
}

int RemoveEntry(const Request& request) {
    FountainLibraryEntries entries;
    std::size_t index = 0;
    if (const int status = ReadLibrary(request, &entries); status != kDone) return status;
    const int status = FindEntry(entries, request.Operands.front(), &index);
    if (status != kDone) return status;
    for (std::size_t i = index + 1; i < entries.size(); ++i)
        entries[i - 1] = entries[i];
    const std::string path = LibraryOf(request);
    if (WriteFountainLibrary(path, entries.data(), entries.size() - 1) != 0) return kDone;
    return Fail(WriteFault(path));
}

// Adds the fountains, after all of them have been read.
int AddFountains(const Request& request) {
    std::vector<Fountain> fountains(request.AddedItems.size());
    for (std::size_t i = 0; i < fountains.size(); ++i) {
        const int status = ReadFountain(request, request.AddedItems[i], &fountains[i]);
        if (status != kDone) return status;
    }
    FountainLibraryEntries entries;
    if (const int status = ReadLibrary(request, &entries); status != kDone) return status;
    if (IsUsersLibrary(request)) {
        if (const int status = PrepareUserFolders(); status != kDone) return status;
    }
    const std::string path = LibraryOf(request);
    std::size_t number = entries.size();
    for (const Fountain& fountain : fountains) {
        if (AppendToFountainLibrary(path, fountain) == 0) return Fail(WriteFault(path));
        if (!request.Quiet) std::printf("%zu\n", number++);
    }
    return kDone;
}

}  // namespace

int RunFountain(const Request& request) {
    const bool has_operand = !request.Operands.empty();
    if (!request.AddedItems.empty()) {
        if (has_operand || request.Removes || !request.Output.empty()) {
            return Fail("--add goes with --library alone", kWrongUse);
        }
        return AddFountains(request);
    }
    if (!has_operand) {
        if (request.Removes || !request.Output.empty()) {
            return Fail("fountain needs the number of an entry, or a fountain", kWrongUse);
        }
        return ListLibrary(request);
    }
    if (!request.Removes) return ShowFountain(request);
    if (!IsEntryNumber(request.Operands.front())) {
        return Fail("--remove needs the number of an entry", kWrongUse);
    }
    // What is taken out is written first, so that nothing is lost when it cannot be.
    if (!request.Output.empty()) {
        if (const int status = ShowFountain(request); status != kDone) return status;
    }
    return RemoveEntry(request);
}

}  // namespace tess
