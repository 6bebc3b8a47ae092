// Compares runtime/random.h with the C runtime of Windows, msvcrt.dll: a million
// draws for each of several seeds. The exit status is 1 when any draw differs.
#include <windows.h>
#include <bit>
#include <cstdio>

#include "runtime/random.h"

int main() {
    constexpr unsigned kSeeds[] = {0,     1,     2,          42,         9999,
                                   32767, 65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    constexpr int kDraws = 1000000;

    const HMODULE library = LoadLibraryA("msvcrt.dll");
    if (library == nullptr) {
        std::printf("msvcrt.dll could not be loaded\n");
        return 1;
    }
    const auto system_srand =
        std::bit_cast<void(__cdecl*)(unsigned)>(GetProcAddress(library, "srand"));
    const auto system_rand = std::bit_cast<int(__cdecl*)()>(GetProcAddress(library, "rand"));
    if (system_srand == nullptr || system_rand == nullptr) {
        std::printf("msvcrt.dll has no srand or rand\n");
        return 1;
    }

    // Before any seed the sequence is that of seed 1.
    long different = runtime::rand() == system_rand() ? 0 : 1;
    long compared = 1;
    for (const unsigned seed : kSeeds) {
        system_srand(seed);
        runtime::srand(seed);
        for (int i = 0; i < kDraws; i++) {
            if (runtime::rand() != system_rand()) different++;
            compared++;
        }
    }
    std::printf("%ld draws compared, %ld differ\n", compared, different);
    return different == 0 ? 0 : 1;
}
