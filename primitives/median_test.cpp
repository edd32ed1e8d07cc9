// The medians, in every variant.
#include "primitives/median.h"

#include <gtest/gtest.h>
