#include "toolkit/shape_sprites.h"

#include <gtest/gtest.h>
