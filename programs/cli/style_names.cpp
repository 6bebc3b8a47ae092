#include "programs/cli/style_names.h"

#include <cstring>

#include "programs/cli/values.h"

namespace tess {
namespace {

// The first parameter of the style that `matches` takes.
template <class Predicate>
ParameterPlace FindInStyle(const StyleEntry& style, Predicate matches) {
    for (StyleParameter& parameter : style.Parameters) {
        if (matches(parameter)) return {&style, &parameter};
    }
    return {nullptr, nullptr};
}

template <class Predicate>
ParameterPlace FindInAll(Predicate matches) {
    for (const StyleEntry* style : StyleTable) {
        const ParameterPlace place = FindInStyle(*style, matches);
        if (place.Parameter != nullptr) return place;
    }
    return {nullptr, nullptr};
}

}  // namespace

int FindStyle(std::string_view text) {
    if (const auto index = ParseNumber(text)) {
        return *index >= 0 && *index < kStyleCount ? static_cast<int>(*index) : -1;
    }
    const std::string name = PlainName(text);
    for (int i = 0; i < kStyleCount; ++i) {
        if (PlainName(StyleTable[i]->Name) == name) return i;
    }
    return -1;
}

std::string UnknownStyleText(const std::string& text) {
    return "unknown style '" + text + "'; 'tessellomatics styles' lists the styles";
}

std::string StyleName(const StyleEntry& style) {
    return DashedName(style.Name);
}

std::string ParameterName(const StyleEntry& style, const StyleParameter& parameter) {
    if (parameter.Key == nullptr) return KindName(parameter.Kind);
    return DashedName(parameter.Key + std::strlen(style.ConfigurationName));
}

const char* KindName(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::Spinner:
            return "spinner";
        case ParameterKind::ColorButton:
            return "color";
        case ParameterKind::CheckBox:
            return "check";
        case ParameterKind::ChoiceList:
            return "choice";
        case ParameterKind::ShadowDirection:
            return "shadow-direction";
        case ParameterKind::Scroll4:
            return "scroll-4";
        case ParameterKind::Scroll2:
            return "scroll-2";
        case ParameterKind::ScrollHv:
            return "scroll-hv";
        case ParameterKind::Fountain:
            return "fountain";
        case ParameterKind::Matrix:
            return "matrix";
    }
    return "";
}

ParameterPlace FindParameter(const StyleEntry& style, std::string_view name) {
    const std::string plain = PlainName(name);
    return FindInStyle(style, [&](const StyleParameter& parameter) {
        return PlainName(ParameterName(style, parameter)) == plain;
    });
}

ParameterPlace FindParameterByKey(std::string_view key) {
    return FindInAll([&](const StyleParameter& parameter) {
        return parameter.Key != nullptr && key == parameter.Key;
    });
}

ParameterPlace FindParameterByControl(int id) {
    return FindInAll([&](const StyleParameter& parameter) { return parameter.ControlId == id; });
}

}  // namespace tess
