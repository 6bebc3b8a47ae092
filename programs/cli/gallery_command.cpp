// The gallery: every style at its start values, and a page that shows them. The
// core is one thread with one generator, so styles are built side by side in
// processes of their own.
#include <cstdio>
#include <filesystem>
#include <numeric>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/files.h"
#include "platform/portable/ending_signals.h"
#include "programs/cli/commands.h"
#include "programs/cli/session.h"
#include "programs/cli/style_names.h"

namespace tess {
namespace {

std::vector<int> AllStyles() {
    std::vector<int> all(kStyleCount);
    std::iota(all.begin(), all.end(), 0);
    return all;
}

std::string FileOf(int style) {
    return StyleName(*StyleTable[style]) + ".gif";
}

// Builds one style in this process. Returns the exit status.
int BuildStyleFile(const Request& request, int style) {
    Request build = request;
    build.Quiet = true;
    build.StartsAnew = true;
    build.Operands = {StyleTable[style]->Name};
    build.Output = (std::filesystem::path(request.Output) / FileOf(style)).string();
    return RunBuild(build);
}

// Waits for one of the processes that build. Returns whether it has succeeded.
bool WaitForOne() {
    int status = 0;
    return platform::WaitForHelper(&status) > 0 && WIFEXITED(status) &&
           WEXITSTATUS(status) == kDone;
}

// Builds all styles, as many at a time as there are cores. Returns whether each has
// succeeded; the processes have told the user of what failed.
bool BuildSideBySide(const Request& request, const std::vector<int>& styles) {
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1u);
    unsigned running = 0;
    bool succeeded = true;
    std::fflush(nullptr);  // or each process would write what is buffered again
    for (const int style : styles) {
        if (running == cores) {
            succeeded &= WaitForOne();
            --running;
        }
        const pid_t process = platform::ForkHelper();
        if (process == 0) {
            const int status = BuildStyleFile(request, style);
            std::fflush(nullptr);
            _exit(status);
        }
        if (process > 0) {
            ++running;
        } else {
            succeeded &= BuildStyleFile(request, style) == kDone;
        }
    }
    for (; running > 0; --running)
        succeeded &= WaitForOne();
    return succeeded;
}

void WriteStyle(std::FILE* page, int style) {
    const std::string name = StyleName(*StyleTable[style]);
    const std::string file = FileOf(style);
    std::fprintf(page,
                 "<section>\n<h2>%s</h2>\n"
                 "<div style=\"background-image: url('%s')\"></div>\n"
                 "<code>tessellomatics build %s -o %s</code>\n</section>\n",
                 StyleTable[style]->Name, file.c_str(), name.c_str(), file.c_str());
}

int WritePage(const std::string& path, const std::vector<int>& styles) {
    platform::NewFile file(path, platform::FileMode::Text);
    if (!file) return 0;
    std::fputs(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<title>Tessellomatics #1: all styles</title>\n<style>\n"
        "body { font-family: sans-serif; margin: 2em; background: #eee; }\n"
        "main { display: grid; gap: 2em; "
        "grid-template-columns: repeat(auto-fill, minmax(26em, 1fr)); }\n"
        "section { background: #fff; padding: 1em; }\n"
        "h2 { margin: 0 0 .5em; }\n"
        "div { height: 20em; margin-bottom: .5em; }\n"
        "</style>\n</head>\n<body>\n<h1>All styles at their start values</h1>\n<main>\n",
        file.Stream());
    for (const int style : styles)
        WriteStyle(file.Stream(), style);
    std::fputs("</main>\n</body>\n</html>\n", file.Stream());
    return file.Commit();
}

}  // namespace

int RunGallery(const Request& request) {
    if (request.Output.empty()) {
        TellUser("an output is needed: -o DIR");
        return kWrongUse;
    }
    if (request.Output == "-") {
        TellUser("standard output cannot be a folder; name one");
        return kWrongUse;
    }
    std::error_code error;
    std::filesystem::create_directories(request.Output, error);
    if (error) {
        TellUser(request.Output + ": the folder cannot be made");
        return kFailed;
    }
    const std::vector<int> styles = AllStyles();
    if (!BuildSideBySide(request, styles)) return kFailed;
    const std::string page = (std::filesystem::path(request.Output) / "index.html").string();
    if (WritePage(page, styles) == 0) {
        TellUser(page + ": cannot be written");
        return kFailed;
    }
    std::printf("%s\n", page.c_str());
    return kDone;
}

}  // namespace tess
