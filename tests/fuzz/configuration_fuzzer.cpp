// Any text as a configuration: it is read into the variables, which stay whole, and what
// they are then is written and read back as it is.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "shell/configuration.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

using namespace tess;

std::size_t BytesOf(const ConfigKey& key) {
    return key.IsText() ? kBoundTextBytes : sizeof(std::uint32_t);
}

/// The readable values of all rows, back to back; what stands behind a text's end means
/// nothing.
std::vector<char> Values() {
    std::vector<char> values;
    for (const ConfigKey& key : ConfigurationTable()) {
        if (!key.IsReadable()) continue;
        const auto* bytes = static_cast<const char*>(key.Value);
        const std::size_t count =
            key.IsText() ? strnlen(bytes, kBoundTextBytes) : sizeof(std::uint32_t);
        values.insert(values.end(), bytes, bytes + count);
        values.push_back('\0');
    }
    return values;
}

/// All rows' bytes as they are when the program starts, put back before each input.
void StartAnew() {
    static std::vector<std::vector<char>> start;
    const bool is_first = start.empty();
    std::size_t row = 0;
    for (const ConfigKey& key : ConfigurationTable()) {
        auto* bytes = static_cast<char*>(key.Value);
        if (is_first) start.emplace_back(bytes, bytes + BytesOf(key));
        std::memcpy(bytes, start[row++].data(), BytesOf(key));
    }
}

void ExpectWhole() {
    for (const ConfigKey& key : ConfigurationTable()) {
        if (key.IsText())
            fuzz::Expect(std::memchr(key.Value, 0, kBoundTextBytes) != nullptr, "a text ends");
    }
}

/// A line of more than 260 bytes is read in pieces, so a text that is too long for the
/// line of its name does not read back.
bool HasLongLine() {
    constexpr std::size_t kLongest = 256;
    const auto table = ConfigurationTable();
    return std::any_of(table.begin(), table.end(), [](const ConfigKey& key) {
        return key.IsText() && std::strlen(key.Name) + std::strlen(" = ") +
                                       std::strlen(static_cast<const char*>(key.Value)) >
                                   kLongest;
    });
}

void ExpectReadBack() {
    const std::vector<char> before = Values();
    char* text = nullptr;
    std::size_t length = 0;
    std::FILE* stream = open_memstream(&text, &length);
    PrintConfiguration(stream);
    std::fclose(stream);
    StartAnew();
    ReadConfigurationText({text, length});
    std::free(text);
    fuzz::Expect(Values() == before, "what is written reads back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    // Writing 304 lines and reading them takes longer than most inputs.
    constexpr std::size_t kSeldom = 16;
    StartAnew();
    ReadConfigurationText({reinterpret_cast<const char*>(bytes), count});
    ExpectWhole();
    if (count % kSeldom == 0 && !HasLongLine()) ExpectReadBack();
    return 0;
}
