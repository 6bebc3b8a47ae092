// Where the help is: the plug-in names a page and a place in it, and the page stands
// beside the plug-in.
#pragma once

#include <string>
#include <string_view>

namespace tess {

struct HelpPlace {
    std::string Path;    ///< of the page
    std::string Anchor;  ///< the place in it, may be empty
};

/// Where `target` ("PAGE" or "PAGE#ANCHOR") is. `folder` ends with a separator.
[[nodiscard]] HelpPlace FindHelp(std::string_view folder, std::string_view target);

/// The address of the place for a browser: "file:///C:/A%20folder/PAGE#ANCHOR".
/// Both kinds of separator are taken.
[[nodiscard]] std::string HelpAddress(const HelpPlace& place);

}  // namespace tess
