// What there is to complete, for every shell alike.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/files.h"
#include "programs/cli/completions.h"
#include "programs/cli/group_files.h"
#include "programs/cli/material_values.h"
#include "programs/cli/settings.h"
#include "programs/cli/style_names.h"
#include "shell/control_contract.h"

namespace tess {
namespace {

/// What `takes` has in single quotes.
std::vector<std::string> QuotedWords(std::string_view takes) {
    std::vector<std::string> words;
    for (std::size_t open = takes.find('\''); open != std::string_view::npos;
         open = takes.find('\'')) {
        takes.remove_prefix(open + 1);
        const std::size_t close = takes.find('\'');
        words.emplace_back(takes.substr(0, close));
        takes.remove_prefix(close == std::string_view::npos ? takes.size() : close + 1);
    }
    return words;
}

std::vector<std::string> StyleNames() {
    std::vector<std::string> names;
    for (const StyleEntry* style : StyleTable)
        names.push_back(StyleName(*style));
    return names;
}

std::vector<std::string> MaterialKeys() {
    std::vector<std::string> keys;
    for (const MaterialValue& row : MaterialValues())
        keys.emplace_back(row.Name);
    for (const char* key : {kTileGroupKey, kFountainKey})
        keys.emplace_back(key);
    return keys;
}

/// The names of all styles' fountains, each once.
std::vector<std::string> FountainKeys() {
    std::vector<std::string> keys;
    for (const StyleEntry* style : StyleTable) {
        for (const StyleParameter& parameter : style->Parameters) {
            if (parameter.Kind != ParameterKind::Fountain) continue;
            std::string name = ParameterName(*style, parameter);
            if (std::find(keys.begin(), keys.end(), name) == keys.end())
                keys.push_back(std::move(name));
        }
    }
    return keys;
}

}  // namespace

std::string GroupFolder() {
    return std::string(platform::kMakerFolder) + "/" + platform::kPluginFolder;
}

std::vector<std::string> GeneralKeys() {
    std::vector<std::string> keys;
    for (const int id : {kDelayEdit, kDitherBox, kSupercompressBox, kMaskBackgroundBox,
                         kCustomPaletteBox, kPaletteList, kTrueColorBox, kCommentBox, kEffectList})
        keys.emplace_back(GeneralSettingName(id));
    for (const char* variable : {"dither-brightness", "dither-contrast", "fast-remap"})
        keys.emplace_back(variable);
    return keys;
}

std::vector<std::string> KeysOfStyle(int style) {
    std::vector<std::string> keys;
    for (const StyleParameter& parameter : StyleTable[style]->Parameters)
        keys.push_back(ParameterName(*StyleTable[style], parameter));
    return keys;
}

Completed ValuesOf(const OptionRow& option) {
    if (option.Value == nullptr) return {CompletedWith::Nothing, {}};
    const std::string_view value = option.Value;
    if (value == "DIR") return {CompletedWith::Folders, {}};
    if (value == "KEY=FILE") return {CompletedWith::KeysOfFiles, FountainKeys()};
    if (value == "KEY=VALUE") {
        if ((option.Commands & kMaterialBit) != 0) return {CompletedWith::Keys, MaterialKeys()};
        return {CompletedWith::StyleKeys, GeneralKeys()};
    }
    for (const char* path : {"FILE", "TILE", "FOUNTAIN", "PICTURE"}) {
        if (value == path) return {CompletedWith::Files, {}};
    }
    std::vector<std::string> words = QuotedWords(option.Takes);
    return {words.empty() ? CompletedWith::Nothing : CompletedWith::Words, std::move(words)};
}

Completed OperandsOf(const CommandRow& command) {
    const std::string_view operands = command.Operands;
    if (operands.find("STYLE") != std::string_view::npos)
        return {CompletedWith::Words, StyleNames()};
    if (operands.find("GROUP") != std::string_view::npos) {
        return {CompletedWith::Groups,
                {kProvidedGroup},
                command.Bit == kTilesBit ? kTileGroupExtension : kTextureGroupExtension};
    }
    return {operands.empty() ? CompletedWith::Nothing : CompletedWith::Files, {}};
}

}  // namespace tess
