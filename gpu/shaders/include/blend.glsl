// The frame of the blend modes: colours by the mode's blend(), alpha from the base.
// Needs swap_channels.glsl and two_sources.glsl.

// The mode itself, which the including stage defines.
vec3 blend(vec3 base, vec3 layer);

void main() {
    vec4 base = source0();
    give(vec4(blend(base.rgb, source1().rgb), base.a));
}
