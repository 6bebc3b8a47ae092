// The rows of all styles, each defined at the end of its own file.
#pragma once

#include "shell/style_table.h"

namespace tess {

extern const StyleEntry AtmosphereStyle;
extern const StyleEntry BubblesStyle;
extern const StyleEntry CarpetStyle;
extern const StyleEntry CubistStyle;
extern const StyleEntry FountainStyle;
extern const StyleEntry GridlockStyle;
extern const StyleEntry GumdropsStyle;
extern const StyleEntry HyperspaceStyle;
extern const StyleEntry IrisStyle;
extern const StyleEntry MachineStyle;
extern const StyleEntry MuralStyle;
extern const StyleEntry NeuralNetworkStyle;
extern const StyleEntry ParticlesStyle;
extern const StyleEntry PhasersOnStunStyle;
extern const StyleEntry ShapedFountainStyle;
extern const StyleEntry SkipIntroStyle;
extern const StyleEntry SnowStyle;
extern const StyleEntry SolidStyle;
extern const StyleEntry WaveletStyle;
extern const StyleEntry WhiteNoiseStyle;

}  // namespace tess
