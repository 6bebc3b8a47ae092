#include "programs/tilehost/system_dialogs.h"

#include <commdlg.h>
#include <shellapi.h>
#include <shlwapi.h>

#include "host/help_address.h"

namespace tess {
namespace {

constexpr char kPluginFilter[] = "Plug-ins (*.dll)\0*.dll\0All files\0*.*\0";
constexpr char kGifFilter[] = "GIF files (*.gif)\0*.gif\0All files\0*.*\0";
constexpr char kImageFilter[] =
    "Pictures\0*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.tif;*.tiff\0All files\0*.*\0";

OPENFILENAMEA FileQuestion(HWND owner, const char* filter, char* path, std::size_t room) {
    OPENFILENAMEA question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = filter;
    question.lpstrFile = path;
    question.nMaxFile = static_cast<DWORD>(room);
    question.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return question;
}

bool AskForFile(HWND owner, const char* filter, char* path, std::size_t room) {
    OPENFILENAMEA question = FileQuestion(owner, filter, path, room);
    question.Flags |= OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    return GetOpenFileNameA(&question) != FALSE;
}

// The program that shows web pages; empty when the system names none.
std::string Browser() {
    char path[MAX_PATH] = "";
    DWORD room = MAX_PATH;
    const HRESULT found =
        AssocQueryStringA(ASSOCF_NONE, ASSOCSTR_EXECUTABLE, "http", "open", path, &room);
    return SUCCEEDED(found) ? path : "";
}

// Started with the address as its argument: opening a page as a document, as the
// system would, loses the place in it.
bool ShowInBrowser(const std::string& address) {
    const std::string browser = Browser();
    if (browser.empty()) return false;
    std::string command = "\"" + browser + "\" \"" + address + "\"";
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace

std::string AskForPlugin(HWND owner) {
    char path[MAX_PATH] = "";
    return AskForFile(owner, kPluginFilter, path, sizeof path) ? path : "";
}

std::string AskWhereToSaveGif(HWND owner) {
    char path[MAX_PATH] = "tile.gif";
    OPENFILENAMEA question = FileQuestion(owner, kGifFilter, path, sizeof path);
    question.lpstrDefExt = "gif";
    question.Flags |= OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST;
    return GetSaveFileNameA(&question) ? path : "";
}

bool AskForImage(HWND owner, char* path, std::size_t room) {
    return AskForFile(owner, kImageFilter, path, room);
}

bool AskForColor(HWND owner, ColorWord* color) {
    static COLORREF own_colors[16] = {};  // the user's own, kept from one question to the next
    CHOOSECOLORA question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.rgbResult = *color;
    question.lpCustColors = own_colors;
    question.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    if (!::ChooseColorA(&question)) return false;
    *color = question.rgbResult;
    return true;
}

bool OpenHelp(const std::string& folder, const char* target) {
    const HelpPlace place = FindHelp(folder, target);
    if (GetFileAttributesA(place.Path.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
    if (ShowInBrowser(HelpAddress(place))) return true;
    constexpr INT_PTR kLastError = 32;  // of ShellExecute
    return reinterpret_cast<INT_PTR>(ShellExecuteA(nullptr, "open", place.Path.c_str(), nullptr,
                                                   nullptr, SW_SHOWNORMAL)) > kLastError;
}

}  // namespace tess
