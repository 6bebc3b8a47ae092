// Texts that a damaged file may hold, for readers that must bear them all.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tess::test {

/// Calls `use` with every text that `whole` can be cut off to, at each `step`th byte.
void ForEachCutOff(const std::string& whole, std::size_t step,
                   const std::function<void(const std::string&)>& use);

/// Calls `use` with `count` texts made of `whole` by a fixed seed: bytes changed,
/// removed, doubled, lines exchanged, numbers put out of range.
void ForEachDamaged(const std::string& whole, std::uint32_t seed, int count,
                    const std::function<void(const std::string&)>& use);

/// Calls `use` with `count` texts of any bytes at all.
void ForEachRandom(std::uint32_t seed, int count,
                   const std::function<void(const std::string&)>& use);

}  // namespace tess::test
