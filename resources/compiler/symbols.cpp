#include "resources/compiler/symbols.h"

namespace resource_compiler {

namespace {

struct Symbol {
    std::string_view name;
    std::uint32_t value;
};

constexpr Symbol kSymbols[] = {
    {"WS_POPUP", 0x80000000},
    {"WS_CHILD", 0x40000000},
    {"WS_VISIBLE", 0x10000000},
    {"WS_DISABLED", 0x08000000},
    {"WS_CLIPSIBLINGS", 0x04000000},
    {"WS_CLIPCHILDREN", 0x02000000},
    {"WS_CAPTION", 0x00C00000},
    {"WS_BORDER", 0x00800000},
    {"WS_DLGFRAME", 0x00400000},
    {"WS_VSCROLL", 0x00200000},
    {"WS_HSCROLL", 0x00100000},
    {"WS_SYSMENU", 0x00080000},
    {"WS_GROUP", 0x00020000},
    {"WS_TABSTOP", 0x00010000},
    {"WS_EX_CLIENTEDGE", 0x00000200},
    {"WS_EX_STATICEDGE", 0x00020000},
    {"WS_EX_CONTROLPARENT", 0x00010000},
    {"DS_3DLOOK", 0x0004},
    {"DS_SETFONT", 0x0040},
    {"DS_MODALFRAME", 0x0080},
    {"DS_CONTROL", 0x0400},
    {"DS_CENTER", 0x0800},
    {"BS_PUSHBUTTON", 0},
    {"BS_DEFPUSHBUTTON", 1},
    {"BS_CHECKBOX", 2},
    {"BS_AUTOCHECKBOX", 3},
    {"BS_GROUPBOX", 7},
    {"BS_AUTORADIOBUTTON", 9},
    {"BS_OWNERDRAW", 11},
    {"BS_NOTIFY", 0x4000},
    {"ES_LEFT", 0},
    {"ES_CENTER", 1},
    {"ES_RIGHT", 2},
    {"ES_MULTILINE", 4},
    {"ES_AUTOHSCROLL", 0x0080},
    {"ES_READONLY", 0x0800},
    {"ES_NUMBER", 0x2000},
    {"SS_LEFT", 0},
    {"SS_CENTER", 1},
    {"SS_RIGHT", 2},
    {"SS_NOPREFIX", 0x0080},
    {"SS_NOTIFY", 0x0100},
    {"SS_CENTERIMAGE", 0x0200},
    {"SS_SUNKEN", 0x1000},
    {"CBS_DROPDOWN", 2},
    {"CBS_DROPDOWNLIST", 3},
    {"CBS_OWNERDRAWFIXED", 0x0010},
    {"CBS_AUTOHSCROLL", 0x0040},
    {"CBS_HASSTRINGS", 0x0200},
    {"LBS_NOTIFY", 1},
    {"LBS_SORT", 0x0002},
    {"LBS_OWNERDRAWFIXED", 0x0010},
    {"LBS_HASSTRINGS", 0x0040},
    {"LBS_MULTICOLUMN", 0x0200},
    {"LBS_NOINTEGRALHEIGHT", 0x0100},
    {"LBS_WANTKEYBOARDINPUT", 0x0400},
    {"LBS_DISABLENOSCROLL", 0x1000},
    {"TBS_AUTOTICKS", 0x0001},
    {"UDS_SETBUDDYINT", 0x0002},
    {"UDS_ALIGNRIGHT", 0x0004},
    {"UDS_AUTOBUDDY", 0x0010},
    {"UDS_ARROWKEYS", 0x0020},
    {"UDS_NOTHOUSANDS", 0x0080},
    {"IDOK", 1},
    {"IDCANCEL", 2},
    {"IDYES", 6},
    {"IDNO", 7},
};

}  // namespace

std::optional<std::uint32_t> SymbolValue(std::string_view name) {
    for (const Symbol& symbol : kSymbols) {
        if (symbol.name == name) return symbol.value;
    }
    return std::nullopt;
}

}  // namespace resource_compiler
