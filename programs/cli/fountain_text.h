// How fountains are written on the command line: as colours from left to right,
// "#000000,64:#FF0000,#FFFFFF", or as the hexadecimal digits of a document.
#pragma once

#include <string>
#include <string_view>

#include "fills/fountain.h"

namespace tess {

/// What the two forms are, for a message and for the help.
inline constexpr char kFountainForms[] =
    "colors such as '#000000,64:#FF0000,#FFFFFF' or 1170 hexadecimal digits";

/// Reads the colours over count, start, end and markers of `fountain`: the first and the
/// last are the two ends, those between are markers, each with its position, 1 to 255,
/// before a colon; one without a position stands where it would among evenly spread ones.
/// Returns "" or what is wrong, as the end of a sentence that begins with the text.
[[nodiscard]] std::string ReadFountainColors(std::string_view text, Fountain* fountain);

/// Reads the digits of a whole record. Returns the same.
[[nodiscard]] std::string ReadFountainDigits(std::string_view text, Fountain* fountain);

/// Reads either form. Colours are those of a fountain without flags.
[[nodiscard]] std::string ReadFountainText(std::string_view text, Fountain* fountain);

/// The colours, in the form that is read.
[[nodiscard]] std::string FountainText(const Fountain& fountain);

}  // namespace tess
