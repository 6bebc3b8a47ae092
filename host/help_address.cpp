#include "host/help_address.h"

#include <cstdio>

namespace tess {
namespace {

// What an address may hold as it is (RFC 3986: unreserved characters, the separator
// and the colon of a drive).
bool IsPlain(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') ||
           std::string_view("-._~/:").find(letter) != std::string_view::npos;
}

}  // namespace

HelpPlace FindHelp(std::string_view folder, std::string_view target) {
    const std::size_t mark = target.find('#');
    HelpPlace place;
    place.Path = folder;
    place.Path += target.substr(0, mark);
    if (mark != std::string_view::npos) place.Anchor = target.substr(mark + 1);
    return place;
}

std::string HelpAddress(const HelpPlace& place) {
    std::string address = place.Path.starts_with('/') ? "file://" : "file:///";
    for (const char letter : place.Path) {
        const char plain = letter == '\\' ? '/' : letter;
        if (IsPlain(plain)) {
            address += plain;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(letter));
            address += code;
        }
    }
    if (!place.Anchor.empty()) address += "#" + place.Anchor;
    return address;
}

}  // namespace tess
