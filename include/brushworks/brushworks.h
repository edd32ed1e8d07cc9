// Everything that a host of Brushworks compiles against.
//
// A host loads libbrushworks.so (or links it), calls GetEffectsLibrary, creates effects by index,
// reads their parameters and presets, and renders frames through Render or textures through
// RenderGPU.
#pragma once

#include "brushworks/effect.h"
#include "brushworks/frame.h"
#include "brushworks/frame_processor.h"
#include "brushworks/gl.h"
#include "brushworks/guid.h"
#include "brushworks/host.h"
#include "brushworks/library.h"
#include "brushworks/memory.h"
#include "brushworks/parameter.h"
#include "brushworks/preset_saver.h"
#include "brushworks/render.h"
#include "brushworks/unknown.h"
