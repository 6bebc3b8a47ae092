// The command that prints the configuration.
#include <cstdio>

#include "programs/cli/commands.h"
#include "programs/cli/session.h"
#include "shell/configuration.h"

namespace tess {

int RunConfig(const Request& request) {
    constexpr int kDialogsOwnChoice = -1;
    Session session;
    session.Work = [](platform::WindowHandle) {
        PrintConfiguration(stdout);
        return kDone;
    };
    return RunSession(request, Wish::Work, kDialogsOwnChoice, &session);
}

}  // namespace tess
