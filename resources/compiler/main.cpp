// resource_compiler SCRIPT.rc OUTPUT.cpp DEPENDENCIES.d
//
// Makes C++ tables of a resource script, for platform/resources.h. It runs on
// the machine that builds, whatever the machine that the build is for.

#include <cstdio>
#include <fstream>

#include "resources/compiler/resource_script.h"
#include "resources/compiler/table_writer.h"

namespace {

/// A make rule that names every file read, so that a change of one of them runs
/// the compiler again.
void WriteDependencies(const char* path, const char* output,
                       const resource_compiler::ResourceScript& script) {
    std::ofstream stream(path);
    stream << output << ":";
    for (const std::string& file : script.files)
        stream << " \\\n " << file;
    stream << "\n";
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "usage: resource_compiler SCRIPT.rc OUTPUT.cpp DEPENDENCIES.d\n");
        return 2;
    }
    const std::string script_path = arguments[1];
    const std::string folder = script_path.substr(0, script_path.find_last_of('/') + 1);
    resource_compiler::ResourceScript script;
    std::string error;
    if (!resource_compiler::ReadResourceScript(script_path, &script, &error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    std::ofstream output(arguments[2]);
    const bool is_written = resource_compiler::WriteTables(&script, folder, output, &error);
    output.close();
    if (!is_written || !output) {
        std::fprintf(stderr, "%s\n", is_written ? "output cannot be written" : error.c_str());
        std::remove(arguments[2]);
        return 1;
    }
    WriteDependencies(arguments[3], arguments[2], script);
    return 0;
}
