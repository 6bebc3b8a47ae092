#include "resources/compiler/table_writer.h"

#include <fstream>
#include <iterator>
#include <ostream>

namespace resource_compiler {

namespace {

constexpr std::size_t kBitmapFileHeader = 14;  // bytes, left out of a BITMAP resource

/// A C++ string literal. Octal escapes end after three digits, so what follows
/// one is never taken for a part of it.
std::string Literal(const std::string& text) {
    std::string literal = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte > 126 || c == '"' || c == '\\') {
            literal += '\\';
            for (const int shift : {6, 3, 0}) {
                literal += static_cast<char>('0' + ((byte >> shift) & 7));
            }
        } else {
            literal += c;
        }
    }
    return literal + '"';
}

void WriteControls(const std::vector<Control>& controls, std::size_t number, std::ostream& output) {
    if (controls.empty()) return;
    output << "constexpr TemplateControl kControls" << number << "[] = {\n";
    for (const Control& control : controls) {
        output << "    {" << Literal(control.window_class) << ", " << Literal(control.text) << ", "
               << control.id << ", " << control.style << "u, " << control.x << ", " << control.y
               << ", " << control.width << ", " << control.height << "},\n";
    }
    output << "};\n";
}

bool WriteData(const DataFile& data, std::size_t number, const std::string& path,
               std::ostream& output, std::string* error) {
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)),
                            std::istreambuf_iterator<char>());
    const std::size_t start = data.is_bitmap ? kBitmapFileHeader : 0;
    if (bytes.size() <= start) {
        *error = path + ": cannot be read, or is empty";
        return false;
    }
    output << "alignas(8) constexpr unsigned char kData" << number << "[] = {";
    for (std::size_t i = start; i < bytes.size(); ++i) {
        output << ((i - start) % 24 == 0 ? "\n    " : "")
               << static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) << ",";
    }
    output << "\n};\n";
    return true;
}

template <class Rows, class WriteRow>
void WriteTable(const char* type, const char* name, const Rows& rows, std::ostream& output,
                WriteRow write_row) {
    if (rows.empty()) {
        output << "constexpr std::span<const " << type << "> " << name << ";\n";
        return;
    }
    output << "constexpr " << type << " " << name << "[] = {\n";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        output << "    {";
        write_row(rows[i], i);
        output << "},\n";
    }
    output << "};\n";
}

}  // namespace

bool WriteTables(ResourceScript* script, const std::string& folder, std::ostream& output,
                 std::string* error) {
    output << "// Made from the resource scripts by the build; changes here are lost.\n"
              "#include \"platform/resource_tables.h\"\n\n"
              "namespace platform {\n\nnamespace {\n\n";
    for (std::size_t i = 0; i < script->dialogs.size(); ++i) {
        WriteControls(script->dialogs[i].controls, i, output);
    }
    for (std::size_t i = 0; i < script->data.size(); ++i) {
        const std::string path = folder + script->data[i].path;
        if (!WriteData(script->data[i], i, path, output, error)) return false;
        script->files.push_back(path);
    }
    for (const DataFile& cursor : script->cursors)
        script->files.push_back(folder + cursor.path);
    WriteTable("DialogTemplate", "kDialogs", script->dialogs, output,
               [&](const Dialog& dialog, std::size_t i) {
                   output << dialog.key.id << ", " << Literal(dialog.key.name) << ", "
                          << Literal(dialog.caption) << ", " << dialog.width << ", "
                          << dialog.height << ", ";
                   if (dialog.controls.empty()) {
                       output << "{}";
                   } else {
                       output << "kControls" << i;
                   }
               });
    WriteTable("StringResource", "kStrings", script->strings, output,
               [&](const StringEntry& entry, std::size_t) {
                   output << entry.id << ", " << Literal(entry.text);
               });
    WriteTable("DataResource", "kData", script->data, output,
               [&](const DataFile& data, std::size_t i) {
                   output << data.key.id << ", " << Literal(data.key.name) << ", kData" << i;
               });
    output << "\n}  // namespace\n\n"
              "constinit const ResourceTables kResourceTables = {kDialogs, kStrings, kData};\n\n"
              "}  // namespace platform\n";
    return true;
}

}  // namespace resource_compiler
