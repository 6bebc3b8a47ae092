#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/ending_signals.h"
#include "programs/cli/command_line.h"
#include "programs/cli/command_table.h"
#include "programs/cli/help_text.h"
#include "programs/cli/session.h"

namespace {

int Run(const std::vector<std::string_view>& arguments) {
    tess::Request request;
    const std::string error = tess::ParseCommandLine(arguments, &request);
    if (!error.empty()) {
        tess::TellUser(error);
        return tess::kWrongUse;
    }
    if (request.Help) {
        const std::string help =
            request.Command != nullptr ? tess::CommandHelp(*request.Command) : tess::ProgramHelp();
        std::fputs(help.c_str(), stdout);
        return tess::kDone;
    }
    if (request.Version) {
        std::printf("%s %s\n", tess::kProgramCommand, TESSELLOMATICS_VERSION);
        return tess::kDone;
    }
    return request.Command->Run(request);
}

}  // namespace

int main(int count, char** words) {
    // A file that grows beyond the limit is then a failed write, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    platform::RemoveUnfinishedOnSignals();
    const std::vector<std::string_view> arguments(words + (count > 0 ? 1 : 0), words + count);
    const int status = Run(arguments);
    // A write that has failed before leaves nothing to be flushed.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        tess::TellUser("standard output cannot be written");
        return tess::kFailed;
    }
    return status;
}
