#include "platform/letter_case.h"

#include <algorithm>

namespace platform {

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

bool IsSameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

}  // namespace platform
