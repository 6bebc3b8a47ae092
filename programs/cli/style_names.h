// How styles and their parameters are called on the command line.
#pragma once

#include <string>
#include <string_view>

#include "shell/style_table.h"

namespace tess {

/// The index of the style called `text`, by name or index, or -1.
[[nodiscard]] int FindStyle(std::string_view text);

/// What is said of a name that FindStyle finds nothing for.
[[nodiscard]] std::string UnknownStyleText(const std::string& text);

/// "phasers-on-stun".
[[nodiscard]] std::string StyleName(const StyleEntry& style);

/// "fill-color-1" for the parameter with the key "Style000FillColor1"; what kind of
/// thing it is for one without a key.
[[nodiscard]] std::string ParameterName(const StyleEntry& style, const StyleParameter& parameter);

/// "spinner", "color", "check", "choice" and so on.
[[nodiscard]] const char* KindName(ParameterKind kind);

/// A parameter and the style it belongs to; both null when there is none.
struct ParameterPlace {
    const StyleEntry* Style;
    StyleParameter* Parameter;
};

/// The parameter called `name` of one style.
[[nodiscard]] ParameterPlace FindParameter(const StyleEntry& style, std::string_view name);
/// The parameter with the configuration key `key` of any style.
[[nodiscard]] ParameterPlace FindParameterByKey(std::string_view key);
/// The parameter that control `id` holds, of any style.
[[nodiscard]] ParameterPlace FindParameterByControl(int id);

}  // namespace tess
