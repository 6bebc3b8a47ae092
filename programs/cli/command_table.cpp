#include "programs/cli/command_table.h"

#include "programs/cli/commands.h"
#include "programs/cli/values.h"

namespace tess {
namespace {

constexpr unsigned kSettingCommands =
    kBuildBit | kSampleBit | kPreviewBit | kConfigBit | kDocumentBit;

bool TakeText(std::string& target, std::string_view value) {
    target = value;
    return !value.empty();
}

bool TakeNumber(int& target, std::string_view value, int least, int most) {
    const auto number = ParseNumber(value);
    if (!number || *number < least || *number > most) return false;
    target = static_cast<int>(*number);
    return true;
}

bool ApplyOutput(Request& request, std::string_view value) {
    return TakeText(request.Output, value);
}

bool ApplyFrames(Request& request, std::string_view value) {
    return TakeText(request.FramesFolder, value);
}

bool ApplyFolder(Request& request, std::string_view value) {
    return TakeText(request.PreviewFolder, value);
}

bool ApplyNoOpen(Request& request, std::string_view) {
    request.OpensBrowser = false;
    return true;
}

bool ApplySet(Request& request, std::string_view value) {
    const std::size_t equals = value.find('=');
    if (equals == std::string_view::npos || equals == 0) return false;
    request.Settings.push_back(
        {std::string(value.substr(0, equals)), std::string(value.substr(equals + 1))});
    return true;
}

bool TakeFile(Request& request, std::string_view path, SettingKind kind) {
    request.Settings.push_back({"", std::string(path), kind});
    return !path.empty();
}

bool ApplyDocument(Request& request, std::string_view value) {
    return TakeFile(request, value, SettingKind::Document);
}

bool ApplyConfig(Request& request, std::string_view value) {
    return TakeFile(request, value, SettingKind::Configuration);
}

bool ApplyTile(Request& request, std::string_view value) {
    return TakeFile(request, value, SettingKind::Tile);
}

bool ApplyFountain(Request& request, std::string_view value) {
    const std::size_t equals = value.find('=');
    if (equals == std::string_view::npos || equals == 0 || equals + 1 == value.size()) return false;
    request.Settings.push_back({std::string(value.substr(0, equals)),
                                std::string(value.substr(equals + 1)), SettingKind::FountainFile});
    return true;
}

bool ApplyLibrary(Request& request, std::string_view value) {
    return TakeText(request.Library, value);
}

bool ApplyAdd(Request& request, std::string_view value) {
    request.AddedItems.emplace_back(value);
    return !value.empty();
}

bool ApplyRemove(Request& request, std::string_view) {
    request.Removes = true;
    return true;
}

bool ApplySave(Request& request, std::string_view) {
    request.Saves = true;
    return true;
}

bool ApplyDefaults(Request& request, std::string_view) {
    request.StartsAnew = true;
    return true;
}

bool ApplyHost(Request& request, std::string_view value) {
    if (value == "hundredths") {
        request.HostUnit = DelayUnit::Hundredths;
    } else if (value == "milliseconds") {
        request.HostUnit = DelayUnit::Milliseconds;
    } else {
        return false;
    }
    return true;
}

bool ApplyHostTrueColor(Request& request, std::string_view value) {
    request.HostTrueColor = ReadSwitch(value);
    return request.HostTrueColor.has_value();
}

bool ApplyColors(Request& request, std::string_view value) {
    return TakeNumber(request.Colors, value, 2, 256);
}

bool ApplyPalette(Request& request, std::string_view value) {
    return TakeNumber(request.Palette, value, 0, 8);
}

bool ApplyDither(Request& request, std::string_view) {
    request.Dither = true;
    return true;
}

bool ApplySupercompress(Request& request, std::string_view) {
    request.Supercompress = true;
    return true;
}

bool ApplyDelay(Request& request, std::string_view value) {
    return TakeNumber(request.Delay, value, 1, 65535);
}

bool ApplySize(Request& request, std::string_view value) {
    constexpr int kLargest = 4096;
    const std::size_t cross = value.find('x');
    return cross != std::string_view::npos &&
           TakeNumber(request.Width, value.substr(0, cross), 1, kLargest) &&
           TakeNumber(request.Height, value.substr(cross + 1), 1, kLargest);
}

bool ApplyJson(Request& request, std::string_view) {
    request.Json = true;
    return true;
}

bool ApplyQuiet(Request& request, std::string_view) {
    request.Quiet = true;
    return true;
}

bool ApplyHelp(Request& request, std::string_view) {
    request.Help = true;
    return true;
}

bool ApplyVersion(Request& request, std::string_view) {
    request.Version = true;
    return true;
}

constexpr CommandRow kCommands[] = {
    {"build", kBuildBit, "[STYLE]", 0, 1, "Make an animation and write it to a file.",
     "Runs Build with the given settings and writes what the plug-in hands over. STYLE is a name "
     "or an index as 'tessellomatics styles' lists them; without it the style is the one that the "
     "dialog opens with.",
     RunBuild},
    {"sample", kSampleBit, "[STYLE]", 0, 1, "Write the sample picture that the dialog shows.",
     "Writes the one picture that the dialog shows while settings are changed, as .png or .bmp.",
     RunSample},
    {"preview", kPreviewBit, "[STYLE]", 0, 1, "Show the animation as the background of a page.",
     "Runs Preview: writes preview.gif and preview.html and opens the page in the browser.",
     RunPreview},
    {"encode", kEncodeBit, "FRAME...", 1, -1, "Make an animation of your own pictures.",
     "Takes pictures (.png, .bmp, .ppm), all of one size, as the frames of an animation, through "
     "quantizing, remapping and writing exactly as the frames of a Build go.",
     RunEncode},
    {"styles", kStylesBit, "", 0, 0, "List the styles.", "Lists the styles by index and name.",
     RunStyles},
    {"params", kParamsBit, "STYLE", 1, 1, "List the parameters of a style.",
     "Lists for each parameter of the style its name and key (either goes with --set), its control "
     "id, kind, range or choices, start value and label.",
     RunParams},
    {"config", kConfigBit, "", 0, 0, "Print the configuration, with what is set besides.",
     "Prints the text of the configuration file: the values that were saved, or those of a new "
     "installation, and over them what is set here.",
     RunConfig},
    {"document", kDocumentBit, "[FILE]", 0, 1, "Write a .qv1 document, or check and show one.",
     "With -o, writes the state of the dialog as a document, after what is set here. With FILE, "
     "checks that document and shows what it holds; a line that a dialog would pass over or "
     "change counts as damage.",
     RunDocument},
    {"gallery", kGalleryBit, "", 0, 0, "Make every style, and a page that shows them.",
     "Builds every style at its start values into a folder, as many at a time as there are cores, "
     "and writes an index page there that shows each as a page background, with its name and its "
     "command.",
     RunGallery},
    {"tiles", kTilesBit, "[GROUP [INDEX]]", 0, 2, "List picture tiles, show one, change a group.",
     "Lists the groups of tiles, or the tiles of a group; with INDEX tells of that tile, with -o "
     "writes it as a picture, with --remove takes it out of a group of your own; --add adds a "
     "picture to one. GROUP is the name of a group of yours or of one that came with the program, "
     "or the path of a .mtx file: what holds a / or names a file is a path.",
     RunTiles},
    {"material", kMaterialBit, "[FILE]", 0, 1, "Show, render or write a material (.mtrl).",
     "Takes a material out of FILE, or a plain one, and sets over it what --set says. Without -o "
     "it shows what the material holds; with -o it renders it as .png or .bmp, or writes it as a "
     ".mtrl file.",
     RunMaterial},
    {"texture", kTextureBit, "[GROUP [ITEM]]", 0, 2, "List textures, or render one.",
     "Lists the textures of a group, or tells whether one of them joins itself, by its kind and as "
     "it is measured; with -o writes its picture. GROUP is a group of yours, the one that came "
     "with the program, 'vorbelx1', which is also the default, or the path of a .fft file. ITEM is "
     "the name of a texture or its index.",
     RunTexture},
    {"check", kCheckBit, "FILE", 1, 1, "Measure how smoothly a GIF joins itself.",
     "Compares the step from the right edge to the left, from the bottom to the top and from the "
     "last frame to the first with the steps inside, but for the steps beside the join of edges, "
     "in any GIF. A join that is half as rough again as the roughest of these, and more than one "
     "level of 255 rougher, is a seam, and then the exit status is 1.",
     RunCheck},
    {"fountain", kFountainBit, "[FOUNTAIN]", 0, 1, "List, show, add and take out fountains.",
     "Without FOUNTAIN lists the fountains of a library by number and colors. FOUNTAIN is such a "
     "number, the path of a control's file, colors such as '#000000,64:#FF0000,#FFFFFF' (the ends, "
     "and between them each with its position, 1 to 255, or evenly spread without), or the 1170 "
     "hexadecimal digits of a document. It is shown as colors, or with -o as a picture, .png or "
     ".bmp; with -o and .mtrl it is written as a control's file.",
     RunFountain},
};

constexpr OptionRow kOptions[] = {
    {"output", 'o', "FILE", kBuildBit, "Write the animation to FILE.",
     "The ending decides the format: .gif; .webp, without loss; .png, animated; a name that ends "
     "in / or .bmp, or has no ending, is a folder of .bmp frames as --frames writes it. '-' is "
     "standard output, and a GIF. A GIF holds no 24-bit frames, so true-color starts as off for "
     "one. An existing file is replaced once the new one is whole.",
     ApplyOutput, "the path of a file"},
    {"output", 'o', "FILE", kEncodeBit, "Write the animation to FILE.",
     "The ending decides the format: .gif; .webp, without loss; .png, animated; a name that ends "
     "in / or .bmp, or has no ending, is a folder of .bmp frames as --frames writes it. '-' is "
     "standard output, and a GIF. An existing file is replaced once the new one is whole.",
     ApplyOutput, "the path of a file"},
    {"output", 'o', "FILE", kSampleBit | kTextureBit | kTilesBit, "Write the picture to FILE.",
     "The ending decides the format: .png or .bmp. '-' is standard output, and a PNG. An existing "
     "file is replaced once the new one is whole.",
     ApplyOutput, "the path of a file"},
    {"output", 'o', "FILE", kFountainBit | kMaterialBit, "Write a picture or a .mtrl to FILE.",
     "The ending decides: .png or .bmp is a picture, .mtrl a control's file. '-' is standard "
     "output, and a PNG. An existing file is replaced once the new one is whole.",
     ApplyOutput, "the path of a file"},
    {"output", 'o', "FILE", kDocumentBit, "Write the document to FILE, a .qv1.",
     "An existing file is replaced once the new one is whole.", ApplyOutput, "the path of a file"},
    {"output", 'o', "DIR", kGalleryBit, "Make the gallery in the folder DIR.",
     "The folder is made where there is none, with those above it.", ApplyOutput,
     "the path of a folder"},
    {"frames", 0, "DIR", kBuildBit | kEncodeBit, "Write each frame to the folder DIR besides.",
     "Frames stand as DIR/frame_00000.bmp and on, exactly as the plug-in hands them over, and what "
     "the pictures do not tell in DIR/animation.json: width, height, depth, palette, comment, and "
     "for each frame its delay and transparent index.",
     ApplyFrames, "the path of a folder"},
    {"set", 0, "KEY=VALUE", kSettingCommands, "Set one value; may be given many times.",
     "Values are set in the order given. KEY is a parameter of the style ('seed'; see "
     "'tessellomatics params'), a configuration key ('Style000Seed'), a control id ('112'), or one "
     "of delay, dither, supercompress, mask-background, custom-palette, palette, true-color, "
     "comment, effect, dither-brightness, dither-contrast, fast-remap. VALUE is a number, decimal "
     "or with 0x; for a color also #RRGGBB; for a check box also yes or no; for a list the text "
     "of a choice, or its index where the texts are words; for a fountain colors as "
     "'tessellomatics fountain' takes them, or the digits of a document; for a tile its index in "
     "the group, or for its control id the digits. A value out of range is an error. A delay is 1 "
     "to 25 hundredths of a second, or 1 to 250 milliseconds with --host milliseconds.",
     ApplySet, "KEY=VALUE", true},
    {"set", 0, "KEY=VALUE", kMaterialBit, "Set one value; may be given many times.",
     "Values are set in the order given. KEY is one of those that the command shows. VALUE is as "
     "it is shown, or a number; for a color #RRGGBB; for tile-group the name of a group or the "
     "path of a .mtx file; for fountain colors as 'tessellomatics fountain' takes them, or the "
     "digits of a document.",
     ApplySet, "KEY=VALUE", true},
    {"document", 0, "FILE", kSettingCommands, "Set all that a .qv1 document holds.",
     "Counts in its place among the --set. STYLE, where it is given, goes before the document's.",
     ApplyDocument, "the path of a file", true},
    {"config", 0, "FILE", kSettingCommands, "Set all that a configuration file holds.",
     "Counts in its place among the --set. STYLE, where it is given, goes before the file's.",
     ApplyConfig, "the path of a file", true},
    {"tile", 0, "TILE", kSettingCommands & ~unsigned{kDocumentBit}, "Choose the tile of Mural.",
     "GROUP:INDEX is a tile of a group, as 'tessellomatics tiles' lists them; counts in its place "
     "among the --set. A picture (.png, .bmp, .ppm) is taken as it is.",
     ApplyTile, "GROUP:INDEX or the path of a picture", true},
    {"tile", 0, "GROUP:INDEX", kDocumentBit, "Choose the tile of Mural.",
     "A tile of a group, as 'tessellomatics tiles' lists them; counts in its place among the "
     "--set. A document names tiles by their group, so it cannot hold a picture.",
     ApplyTile, "GROUP:INDEX", true},
    {"fountain", 0, "KEY=FILE", kSettingCommands, "Read a fountain's colors from a file.",
     "KEY is as for --set, FILE a control's file (Fountain00270.mtrl). Counts in its place among "
     "the --set.",
     ApplyFountain, "KEY=FILE", true},
    {"save", 0, nullptr, kSettingCommands, "Save the values to the user's configuration.",
     "The next run starts from them, unless --defaults is given. Without it nothing is saved.",
     ApplySave, nullptr},
    {"defaults", 0, nullptr, kSettingCommands, "Start from the values of a new installation.",
     "Without it a run starts from the values that --save has kept, where there are any.",
     ApplyDefaults, nullptr},
    {"host", 0, "UNIT", kSettingCommands, "Be a host that counts delays in UNIT.",
     "'hundredths' of a second or 'milliseconds'. Supercompress is open to a host in hundredths "
     "alone. Default: hundredths.",
     ApplyHost, "'hundredths' or 'milliseconds'"},
    {"host-true-color", 0, "YES", kSettingCommands & ~unsigned{kPreviewBit},
     "Be a host that takes 24-bit frames, or not.", "'yes' or 'no'. Default: yes.",
     ApplyHostTrueColor, "'yes' or 'no'"},
    {"host-true-color", 0, "YES", kPreviewBit, "Be a host that takes 24-bit frames, or not.",
     "'yes' or 'no'. For such a host the preview takes delays as milliseconds. Default: yes with "
     "--host milliseconds, else no.",
     ApplyHostTrueColor, "'yes' or 'no'"},
    {"folder", 0, "DIR", kPreviewBit, "Write the preview to DIR.",
     "Default: the program's folder among the user's own data.", ApplyFolder,
     "the path of a folder"},
    {"no-open", 0, nullptr, kPreviewBit, "Do not open the page in the browser.", "", ApplyNoOpen,
     nullptr},
    {"colors", 0, "COUNT", kEncodeBit, "Make a palette of COUNT colors.",
     "2 to 256. Default: as many as a Build takes, which is 256, or 255 beside a transparent one. "
     "Has no effect with --palette.",
     ApplyColors, "a number from 2 to 256"},
    {"palette", 0, "INDEX", kEncodeBit, "Take a fixed palette in place of the pictures' own.",
     "0 black and white, 1 sixteen-color Windows, 2 32-color, 3 64-color, 4 128-color orthogonal, "
     "5 216-color safe, 6 256-color orthogonal, 7 256-color with gray, 8 256 gray levels.",
     ApplyPalette, "a number from 0 to 8"},
    {"dither", 0, nullptr, kEncodeBit, "Spread the error of each color to its neighbors.", "",
     ApplyDither, nullptr},
    {"supercompress", 0, nullptr, kEncodeBit, "Make pixels transparent that do not change.", "",
     ApplySupercompress, nullptr},
    {"delay", 0, "HUNDREDTHS", kEncodeBit, "Show each frame for so many hundredths of a second.",
     "1 to 65535, as far as a GIF goes. Default: 4.", ApplyDelay, "a number from 1 to 65535"},
    {"library", 0, "FILE", kFountainBit, "Work on the library FILE.",
     "Default: FountainLibrary.fll in the program's folder among the user's own data.",
     ApplyLibrary, "the path of a file"},
    {"add", 0, "FOUNTAIN", kFountainBit, "Add a fountain to the library; may be given many times.",
     "Prints the number of each. The library is made where there is none.", ApplyAdd, "a fountain",
     true},
    {"add", 0, "PICTURE", kTilesBit, "Add a picture to the group; may be given many times.",
     "A picture is a .png, .bmp or .ppm of which one side at least has 512 pixels or fewer. The "
     "group is made where there is none.",
     ApplyAdd, "the path of a picture", true},
    {"remove", 0, nullptr, kFountainBit, "Take the fountain out of the library.",
     "With -o it is written there first. A library without entries is removed.", ApplyRemove,
     nullptr},
    {"remove", 0, nullptr, kTilesBit, "Take the tile out of the group.",
     "With -o it is written there first.", ApplyRemove, nullptr},
    {"size", 0, "WxH", kTextureBit | kMaterialBit, "Render at that many pixels.",
     "1x1 to 4096x4096. Default: 128x128.", ApplySize, "WIDTHxHEIGHT, each 1 to 4096"},
    {"size", 0, "WxH", kFountainBit, "Render at that many pixels.",
     "1x1 to 4096x4096. Default: 181x30.", ApplySize, "WIDTHxHEIGHT, each 1 to 4096"},
    {"json", 0, nullptr,
     kStylesBit | kParamsBit | kDocumentBit | kCheckBit | kTextureBit | kFountainBit | kTilesBit |
         kMaterialBit,
     "Write JSON, for programs.", "", ApplyJson, nullptr},
    {"quiet", 'q', nullptr, kAllCommands, "Show no progress.",
     "Nor tell when a default stands in for what is missing.", ApplyQuiet, nullptr},
    {"help", 'h', nullptr, kAllCommands, "Show help and end.", "", ApplyHelp, nullptr},
    {"version", 'V', nullptr, kAllCommands, "Show the version and end.", "", ApplyVersion, nullptr},
};

}  // namespace

std::span<const CommandRow> Commands() {
    return kCommands;
}

std::span<const OptionRow> Options() {
    return kOptions;
}

const CommandRow* FindCommand(std::string_view name) {
    for (const CommandRow& command : kCommands) {
        if (name == command.Name) return &command;
    }
    return nullptr;
}

}  // namespace tess
