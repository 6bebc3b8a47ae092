#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "resources/compiler/resource_script.h"
#include "resources/compiler/table_writer.h"
#include "tests/support/scratch_folder.h"

namespace {

using namespace resource_compiler;

class ResourceCompiler : public testing::Test {
protected:
    void Write(const char* name, const std::string& text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }
    /// Reads `text` as a script. Returns "" or the error, without the folder.
    std::string Read(const std::string& text) {
        Write("a.rc", text);
        std::string error;
        script_ = {};
        if (ReadResourceScript((folder_ / "a.rc").string(), &script_, &error)) return "";
        return Shortened(error);
    }
    std::string WriteAll() {
        std::ostringstream output;
        std::string error;
        is_written_ = WriteTables(&script_, folder_.string() + "/", output, &error);
        return is_written_ ? output.str() : Shortened(error);
    }
    /// Reads a dialog with one control and returns it.
    Control OneControl(const std::string& statement) {
        const std::string error = Read("1 DIALOG 0, 0, 9, 9\nBEGIN\n" + statement + "\nEND\n");
        EXPECT_EQ(error, "");
        if (!error.empty() || script_.dialogs[0].controls.empty()) return {};
        return script_.dialogs[0].controls[0];
    }

    ResourceScript script_;
    bool is_written_ = false;

private:
    std::string Shortened(std::string error) const {
        const std::string prefix = folder_.string() + "/";
        for (std::size_t at = error.find(prefix); at != std::string::npos;
             at = error.find(prefix)) {
            error.erase(at, prefix.size());
        }
        return error;
    }
    const tess::test::ScratchFolder scratch_;
    const std::filesystem::path folder_ = scratch_.Path();
};

TEST_F(ResourceCompiler, ReadsADialogWithItsBoxAndCaption) {
    ASSERT_EQ(Read("1000 DIALOG 1, 2, 394, 292\n"
                   "STYLE DS_MODALFRAME | WS_POPUP\nEXSTYLE WS_EX_CLIENTEDGE\n"
                   "CAPTION \"Title\"\nFONT 8, \"MS Shell Dlg\"\n"
                   "BEGIN\n  LTEXT \"Label:\", 26, 256, 10, 25, 8\nEND\n"),
              "");
    ASSERT_EQ(script_.dialogs.size(), 1u);
    const Dialog& dialog = script_.dialogs[0];
    EXPECT_EQ(dialog.key.id, 1000);
    EXPECT_EQ(dialog.caption, "Title");
    EXPECT_EQ(dialog.width, 394);
    EXPECT_EQ(dialog.height, 292);
    ASSERT_EQ(dialog.controls.size(), 1u);
    EXPECT_EQ(dialog.controls[0].text, "Label:");
    EXPECT_EQ(dialog.controls[0].id, 26);
    EXPECT_EQ(dialog.controls[0].x, 256);
    EXPECT_EQ(dialog.controls[0].height, 8);
}

TEST_F(ResourceCompiler, NamedDialogExWithBracesIsReadToo) {
    ASSERT_EQ(Read("box DIALOGEX 0, 0, 9, 9\nFONT 8, \"Face\", 400, 0, 1\n{\n}\n"), "");
    EXPECT_EQ(script_.dialogs[0].key.name, "BOX");
    EXPECT_EQ(script_.dialogs[0].key.id, 0);
}

TEST_F(ResourceCompiler, ControlsHaveTheClassesAndStylesOfTheirKind) {
    const struct {
        const char* statement;
        const char* window_class;
        std::uint32_t style;
    } cases[] = {
        {"LTEXT \"\", 5, 0, 0, 1, 1", "STATIC", 0x50020000},
        {"CTEXT \"\", 5, 0, 0, 1, 1", "STATIC", 0x50020001},
        {"RTEXT \"\", 5, 0, 0, 1, 1, SS_NOPREFIX", "STATIC", 0x50000082},
        {"PUSHBUTTON \"\", 5, 0, 0, 1, 1", "BUTTON", 0x50010000},
        {"DEFPUSHBUTTON \"\", 5, 0, 0, 1, 1, BS_NOTIFY", "BUTTON", 0x50014001},
        {"AUTOCHECKBOX \"\", 5, 0, 0, 1, 1", "BUTTON", 0x50010003},
        {"GROUPBOX \"\", 5, 0, 0, 1, 1", "BUTTON", 0x50000007},
        {"EDITTEXT 5, 0, 0, 1, 1, ES_NUMBER", "EDIT", 0x50812000},
        {"COMBOBOX 5, 0, 0, 1, 1", "COMBOBOX", 0x50010001},
        {"COMBOBOX 5, 0, 0, 1, 1, CBS_DROPDOWNLIST", "COMBOBOX", 0x50000003},
        {"LISTBOX 5, 0, 0, 1, 1, NOT WS_BORDER | WS_VSCROLL", "LISTBOX", 0x50200001},
        {"CONTROL \"\", 5, \"button\", BS_OWNERDRAW, 0, 0, 1, 1", "BUTTON", 0x5000000B},
        {"CONTROL \"\", 5, \"msctls_updown32\", 0x12 | NOT WS_VISIBLE, 0, 0, 1, 1",
         "msctls_updown32", 0x40000012},
    };
    for (const auto& expected : cases) {
        const Control control = OneControl(expected.statement);
        EXPECT_EQ(control.window_class, expected.window_class) << expected.statement;
        EXPECT_EQ(control.style, expected.style) << expected.statement;
        EXPECT_EQ(control.id, 5) << expected.statement;
    }
}

TEST_F(ResourceCompiler, ExtendedStyleBehindAControlIsPassedOver) {
    EXPECT_EQ(OneControl("EDITTEXT 5, 0, 0, 1, 1, ES_NUMBER, WS_EX_CLIENTEDGE").style, 0x50812000u);
}

TEST_F(ResourceCompiler, NumbersMayBeNegativeHexadecimalOrNamed) {
    EXPECT_EQ(OneControl("LTEXT \"\", -1, -3, 0x10, 1, 1").x, -3);
    EXPECT_EQ(OneControl("LTEXT \"\", -1, -3, 0x10, 1, 1").y, 16);
    EXPECT_EQ(OneControl("PUSHBUTTON \"\", IDCANCEL, 0, 0, 1, 1").id, 2);
}

TEST_F(ResourceCompiler, StringsKeepEscapesAndQuotes) {
    ASSERT_EQ(Read("STRINGTABLE\nBEGIN\n 7, \"a\\n\\t\\\\b \"\"c\"\"\"\n 8 \"\"\nEND\n"), "");
    ASSERT_EQ(script_.strings.size(), 2u);
    EXPECT_EQ(script_.strings[0].id, 7);
    EXPECT_EQ(script_.strings[0].text, "a\n\t\\b \"c\"");
    EXPECT_EQ(script_.strings[1].text, "");
}

TEST_F(ResourceCompiler, CommentsAndSystemHeadersArePassedOver) {
    EXPECT_EQ(Read("#include <windows.h>\n// one\n/* two\nlines */ STRINGTABLE { 1 \"x\" } // end"),
              "");
    EXPECT_EQ(script_.strings.size(), 1u);
}

TEST_F(ResourceCompiler, IncludedScriptStandsInItsPlace) {
    Write("b.rc", "STRINGTABLE { 2 \"two\" }\n");
    ASSERT_EQ(Read("STRINGTABLE { 1 \"one\" }\n#include \"b.rc\"\nSTRINGTABLE { 3 \"three\" }\n"),
              "");
    ASSERT_EQ(script_.strings.size(), 3u);
    EXPECT_EQ(script_.strings[1].text, "two");
    EXPECT_EQ(script_.files.size(), 2u);
}

TEST_F(ResourceCompiler, DataAreKnownByNumberOrName) {
    ASSERT_EQ(
        Read("9001 RCDATA \"logo.bmp\"\n\"(100+170)\" RCDATA \"f.bin\"\n7012 BITMAP \"b.bmp\"\n"),
        "");
    ASSERT_EQ(script_.data.size(), 3u);
    EXPECT_EQ(script_.data[0].key.id, 9001);
    EXPECT_EQ(script_.data[1].key.name, "(100+170)");
    EXPECT_FALSE(script_.data[1].is_bitmap);
    EXPECT_TRUE(script_.data[2].is_bitmap);
}

TEST_F(ResourceCompiler, CursorIsAFileThatNoTableHolds) {
    Write("logo.bmp", "logo");
    ASSERT_EQ(Read("9001 RCDATA \"logo.bmp\"\n9001 CURSOR \"drag.cur\"\n"), "");
    ASSERT_EQ(script_.cursors.size(), 1u);
    EXPECT_EQ(script_.data.size(), 1u);
    const std::string tables = WriteAll();
    EXPECT_TRUE(is_written_) << tables;
    EXPECT_EQ(tables.find("kData1"), std::string::npos);
    EXPECT_NE(script_.files.back().find("drag.cur"), std::string::npos);
}

TEST_F(ResourceCompiler, FileNamesMayStandWithoutQuotes) {
    EXPECT_EQ(Read("\"(1+2)\" RCDATA folder/a_1.bin\n\"(3+4)\" RCDATA b.bin\n"), "");
    ASSERT_EQ(script_.data.size(), 2u);
    EXPECT_EQ(script_.data[0].key.name, "(1+2)");
    EXPECT_EQ(script_.data[0].path, "folder/a_1.bin");
    EXPECT_EQ(script_.data[1].path, "b.bin");
}

TEST_F(ResourceCompiler, ErrorsTellFileAndLine) {
    const struct {
        const char* script;
        const char* error;
    } cases[] = {
        {"\n\n5 ICON \"a.ico\"\n", "a.rc:3: unknown statement 'ICON'"},
        {"1 DIALOG 0, 0, 9, 9\nMENU 5\nBEGIN\nEND\n",
         "a.rc:2: unknown statement 'MENU' in a dialog"},
        {"1 DIALOG 0, 0, 9, 9\nBEGIN\nSLIDER 5\nEND\n", "a.rc:3: unknown control 'SLIDER'"},
        {"1 DIALOG 0, 0, 9, 9\nSTYLE WS_ODD\nBEGIN\nEND\n", "a.rc:2: unknown style 'WS_ODD'"},
        {"1 DIALOG 0, 0, 9\nBEGIN\nEND\n", "a.rc:2: expected ',', found 'BEGIN'"},
        {"1 DIALOG 0, 0, 9, 9\nBEGIN\nLTEXT 5, 0, 0, 1, 1\nEND\n",
         "a.rc:3: expected a text in quotes, found '5'"},
        {"1 DIALOG 0, 0, 9, 9\nBEGIN\n", "a.rc:3: unknown control 'end of file'"},
        {"STRINGTABLE\n 1 \"x\"\n", "a.rc:2: expected BEGIN, found '1'"},
        {"STRINGTABLE {\n 1 \"x\n\" }", "a.rc:2: string without end"},
        {"STRINGTABLE {\n 1 \"\\q\" }", "a.rc:2: unknown escape '\\q'"},
        {"STRINGTABLE {\n 1 \"x\"\n 1 \"y\" }", "a.rc:3: string 1 twice"},
        {"1 DIALOG 0,0,9,9 {}\n1 DIALOG 0,0,9,9 {}", "a.rc:2: dialog 1 twice"},
        {"1 RCDATA \"a\"\n1 RCDATA \"b\"", "a.rc:2: data 1 twice"},
        {"12ab RCDATA \"a\"", "a.rc:1: '12ab' is no number"},
        {"\n/* open", "a.rc:2: comment without end"},
        {"\n#define X 1\n", "a.rc:2: unknown directive '#define'"},
        {"\n#include b.rc\n", "a.rc:2: #include needs a name in quotes"},
        {"\n#include \"none.rc\"\n", "a.rc:2: none.rc: cannot be read"},
        {"\n?", "a.rc:2: unexpected character '?'"},
        {"{", "a.rc:1: expected a resource, found '{'"},
    };
    for (const auto& expected : cases)
        EXPECT_EQ(Read(expected.script), expected.error);
}

TEST_F(ResourceCompiler, ErrorInAnIncludedScriptTellsThatScript) {
    Write("b.rc", "\nodd\n");
    EXPECT_EQ(Read("#include \"b.rc\"\n"), "a.rc:2: unknown statement 'end of file'");
    Write("b.rc", "\n\"open\n");
    EXPECT_EQ(Read("#include \"b.rc\"\n"), "b.rc:2: string without end");
}

TEST_F(ResourceCompiler, ScriptThatIncludesItselfIsAnError) {
    EXPECT_EQ(Read("#include \"a.rc\"\n"), "a.rc:1: includes nest too deep");
}

TEST_F(ResourceCompiler, TablesHoldTextsWithTheirSpecialCharacters) {
    ASSERT_EQ(Read("STRINGTABLE { 7 \"a\\n\"\"1\" }"), "");
    EXPECT_NE(WriteAll().find("{7, \"a\\012\\0421\"}"), std::string::npos);
}

TEST_F(ResourceCompiler, BitmapIsWrittenWithoutItsFileHeader) {
    Write("b.bmp", std::string("BM0123456789ab") + "\x28\xFF");
    Write("d.bin", "AB");
    ASSERT_EQ(Read("1 BITMAP \"b.bmp\"\n2 RCDATA \"d.bin\""), "");
    const std::string tables = WriteAll();
    EXPECT_NE(tables.find("kData0[] = {\n    40,255,\n}"), std::string::npos);
    EXPECT_NE(tables.find("kData1[] = {\n    65,66,\n}"), std::string::npos);
    EXPECT_EQ(script_.files.size(), 3u);
}

TEST_F(ResourceCompiler, MissingOrEmptyDataFileIsAnError) {
    ASSERT_EQ(Read("1 RCDATA \"none.bin\""), "");
    EXPECT_EQ(WriteAll(), "none.bin: cannot be read, or is empty");
    EXPECT_FALSE(is_written_);
}

}  // namespace
