#version 120
// Places a sample, a point of its own, on the pixel that counts it.
//
// Takes: Color, a sample as a byte, 0 to 255; nBuckets, the target's width in pixels.
// Gives: the middle of the bucket's pixel on a target of one row, in clip coordinates.
attribute float Color;

uniform float nBuckets;

void main() {
    float bucket = floor(Color * nBuckets / 256.0);
    gl_Position = vec4((bucket + 0.5) / nBuckets * 2.0 - 1.0, 0.0, 0.0, 1.0);
}
