#version 120
// One stage of a dilation or erosion under a large ellipse.
//
// Takes: Texture0, the picture so far; Texture1, the same small and blurred, read linearly; radiusX
// and radiusY, the stage's ellipse in texels of the picture; nStepX and nStepY, its rings across and
// down, and how many texels apart a ring's samples may lie, since later stages fill the gaps;
// maxFilter, 1 for the largest and 0 for the smallest sample; alphaOnly, 1 to leave colours alone.
// Gives: the extreme sample of each channel, in the picture's order. Mirrors
// Processors::CDilateEllipse.
#include "texture_info.glsl"
uniform sampler2D Texture0_texture;
uniform sampler2D Texture1_texture;
uniform TextureInfo Texture0;
uniform TextureInfo Texture1;
uniform int radiusX;
uniform int radiusY;
uniform int nStepX;
uniform int nStepY;
uniform int maxFilter;
uniform int alphaOnly;

varying vec2 vRT;

// Whole numbers that come out of a square root get this much help.
const float kSlack = 0.001;

// 1 for the largest; -1 turns all samples round, so that the smallest becomes the largest.
float direction;
vec2 middle;
vec4 extreme;

void lookAt(vec2 offset) {
    vec4 texel = texture2D(Texture0_texture, texelAt(Texture0, middle + offset));
    extreme = max(extreme, direction * texel);
}

void lookBothWays(vec2 offset) {
    lookAt(offset);
    lookAt(-offset);
}

void lookFourWays(vec2 offset) {
    lookBothWays(offset);
    lookBothWays(vec2(offset.x, -offset.y));
}

// How far an ellipse of these radii reaches along one axis at a distance on the other, in whole
// texels: a ring never leaves its ellipse.
float reach(float along, float across, float distance) {
    float part = distance * distance / max(across * across, kSlack);
    return floor(along * sqrt(max(1.0 - part, 0.0)) + kSlack);
}

void lookAlongRing(vec2 ring, vec2 stride) {
    lookBothWays(vec2(reach(ring.x, ring.y, 0.0), 0.0));
    lookBothWays(vec2(0.0, reach(ring.y, ring.x, 0.0)));
    for (float y = stride.y; y < ring.y; y += stride.y)
        lookFourWays(vec2(reach(ring.x, ring.y, y), y));
    for (float x = stride.x; x < ring.x; x += stride.x)
        lookFourWays(vec2(x, reach(ring.y, ring.x, x)));
}

// Where the mean of a neighbourhood of samples from 0 to 1 is m, half of it has at least 2 m - 1,
// and half at most 2 m: with this reserve a blurred picture widens no straight or round outline. Its
// texels are as large as the ellipse, so it is looked at where they leave half of one for error. The
// blur puts others in the place of the two texels at the edge, and mixes them into two more.
void lookAtMean(vec2 offset) {
    const float edge = 4.0;
    vec2 index = texelIndexUnder(Texture1, vRT + offset / vRTSize);
    vec2 margin = min(index, Texture1.vNORM2TEXi_Scale - index);
    if (min(margin.x, margin.y) < edge) return;
    vec4 mean = texture2D(Texture1_texture, texelAt(Texture1, index));
    extreme = max(extreme, 2.0 * direction * mean - max(direction, 0.0));
}

void main() {
    direction = maxFilter == 1 ? 1.0 : -1.0;
    middle = floor(texelIndexUnder(Texture0, vRT) + 0.5);
    vec4 before = texture2D(Texture0_texture, texelAt(Texture0, middle));
    extreme = direction * before;

    vec2 radius = vec2(radiusX, radiusY), rings = vec2(nStepX, nStepY);
    for (float k = 1.0; k <= max(rings.x, rings.y); k += 1.0) {
        vec2 ring = radius * min(vec2(k), rings) / rings;
        lookAlongRing(ring, clamp(floor((ring + 1.0) / 2.0), vec2(1.0), rings));
    }

    vec2 near = 0.4 * radius;
    lookAtMean(vec2(0.0));
    for (float side = -1.0; side <= 1.0; side += 2.0) {
        lookAtMean(vec2(side * near.x, 0.0));
        lookAtMean(vec2(0.0, side * near.y));
        lookAtMean(side * 0.7 * near);
        lookAtMean(side * 0.7 * vec2(near.x, -near.y));
    }

    vec4 result = direction * extreme;
    gl_FragColor = alphaOnly == 1 ? vec4(before.rgb, result.a) : result;
}
