// The subset of the resource script language that the project uses:
//
//   script    = { [language of the system: #include <...>] | STRINGTABLE strings
//               | name ( DIALOG | DIALOGEX ) dialog
//               | name ( RCDATA | BITMAP | CURSOR ) file }
//   file      = "text" | word          (a word where a name in quotes follows:
//                                       windres joins texts behind one another)
//   name      = number | word | "text"        (text without regard to case)
//   strings   = begin { number [,] "text" } end
//   dialog    = x, y, width, height
//               { STYLE styles | EXSTYLE styles | CAPTION "text"
//               | FONT size, "face" {, number} }
//               begin { control } end
//   control   = kind "text", id, box [, styles [, styles]]     (LTEXT, PUSHBUTTON, ...)
//             | kind id, box [, styles [, styles]]             (EDITTEXT, COMBOBOX, LISTBOX)
//             | CONTROL "text", id, "class", styles, box [, styles]
//   styles    = [NOT] value { | [NOT] value }
//   begin     = BEGIN | {        end = END | }
//
// A control starts with the styles that windres gives its kind, of which some are
// for a control without styles of its own; styles are added, and taken away by NOT. Files are named
// relative to the script that the program was given.

#include "resources/compiler/resource_script.h"

#include <algorithm>
#include <cctype>

#include "resources/compiler/symbols.h"
#include "resources/compiler/tokens.h"

namespace resource_compiler {

namespace {

struct ControlKind {
    const char* statement;
    const char* window_class;
    std::uint32_t style;          ///< that every control of the kind has
    std::uint32_t default_style;  ///< added where the statement tells no styles
    bool has_text;
};

constexpr ControlKind kControlKinds[] = {
    {"LTEXT", "STATIC", 0, kGroup, true},
    {"CTEXT", "STATIC", 1, kGroup, true},
    {"RTEXT", "STATIC", 2, kGroup, true},
    {"PUSHBUTTON", "BUTTON", 0 | kTabStop, 0, true},
    {"DEFPUSHBUTTON", "BUTTON", 1 | kTabStop, 0, true},
    {"CHECKBOX", "BUTTON", 2 | kTabStop, 0, true},
    {"AUTOCHECKBOX", "BUTTON", 3 | kTabStop, 0, true},
    {"AUTORADIOBUTTON", "BUTTON", 9, kTabStop, true},
    {"GROUPBOX", "BUTTON", 7, 0, true},
    {"EDITTEXT", "EDIT", kBorder | kTabStop, 0, false},
    {"COMBOBOX", "COMBOBOX", 0, 1 | kTabStop, false},
    {"LISTBOX", "LISTBOX", 1 | kBorder, 0, false},
};

std::string UpperCase(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

/// The system's own classes are written in capitals, others as they are.
std::string ClassName(const std::string& name) {
    std::string upper = UpperCase(name);
    for (const char* known : {"BUTTON", "EDIT", "STATIC", "COMBOBOX", "LISTBOX", "SCROLLBAR"}) {
        if (upper == known) return upper;
    }
    return name;
}

class Parser {
public:
    Parser(std::vector<Token> tokens, ResourceScript* script, std::string* error)
        : tokens_(std::move(tokens)), script_(script), error_(error) {}

    bool ReadScript() {
        while (Next().kind != TokenKind::End) {
            if (TakeWord("STRINGTABLE")) {
                if (!ReadStrings()) return false;
            } else if (!ReadNamedResource()) {
                return false;
            }
        }
        return true;
    }

private:
    const Token& Next() const { return tokens_[at_]; }

    bool Fail(const Token& token, const std::string& message) {
        *error_ = ErrorAt(token, message);
        return false;
    }
    bool FailExpected(const std::string& what) {
        return Fail(Next(), "expected " + what + ", found '" + Next().text + "'");
    }

    bool TakeWord(const char* word) {
        if (Next().kind != TokenKind::Word || Next().text != word) return false;
        ++at_;
        return true;
    }
    bool TakeSign(char sign) {
        if (Next().kind != TokenKind::Sign || Next().text[0] != sign) return false;
        ++at_;
        return true;
    }
    bool TakeBegin() { return TakeWord("BEGIN") || TakeSign('{') || FailExpected("BEGIN"); }
    bool TakeEnd() { return TakeWord("END") || TakeSign('}'); }
    bool ReadComma() { return TakeSign(',') || FailExpected("','"); }

    bool ReadText(std::string* text) {
        if (Next().kind != TokenKind::String) return FailExpected("a text in quotes");
        *text = tokens_[at_++].text;
        return true;
    }

    bool ReadNumber(int* number) {
        const bool is_negative = TakeSign('-');
        long value = Next().value;
        if (Next().kind == TokenKind::Word && SymbolValue(Next().text).has_value()) {
            value = *SymbolValue(Next().text);
        } else if (Next().kind != TokenKind::Number) {
            return FailExpected("a number");
        }
        ++at_;
        *number = static_cast<int>(is_negative ? -value : value);
        return true;
    }

    bool ReadStyles(std::uint32_t* styles) {
        do {
            const bool is_taken_away = TakeWord("NOT");
            std::uint32_t value = static_cast<std::uint32_t>(Next().value);
            if (Next().kind == TokenKind::Word) {
                const std::optional<std::uint32_t> symbol = SymbolValue(Next().text);
                if (!symbol) return Fail(Next(), "unknown style '" + Next().text + "'");
                value = *symbol;
            } else if (Next().kind != TokenKind::Number) {
                return FailExpected("a style");
            }
            ++at_;
            *styles = is_taken_away ? *styles & ~value : *styles | value;
        } while (TakeSign('|'));
        return true;
    }

    bool ReadBox(int* x, int* y, int* width, int* height) {
        return ReadNumber(x) && ReadComma() && ReadNumber(y) && ReadComma() && ReadNumber(width) &&
               ReadComma() && ReadNumber(height);
    }

    bool ReadStrings() {
        if (!TakeBegin()) return false;
        while (!TakeEnd()) {
            const Token& start = Next();
            StringEntry entry;
            if (!ReadNumber(&entry.id)) return false;
            TakeSign(',');
            if (!ReadText(&entry.text)) return false;
            for (const StringEntry& other : script_->strings) {
                if (other.id == entry.id) return Fail(start, "string " + start.text + " twice");
            }
            script_->strings.push_back(entry);
        }
        return true;
    }

    bool ReadNamedResource() {
        const Token& start = Next();
        if (start.kind == TokenKind::Sign) return FailExpected("a resource");
        ++at_;
        ResourceName key;
        if (start.kind == TokenKind::Number) {
            key.id = static_cast<int>(start.value);
        } else {
            key.name = UpperCase(start.text);
        }
        if (TakeWord("DIALOG") || TakeWord("DIALOGEX")) {
            for (const Dialog& other : script_->dialogs) {
                if (other.key == key) return Fail(start, "dialog " + start.text + " twice");
            }
            return ReadDialog(key);
        }
        const bool is_bitmap = TakeWord("BITMAP");
        const bool is_cursor = !is_bitmap && TakeWord("CURSOR");
        if (!is_bitmap && !is_cursor && !TakeWord("RCDATA")) {
            return Fail(Next(), "unknown statement '" + Next().text + "'");
        }
        std::vector<DataFile>& files = is_cursor ? script_->cursors : script_->data;
        for (const DataFile& other : files) {
            if (other.key == key) return Fail(start, "data " + start.text + " twice");
        }
        if (Next().kind != TokenKind::String && Next().kind != TokenKind::Word) {
            return FailExpected("the name of a file");
        }
        files.push_back({key, tokens_[at_++].text, is_bitmap});
        return true;
    }

    bool ReadDialog(const ResourceName& key) {
        Dialog dialog;
        dialog.key = key;
        int x = 0, y = 0;
        if (!ReadBox(&x, &y, &dialog.width, &dialog.height)) return false;
        while (Next().text != "BEGIN" && Next().text != "{") {
            if (!ReadDialogAttribute(&dialog)) return false;
        }
        if (!TakeBegin()) return false;
        while (!TakeEnd()) {
            Control control;
            if (!ReadControl(&control)) return false;
            dialog.controls.push_back(control);
        }
        script_->dialogs.push_back(dialog);
        return true;
    }

    bool ReadDialogAttribute(Dialog* dialog) {
        std::uint32_t unused = 0;
        if (TakeWord("STYLE") || TakeWord("EXSTYLE")) return ReadStyles(&unused);
        if (TakeWord("CAPTION")) return ReadText(&dialog->caption);
        if (TakeWord("FONT")) {
            int size = 0;
            std::string face;
            if (!ReadNumber(&size) || !ReadComma() || !ReadText(&face)) return false;
            while (TakeSign(',')) {
                if (!ReadNumber(&size)) return false;
            }
            return true;
        }
        return Fail(Next(), "unknown statement '" + Next().text + "' in a dialog");
    }

    bool ReadControl(Control* control) {
        const bool is_general = TakeWord("CONTROL");
        const ControlKind* kind = nullptr;
        if (!is_general) {
            for (const ControlKind& candidate : kControlKinds) {
                if (TakeWord(candidate.statement)) kind = &candidate;
                if (kind != nullptr) break;
            }
            if (kind == nullptr) return Fail(Next(), "unknown control '" + Next().text + "'");
        }
        control->style = kChildVisible | (is_general ? 0 : kind->style);
        if (is_general || kind->has_text) {
            if (!ReadText(&control->text) || !ReadComma()) return false;
        }
        if (!ReadNumber(&control->id) || !ReadComma()) return false;
        if (is_general) {
            std::string name;
            if (!ReadText(&name) || !ReadComma() || !ReadStyles(&control->style) || !ReadComma()) {
                return false;
            }
            control->window_class = ClassName(name);
        } else {
            control->window_class = kind->window_class;
        }
        if (!ReadBox(&control->x, &control->y, &control->width, &control->height)) return false;
        if (!is_general && !TakeSign(',')) {
            control->style |= kind->default_style;
            return true;
        }
        if (!is_general && !ReadStyles(&control->style)) return false;
        std::uint32_t extended_style = 0;
        return !TakeSign(',') || ReadStyles(&extended_style);
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    ResourceScript* script_;
    std::string* error_;
};

}  // namespace

bool ReadResourceScript(const std::string& path, ResourceScript* script, std::string* error) {
    std::vector<Token> tokens;
    if (!ReadTokens(path, &tokens, &script->files, error)) return false;
    return Parser(std::move(tokens), script, error).ReadScript();
}

}  // namespace resource_compiler
