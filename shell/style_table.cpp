#include "shell/style_table.h"

#include "styles/styles.h"

namespace tess {

const StyleEntry* const StyleTable[kStyleCount] = {
    &AtmosphereStyle, &BubblesStyle,       &CarpetStyle,    &CubistStyle,
    &FountainStyle,   &GridlockStyle,      &GumdropsStyle,  &HyperspaceStyle,
    &IrisStyle,       &MachineStyle,       &MuralStyle,     &NeuralNetworkStyle,
    &ParticlesStyle,  &PhasersOnStunStyle, &SkipIntroStyle, &ShapedFountainStyle,
    &SnowStyle,       &SolidStyle,         &WaveletStyle,   &WhiteNoiseStyle,
};

}  // namespace tess
