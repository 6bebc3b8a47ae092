// How values and names are written on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tess {

/// A whole number: decimal with or without a sign, or 0x and hexadecimal digits.
/// One that 64 bits do not hold is held at the nearest, so that it is out of every range.
[[nodiscard]] std::optional<std::int64_t> ParseNumber(std::string_view text);
/// A colour word: "#RRGGBB", or the word itself as a number.
[[nodiscard]] std::optional<std::uint32_t> ReadColor(std::string_view text);
/// "yes", "on", "true", "1", or their opposites.
[[nodiscard]] std::optional<bool> ReadSwitch(std::string_view text);

/// Lower case, letters and digits only: names that agree in this are one name.
[[nodiscard]] std::string PlainName(std::string_view text);
/// The words of a name in lower case with dashes between: "fill-color-1" for
/// "FillColor1", "skip-intro" for "Skip Intro".
[[nodiscard]] std::string DashedName(std::string_view text);
/// The text in quotes as a message shows it: in one line, and cut where it is long.
[[nodiscard]] std::string ShownText(std::string_view text);
/// "#RRGGBB" of a colour word.
[[nodiscard]] std::string ColorText(std::uint32_t color);

}  // namespace tess
