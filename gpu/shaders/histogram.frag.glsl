#version 120
// Counts one sample.
//
// Takes: nColorPlane, the channel that is counted, 0 to 3, in the source's order.
// Gives: 1 in that channel, to be blended by addition.
uniform int nColorPlane;

void main() {
    gl_FragColor = vec4(equal(ivec4(0, 1, 2, 3), ivec4(nColorPlane)));
}
