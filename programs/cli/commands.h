// What each command does. All return the exit status, after telling the user on
// standard error what went wrong.
#pragma once

#include "programs/cli/request.h"

namespace tess {

int RunBuild(const Request& request);
int RunSample(const Request& request);
int RunPreview(const Request& request);
int RunEncode(const Request& request);
int RunStyles(const Request& request);
int RunParams(const Request& request);
int RunConfig(const Request& request);
int RunDocument(const Request& request);
int RunGallery(const Request& request);
int RunFountain(const Request& request);
int RunTiles(const Request& request);
int RunMaterial(const Request& request);
int RunTexture(const Request& request);
int RunCheck(const Request& request);

}  // namespace tess
