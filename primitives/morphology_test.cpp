// The dilations, in every variant.
#include "primitives/morphology.h"

#include <gtest/gtest.h>
