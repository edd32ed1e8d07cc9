#version 120
// Finds the medians of the windows whose samples are counted.
//
// Takes: Texture0, histograms of 256 buckets, one a row; vRadius, the window's, in texels, without
// the middle.
// Gives: the median of the pixel's row, 0 to 1, in the picture's channel order. Mirrors
// Canvaskit::CMedian.
#include "texture_info.glsl"
uniform sampler2D Texture0_texture;
uniform TextureInfo Texture0;
uniform vec2 vRadius;

varying vec2 vRT;

void main() {
    float row = texelIndexUnder(Texture0, vRT).y;
    float samples = (2.0 * vRadius.x + 1.0) * (2.0 * vRadius.y + 1.0);
    vec4 below = vec4(0.5 * (samples - 1.0));  // as many lie below the median as above
    vec4 counted = vec4(0.0), median = vec4(0.0);
    for (float bucket = 0.0; bucket < 255.5; bucket += 1.0) {
        counted += texture2D(Texture0_texture, texelAt(Texture0, vec2(bucket, row)));
        median += vec4(lessThan(counted, below + 0.5));
    }
    gl_FragColor = median / 255.0;
}
